#pragma once

#include "widgets/RegExpImpl.h"

namespace kelQt
{

/// Makes the patterns of name filters.
class RegExpFilterFactoryImpl
{
public:
  /// @return a new pattern, owned by the caller. Arguments as RegExpImpl's.
  static RegExpImpl* createRegExpFilter(const QString& pattern, Qt::CaseSensitivity caseSensitivity,
    QRegExp::PatternSyntax syntax);
};

} // namespace kelQt
