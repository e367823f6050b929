#include "plugin/DialogActions.h"

#include "host/PIKELVOR.h"
#include "plugin/MainDialog.h"
#include "plugin/MainDialogFactory.h"

#include <algorithm>

namespace QtSep
{

namespace
{

bool oneKind(const std::vector<EntityInfo>& entities)
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [&](const EntityInfo& entity) {
    return entity.type == entities.front().type;
  });
}

bool allPlatforms(const std::vector<EntityInfo>& entities)
{
  return oneKind(entities) && entities.front().type == PI_PLATFORM_TYPE;
}

} // namespace

DialogActions::DialogActions(MainDialogFactory* factory)
  : factory_(factory),
    pointEditFunctor_(this, &DialogActions::onCmdPointEdit),
    manualMergeFunctor_(this, &DialogActions::onCmdManualMerge)
{
}

DialogActions::~DialogActions() = default;

void DialogActions::menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>& entities, void* menu)
{
  if (!factory_)
    return;
  entities_ = entities;
  const QStringList tabs = MainDialog::tabTitles();
  if (oneKind(entities) && tabs.contains(MainDialog::POINT_EDITOR_TAB))
    PIKELVOR::addContextMenuItem(menu, "Edit Points...", &pointEditFunctor_, WEIGHT);
  if (allPlatforms(entities) && tabs.contains(MainDialog::MANUAL_MERGE_TAB))
    PIKELVOR::addContextMenuItem(menu, "Manual Merge...", &manualMergeFunctor_, WEIGHT);
}

MainDialog* DialogActions::showMainDialog_()
{
  MainDialog* dialog = factory_->getMainDialog();
  if (dialog)
  {
    dialog->show();
    dialog->raise();
  }
  return dialog;
}

QList<unsigned long> DialogActions::selectedIds_() const
{
  QList<unsigned long> ids;
  for (const EntityInfo& entity : entities_)
    ids << entity.id;
  return ids;
}

int DialogActions::onCmdPointEdit(PIObject*, void*)
{
  if (MainDialog* dialog = showMainDialog_())
    dialog->startPointEdit(selectedIds_());
  return 0;
}

int DialogActions::onCmdManualMerge(PIObject*, void*)
{
  if (MainDialog* dialog = showMainDialog_())
    dialog->startManualMerge(selectedIds_());
  return 0;
}

} // namespace QtSep
