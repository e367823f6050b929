#pragma once

#include "datasources/ChildDataSource.h"

namespace kelCore
{
class UnitContext;
}

namespace QtSep
{

/// A beam: its pointing (azimuth, elevation, length), colour, state and target. A target beam points at
/// its target, so its pointing is no data to edit.
class BeamDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the user's units (the formatter's context is the one shown); both outlive the source
  BeamDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                  QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
  void readHeader_(unsigned long id) override;
  bool isCellEditable_(int column) const override;

private:
  bool targetBeam_ = false;
};

} // namespace QtSep
