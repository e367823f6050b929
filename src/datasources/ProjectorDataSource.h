#pragma once

#include "datasources/ChildDataSource.h"

namespace kelCore
{
class UnitContext;
}

namespace QtSep
{

/// A projector: its field of view and state.
class ProjectorDataSource : public ChildDataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the user's units (the formatter's context is the one shown); both outlive the source
  ProjectorDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                       QObject* parent = nullptr);

protected:
  void readSeries_(unsigned long id, std::vector<Item>& items) const override;
  void writeRow_(unsigned long id, const Values& row) const override;
};

} // namespace QtSep
