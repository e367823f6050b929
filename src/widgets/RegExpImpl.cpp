#include "widgets/RegExpImpl.h"

namespace kelQt
{

RegExpImpl::RegExpImpl(const QString& pattern, Qt::CaseSensitivity caseSensitivity, QRegExp::PatternSyntax syntax)
  : regExp_(pattern, caseSensitivity, syntax)
{
}

bool RegExpImpl::match(const QString& text) const
{
  if (regExp_.isEmpty())
    return true;
  return regExp_.indexIn(text) >= 0;
}

} // namespace kelQt
