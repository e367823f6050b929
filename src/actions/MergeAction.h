#pragma once

#include "host/CustomCallbackFunctor.h"
#include "plugin/Action.h"

class PIObject;
class QAction;
class QWidget;

namespace QtSep
{

/**
 * "Merge": the selected platforms become the first of them. Every other platform's data from
 * the first one's start on join it, children into their namesakes, and the others are removed.
 */
class MergeAction : public Action
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit MergeAction(QWidget* parent);
  ~MergeAction() override;

  int weight() const override { return WEIGHT; }
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<EntityInfo>& entities, void* menu) override;
  void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) override;

  /// Merges the kept selection after asking. @return 1
  int onCmdMerge(PIObject* sender, void* data);

  /// @return the entry of the own menu
  QAction* action() const { return action_; }

  static const int WEIGHT = 215;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

private:
  /// @return true for two platforms or more, and nothing else
  static bool canMerge_(const std::vector<EntityInfo>& entities);
  /// Keeps the selection when it can merge. @return the entry's text, empty when not offered
  std::string offer_(const std::vector<EntityInfo>& entities);

  QWidget* parent_;
  QAction* action_;
  std::vector<EntityInfo> entities_;
  CustomCallbackFunctor<MergeAction> functor_;
};

} // namespace QtSep
