#pragma once

#include "host/CustomCallbackFunctor.h"
#include "plugin/Action.h"

#include <memory>

class PIObject;

namespace QtSep
{

class MainDialog;
class MainDialogFactory;

/**
 * The host menu's entries that open a tab of the editor window on the right-clicked entities:
 * "Edit Points..." for entities of one kind, "Manual Merge..." for platforms. An entry is
 * offered only when this build of the window has its tab.
 */
class DialogActions : public Action
{
  Q_OBJECT
public:
  /// @param factory gives the editor window; owned
  explicit DialogActions(MainDialogFactory* factory);
  ~DialogActions() override;

  int weight() const override { return WEIGHT; }
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<EntityInfo>& entities, void* menu) override;
  /// The editor window's own menu needs no entries that open it.
  void menuRequested(const std::vector<EntityInfo>&, std::vector<MenuInfo*>&) override {}

  /// Opens the point editor on the stored selection. @return 0
  int onCmdPointEdit(PIObject* sender, void* data);
  /// Opens the manual merge on the stored selection. @return 0
  int onCmdManualMerge(PIObject* sender, void* data);

  static const int WEIGHT = 245;

private:
  MainDialog* showMainDialog_();
  QList<unsigned long> selectedIds_() const;

  std::unique_ptr<MainDialogFactory> factory_;
  std::vector<EntityInfo> entities_;
  CustomCallbackFunctor<DialogActions> pointEditFunctor_;
  CustomCallbackFunctor<DialogActions> manualMergeFunctor_;
};

} // namespace QtSep
