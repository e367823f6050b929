#pragma once

#include "plugin/Action.h"

class QAction;
class QWidget;

namespace QtSep
{

/**
 * "Remove Duplicate Points" in the editor's own entity menu: reduces the right-clicked
 * entities and their children, or the whole scenario when the scenario was right-clicked,
 * after asking unless the user turned the question off.
 */
class RemoveDuplicatePointsAction : public Action
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit RemoveDuplicatePointsAction(QWidget* parent);
  ~RemoveDuplicatePointsAction() override;

  int weight() const override { return WEIGHT; }
  /// Not offered in the host's menus.
  void menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>&, void*) override {}
  /// Offered for any selection, which it keeps for the command.
  void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) override;

  /// @return the menu entry
  QAction* action() const { return action_; }

  static const int WEIGHT = 227;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

private:
  void removeDuplicatePoints_();

  QWidget* parent_;
  QAction* action_;
  std::vector<EntityInfo> entities_;
};

} // namespace QtSep
