#pragma once

#include "datasources/ChildDataSource.h"

namespace kelCore
{
class UnitContext;
}

namespace QtSep
{

/// A laser: its pointing (azimuth, elevation, roll), colour, state, offset from its host, maximum range
/// and width.
class LaserDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the user's units (the formatter's context is the one shown); both outlive the source
  LaserDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                   QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
};

} // namespace QtSep
