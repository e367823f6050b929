#pragma once

#include "datasources/ChildDataSource.h"

namespace kelCore
{
class UnitContext;
}

namespace QtSep
{

/// A gate: its pointing and extent, colour, state and target. A target gate follows its target in
/// azimuth and elevation.
class GateDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the user's units (the formatter's context is the one shown); both outlive the source
  GateDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                  QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
  void readHeader_(unsigned long id) override;
  bool isCellEditable_(int column) const override;

private:
  bool targetGate_ = false;
};

} // namespace QtSep
