#pragma once

#include "host/ContextMenuCallback.h"
#include "plugin/EntityInfo.h"
#include "plugin/MenuInfo.h"

#include <QObject>

#include <string>
#include <vector>

namespace QtSep
{

/**
 * @brief One user command of the plug-in, offered in the host's right-click menu and in the
 * plug-in's own. Each overload of menuRequested decides what the action offers for a
 * selection, and stores the selection for its command.
 */
class Action : public QObject
{
  Q_OBJECT
public:
  explicit Action(QObject* parent = nullptr) : QObject(parent) {}
  ~Action() override = default;

  /// @return the action's place in menus; lower stands higher.
  virtual int weight() const = 0;
  /// Adds what the action offers to the host's menu, with PIKELVOR::addContextMenuItem.
  virtual void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<EntityInfo>& entities, void* menu) = 0;
  /// Adds what the action offers to the plug-in's own menu.
  virtual void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) = 0;

  /**
   * Adds an audit entry to the entity's generic data: the tag "Qt Scenario Editor N", N
   * counting from 1, at the start of the entity's life (of the scenario's for an entity
   * without data).
   * @param id the entity @param text what was done
   */
  static void addAudit(unsigned long id, const std::string& text);
};

} // namespace QtSep
