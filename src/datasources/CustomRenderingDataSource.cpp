#include "datasources/CustomRenderingDataSource.h"

#include "datasources/ChildSeries.h"

namespace QtSep
{

namespace
{

enum Series
{
  COLORS,
  STATES
};

} // namespace

CustomRenderingDataSource::CustomRenderingDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent)
  : ChildDataSource(formatter, {{"Color (RGBA)", Kind::COLOR, COLORS}, {"State", Kind::STATE, STATES}}, true, parent)
{
}

void CustomRenderingDataSource::readSeries_(unsigned long id, std::vector<Item>& items) const
{
  ChildSeries::readColors(id, COLORS, items);
  ChildSeries::readStates(id, STATES, items);
}

void CustomRenderingDataSource::writeRow_(unsigned long id, const Values& row) const
{
  ChildSeries::writeCommands(id, row, COLORS, 0, STATES, 1);
}

} // namespace QtSep
