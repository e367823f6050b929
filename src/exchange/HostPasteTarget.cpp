#include "exchange/HostPasteTarget.h"

#include "datasources/CategoryDataSource.h"
#include "datasources/DataTableDataSource.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/GenericDataSource.h"
#include "host/FlushType.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataTableCreateHelper.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"

namespace QtSep
{

HostPasteTarget::HostPasteTarget()
  : units_(std::make_unique<kelCore::UnitContextAdapter>()),
    formatter_(std::make_unique<kelCore::UnitContextFormatter>(*units_))
{
}

HostPasteTarget::~HostPasteTarget()
{
  // The open source borrows the units: it goes first.
  open_.reset();
}

unsigned long HostPasteTarget::keep_(unsigned long id)
{
  if (id != 0)
    madeIds_.push_back(id);
  return id;
}

unsigned long HostPasteTarget::createPlatform(const PIData::PIPlatformHeader& header)
{
  // The host makes no platform without a point; the seed goes at once, the pasted rows follow.
  PIData::PIPlatformPoint seed;
  seed.position = {0.0, 0.0, 0.0};
  seed.time = PIData::clockGetBegin();
  const unsigned long id = PIData::createPlatform(&header, &seed);
  if (id != 0)
    PIData::flushEntityData(id, PIData::FLUSH_POINTS);
  return keep_(id);
}

unsigned long HostPasteTarget::createBeam(unsigned long host, const PIData::PIBeamHeader& header)
{
  PIData::PIBeamPoint seed{0.0, 0.0, 0.0, PIData::clockGetBegin()};
  const unsigned long id = PIData::createBeam(host, &header, &seed, true);
  if (id != 0)
    PIData::flushEntityData(id, PIData::FLUSH_POINTS_AND_COMMANDS);
  return keep_(id);
}

unsigned long HostPasteTarget::createGate(unsigned long host, const PIData::PIGateHeader& header)
{
  PIData::PIGatePoint seed;
  seed.time = PIData::clockGetBegin();
  const unsigned long id = PIData::createGate(host, &header, &seed, true);
  if (id != 0)
    PIData::flushEntityData(id, PIData::FLUSH_POINTS_AND_COMMANDS);
  return keep_(id);
}

unsigned long HostPasteTarget::createLaser(unsigned long host, const PIData::PILaserHeader& header)
{
  return keep_(PIData::createLaser(host, &header, header.originalId));
}

unsigned long HostPasteTarget::createLob(unsigned long host, const PIData::PILobHeader& header)
{
  return keep_(PIData::createLob(host, &header));
}

unsigned long HostPasteTarget::createProjector(unsigned long host, const PIData::PIProjectorHeader& header)
{
  return keep_(PIData::createProjector(host, &header));
}

unsigned long HostPasteTarget::createCustomRendering(unsigned long host, const PIData::PICustomRenderingHeader& header)
{
  return keep_(PIData::createCustomRendering(host, &header));
}

void HostPasteTarget::openTable(unsigned long id, Table table)
{
  open_.reset();
  if (table == Table::OWN)
  {
    // Fresh default units for each entity: rows travel in storage units, positions in LLA.
    formatter_.reset();
    units_ = std::make_unique<kelCore::UnitContextAdapter>();
    formatter_ = std::make_unique<kelCore::UnitContextFormatter>(*units_);
    open_ = std::make_unique<EntityDataSourceProxy>(*formatter_, *units_);
  }
  else if (table == Table::CATEGORY)
    open_ = std::make_unique<CategoryDataSource>(*formatter_);
  else
    open_ = std::make_unique<GenericDataSource>(*formatter_);
  // No rows are read: the paste's rows are the only ones.
  open_->setUniqueId(id, false);
}

bool HostPasteTarget::openDataTable(unsigned long id, const std::string& name, const std::vector<Column>& columns)
{
  open_.reset();
  PIData::PIDataTableCreateHelper helper;
  for (const Column& column : columns)
    helper.addColumn(column.name, column.type, column.units);
  long tableId = -1;
  try
  {
    if (helper.create(id, name, &tableId) == 0)
      return false;
  }
  catch (const PIData::PIDataTableCreateHelper::CreateException&)
  {
    return false;
  }
  auto source = std::make_unique<DataTableDataSource>(*formatter_);
  source->setUniqueId(id, true);
  source->loadDataTable(tableId);
  open_ = std::move(source);
  return true;
}

void HostPasteTarget::addRow(int row)
{
  if (open_)
    open_->copyRow(row, row);
}

int HostPasteTarget::setCell(int row, int column, const QVariant& value)
{
  return open_ ? open_->setData(row, column, value) : 1;
}

void HostPasteTarget::commit()
{
  if (open_)
    open_->commitChanges(false);
}

} // namespace QtSep
