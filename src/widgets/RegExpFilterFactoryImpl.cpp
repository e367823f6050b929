#include "widgets/RegExpFilterFactoryImpl.h"

namespace kelQt
{

RegExpImpl* RegExpFilterFactoryImpl::createRegExpFilter(const QString& pattern, Qt::CaseSensitivity caseSensitivity,
  QRegExp::PatternSyntax syntax)
{
  return new RegExpImpl(pattern, caseSensitivity, syntax);
}

} // namespace kelQt
