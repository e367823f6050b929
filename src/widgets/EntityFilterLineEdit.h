#pragma once

#include "widgets/SearchLineEdit.h"

#include <QRegExp>

class QAction;

namespace kelQt
{

/**
 * The name search of an entity tree. Its context menu sets the case sensitivity and the
 * syntax of the pattern; a pattern that is not valid is marked in red.
 */
class EntityFilterLineEdit : public SearchLineEdit
{
  Q_OBJECT
public:
  explicit EntityFilterLineEdit(QWidget* parent = nullptr);

  Qt::CaseSensitivity caseSensitivity() const;
  void setCaseSensitivity(Qt::CaseSensitivity caseSensitivity);
  QRegExp::PatternSyntax patternSyntax() const;
  /// @param syntax regular expression, wildcard or fixed string; others read as regular expression
  void setPatternSyntax(QRegExp::PatternSyntax syntax);
  /// @param regexOnly true to offer only the regular expression syntax
  void setRegexOnly(bool regexOnly);
  /// @return true when the text is marked as a pattern that is not valid
  bool isMarkedInvalid() const { return invalid_; }

signals:
  /// The text, the case or the syntax changed.
  void changed(const QString& pattern, Qt::CaseSensitivity caseSensitivity, QRegExp::PatternSyntax syntax);

protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

private:
  void emitChanged_();
  void revalidate_();
  QAction* addSyntaxAction_(const QString& text, QRegExp::PatternSyntax syntax);

  QAction* caseSensitive_;
  QAction* regExp_;
  QAction* wildcard_;
  QAction* fixedString_;
  bool invalid_ = false;
};

} // namespace kelQt
