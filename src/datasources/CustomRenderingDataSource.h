#pragma once

#include "datasources/ChildDataSource.h"

namespace QtSep
{

/// A custom rendering: its colour and state.
class CustomRenderingDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter the user's units; it outlives the source
  explicit CustomRenderingDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
};

} // namespace QtSep
