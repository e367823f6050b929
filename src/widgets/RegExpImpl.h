#pragma once

#include <QRegExp>
#include <QString>

namespace kelQt
{

/// A search pattern with its case sensitivity and syntax; it matches texts that contain a match.
class RegExpImpl
{
public:
  /// @param pattern the pattern @param caseSensitivity whether letters must match in case @param syntax how the pattern reads
  RegExpImpl(const QString& pattern, Qt::CaseSensitivity caseSensitivity, QRegExp::PatternSyntax syntax);

  /// @return true when some part of text matches; an empty pattern matches every text.
  bool match(const QString& text) const;
  bool isValid() const { return regExp_.isValid(); }
  QString pattern() const { return regExp_.pattern(); }
  Qt::CaseSensitivity caseSensitivity() const { return regExp_.caseSensitivity(); }
  QRegExp::PatternSyntax patternSyntax() const { return regExp_.patternSyntax(); }

private:
  QRegExp regExp_;
};

} // namespace kelQt
