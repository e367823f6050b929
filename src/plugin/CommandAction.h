#pragma once

#include "host/CustomCallbackFunctor.h"
#include "plugin/Action.h"

#include <string>

class PIObject;
class QAction;
class QWidget;

namespace QtSep
{

/**
 * An action that offers one menu entry for the selections it accepts, keeps the selection it was
 * offered for, and runs its command on that selection, from the own menu or the host's.
 * Commands with a confirmation key show "..." while they will ask.
 */
class CommandAction : public Action
{
  Q_OBJECT
public:
  /**
   * @param parent parent of the command's dialogs @param text the entry's text
   * @param confirmKey the settings key of the command's question; empty for a command that does not ask
   * @param weight place in menus @param inHostMenu true to offer the entry in the host's menus too
   */
  CommandAction(QWidget* parent, const std::string& text, const std::string& confirmKey, int weight, bool inHostMenu);
  ~CommandAction() override;

  int weight() const override { return weight_; }
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<EntityInfo>& entities, void* menu) override;
  void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) override;

  /// @return the entry of the own menu
  QAction* action() const { return action_; }

protected:
  /// @return true when the entry is offered for entities
  virtual bool accepts_(const std::vector<EntityInfo>& entities) const = 0;
  /// Runs the command on the kept selection, which is not empty. @return the host command's answer
  virtual int run_() = 0;

  /// Runs the command on the kept selection, then forgets it. @return what run_ answers; 0 without a selection
  int runCommand_();
  /// Asks the command's question. @return true to go on; on refusal the selection is forgotten
  bool confirm_(const QString& title, const QString& text);

  const std::vector<EntityInfo>& selection() const { return entities_; }
  QWidget* parentWidget() const { return parent_; }

private:
  /// Keeps the selection when accepted. @return the entry's text, empty when not offered
  std::string offer_(const std::vector<EntityInfo>& entities);
  int onCommand_(PIObject* sender, void* data);

  QWidget* parent_;
  std::string text_;
  std::string confirmKey_;
  int weight_;
  bool inHostMenu_;
  QAction* action_;
  std::vector<EntityInfo> entities_;
  CustomCallbackFunctor<CommandAction> functor_;
};

} // namespace QtSep
