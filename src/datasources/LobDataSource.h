#pragma once

#include "datasources/ChildDataSource.h"

namespace kelCore
{
class UnitContext;
}

namespace QtSep
{

/// A line-of-bearing group: its bearings (azimuth, elevation, length) and its draw styles (two colours,
/// two stipple patterns, a width in pixels).
class LobDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the user's units (the formatter's context is the one shown); both outlive the source
  LobDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                 QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
  void flush_(unsigned long id) const override;
};

} // namespace QtSep
