#include "widgets/EntityFilterLineEdit.h"

#include <QAction>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QMenu>

namespace kelQt
{

EntityFilterLineEdit::EntityFilterLineEdit(QWidget* parent) : SearchLineEdit(parent)
{
  caseSensitive_ = new QAction("Case Sensitive", this);
  caseSensitive_->setCheckable(true);
  auto* syntaxes = new QActionGroup(this);
  regExp_ = addSyntaxAction_("Regular Expression", QRegExp::RegExp);
  wildcard_ = addSyntaxAction_("Wildcard", QRegExp::Wildcard);
  fixedString_ = addSyntaxAction_("Fixed String", QRegExp::FixedString);
  for (QAction* action : {regExp_, wildcard_, fixedString_})
    syntaxes->addAction(action);
  regExp_->setChecked(true);
  connect(caseSensitive_, &QAction::toggled, this, &EntityFilterLineEdit::emitChanged_);
  connect(syntaxes, &QActionGroup::triggered, this, &EntityFilterLineEdit::emitChanged_);
  connect(this, &QLineEdit::textChanged, this, &EntityFilterLineEdit::emitChanged_);
}

QAction* EntityFilterLineEdit::addSyntaxAction_(const QString& text, QRegExp::PatternSyntax syntax)
{
  auto* action = new QAction(text, this);
  action->setCheckable(true);
  action->setData(int(syntax));
  return action;
}

Qt::CaseSensitivity EntityFilterLineEdit::caseSensitivity() const
{
  return caseSensitive_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

void EntityFilterLineEdit::setCaseSensitivity(Qt::CaseSensitivity caseSensitivity)
{
  caseSensitive_->setChecked(caseSensitivity == Qt::CaseSensitive);
}

QRegExp::PatternSyntax EntityFilterLineEdit::patternSyntax() const
{
  if (wildcard_->isChecked())
    return QRegExp::Wildcard;
  return fixedString_->isChecked() ? QRegExp::FixedString : QRegExp::RegExp;
}

void EntityFilterLineEdit::setPatternSyntax(QRegExp::PatternSyntax syntax)
{
  QAction* chosen = syntax == QRegExp::Wildcard ? wildcard_ : (syntax == QRegExp::FixedString ? fixedString_ : regExp_);
  if (!chosen->isVisible())
    chosen = regExp_;
  if (chosen->isChecked())
    return;
  chosen->setChecked(true);
  emitChanged_();
}

void EntityFilterLineEdit::setRegexOnly(bool regexOnly)
{
  wildcard_->setVisible(!regexOnly);
  fixedString_->setVisible(!regexOnly);
  if (regexOnly)
    setPatternSyntax(QRegExp::RegExp);
}

void EntityFilterLineEdit::contextMenuEvent(QContextMenuEvent* event)
{
  QMenu* menu = createStandardContextMenu();
  menu->addSeparator();
  menu->addAction(caseSensitive_);
  menu->addSeparator();
  for (QAction* action : {regExp_, wildcard_, fixedString_})
  {
    if (action->isVisible())
      menu->addAction(action);
  }
  menu->exec(event->globalPos());
  delete menu;
}

void EntityFilterLineEdit::emitChanged_()
{
  revalidate_();
  emit changed(text(), caseSensitivity(), patternSyntax());
}

void EntityFilterLineEdit::revalidate_()
{
  invalid_ = !QRegExp(text(), caseSensitivity(), patternSyntax()).isValid();
  setStyleSheet(invalid_ ? "QLineEdit { background-color: #ffc8c8; }" : QString());
  setToolTip(invalid_ ? "The pattern is not valid" : QString());
}

} // namespace kelQt
