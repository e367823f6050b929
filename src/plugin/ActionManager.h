#pragma once

#include "plugin/Action.h"

#include <QObject>

#include <memory>
#include <vector>

class QWidget;

namespace QtSep
{

/**
 * @brief Owns every action of the plug-in and asks them, in turn, what they offer for a
 * right-click: item by item for the host's menu, as a weight-sorted list for the own menu.
 * Nothing is offered while no scenario is initialised or while the clock is live.
 */
class ActionManager : public QObject
{
  Q_OBJECT
public:
  /// Makes the actions of the plug-in. @param parent parent of the actions' dialogs
  ActionManager(QWidget* parent, QObject* owner);
  ~ActionManager() override;

  /// Whether the dialog actions are asked as well.
  void setEnableDialogActions(bool enabled) { dialogActionsEnabled_ = enabled; }
  bool dialogActionsEnabled() const { return dialogActionsEnabled_; }
  /// Adds an action that opens the main dialog's tabs.
  void addDialogAction(std::shared_ptr<Action> action) { dialogActions_.push_back(std::move(action)); }

  /**
   * Fills the host's right-click menu: every action adds its items, then a rule at weight
   * 205 closes the block. Only for a click on a list of entities (3) with entities selected.
   */
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids, void* menu);
  /**
   * Fills the own menu's list, sorted by weight (equal weights in the order given). An empty
   * selection stands for the scenario, the entity with id 0 and kind PI_ALL_TYPES. The caller owns the items.
   */
  void menuRequested(const std::vector<unsigned long>& ids, std::vector<MenuInfo*>& items);

  /// @return the actions the manager owns, in the order made.
  const std::vector<std::unique_ptr<Action>>& actions() const { return actions_; }

  /// @return true when menus may be offered: a scenario is initialised and the clock is at rest.
  static bool mayOfferMenus();
  /// @return the selection as entities, in order: id, kind and name.
  static std::vector<EntityInfo> entitiesOf(const std::vector<unsigned long>& ids);

signals:
  /// An action added an entity.
  void entityAdded(unsigned long id);

private:
  std::vector<std::unique_ptr<Action>> actions_;
  bool dialogActionsEnabled_ = false;
  std::vector<std::shared_ptr<Action>> dialogActions_;
};

} // namespace QtSep
