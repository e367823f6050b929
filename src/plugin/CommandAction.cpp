#include "plugin/CommandAction.h"

#include "host/PIKELVOR.h"
#include "plugin/ActionUtilities.h"

#include <QAction>

namespace QtSep
{

CommandAction::CommandAction(QWidget* parent, const std::string& text, const std::string& confirmKey, int weight,
                             bool inHostMenu)
  : parent_(parent),
    text_(text),
    confirmKey_(confirmKey),
    weight_(weight),
    inHostMenu_(inHostMenu),
    action_(new QAction(QString::fromStdString(text), this)),
    functor_(this, &CommandAction::onCommand_)
{
  connect(action_, &QAction::triggered, this, [this] { runCommand_(); });
}

CommandAction::~CommandAction() = default;

std::string CommandAction::offer_(const std::vector<EntityInfo>& entities)
{
  entities_.clear();
  if (!accepts_(entities))
    return std::string();
  entities_ = entities;
  return confirmKey_.empty() ? text_ : addEllipsisIfConfirm(text_, confirmKey_);
}

void CommandAction::menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>& entities, void* menu)
{
  if (!inHostMenu_)
    return;
  const std::string text = offer_(entities);
  if (!text.empty())
    PIKELVOR::addContextMenuItem(menu, text, &functor_, weight_);
}

void CommandAction::menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items)
{
  const std::string text = offer_(entities);
  if (text.empty())
    return;
  action_->setText(QString::fromStdString(text));
  items.push_back(new ActionInfo(action_, weight_));
}

int CommandAction::onCommand_(PIObject*, void*)
{
  return runCommand_();
}

int CommandAction::runCommand_()
{
  if (entities_.empty())
    return 0;
  const int answer = run_();
  entities_.clear();
  return answer;
}

bool CommandAction::confirm_(const QString& title, const QString& text)
{
  if (verifyAction(title, text, confirmKey_, parent_) == 0)
    return true;
  entities_.clear();
  return false;
}

} // namespace QtSep
