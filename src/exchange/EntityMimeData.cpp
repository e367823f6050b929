#include "exchange/EntityMimeData.h"

#include "datasources/CategoryDataSource.h"
#include "datasources/DataTableDataSource.h"
#include "datasources/EntityDataSourceProxy.h"
#include "datasources/GenericDataSource.h"
#include "exchange/EntityPayloadReader.h"
#include "exchange/HostPasteTarget.h"
#include "exchange/PayloadStream.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataTables.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"

#include <QByteArray>
#include <QDataStream>
#include <QMimeData>

#include <new>

#include <unistd.h>

namespace QtSep
{

namespace
{

/// Every field goes as a QVariant, so that it carries its own type.
void put(QDataStream& out, const QVariant& value) { out << value; }

void putText(QDataStream& out, const std::string& text)
{
  // From the bytes, never a null string: an empty text is written with the count 0.
  put(out, QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

void putId(QDataStream& out, unsigned long id) { put(out, QVariant(static_cast<qulonglong>(id))); }

/// @return the children that list names, in the host's order
template <typename List>
std::vector<UniqueID_t> listed(List list, UniqueID_t host)
{
  std::vector<UniqueID_t> ids;
  list(host, &ids);
  return ids;
}

unsigned long thisProcess() { return static_cast<unsigned long>(::getpid()); }

/// @return the payload's bytes, empty for a null mime or one without a payload
QByteArray payloadOf(const QMimeData* mime) { return mime ? mime->data(CP_VERSION) : QByteArray(); }

/// @return whether a child of this kind may be pasted on a target of that kind
bool canHold(PIScenarioObjectType_t target, int child)
{
  switch (child)
  {
  case PI_GATE_TYPE: return target == PI_BEAM_TYPE;
  case PI_PROJECTOR_TYPE: return target == PI_PLATFORM_TYPE || target == PI_BEAM_TYPE;
  default: return target == PI_PLATFORM_TYPE;
  }
}

} // namespace

bool EntityMimeData::isValidCopy_(const std::vector<EntityInfo>& entities, bool& childCopy) const
{
  childCopy = false;
  if (entities.empty() || entities.front().id == 0)
    return false;
  for (const EntityInfo& entity : entities)
  {
    if (entity.id == 0)
      return false;
    if (entity.type == PI_PLATFORM_TYPE)
      continue;
    if (entity.type == PI_CUSTOM_RENDERING_TYPE && PIData::getObjectHost(entity.id) == 0)
      continue;
    // A child travels only alone.
    if (entities.size() > 1)
      return false;
    childCopy = true;
  }
  return true;
}

bool EntityMimeData::isValidCopy(const std::vector<EntityInfo>& entities) const
{
  bool childCopy = false;
  return isValidCopy_(entities, childCopy);
}

QMimeData* EntityMimeData::copy(const std::vector<EntityInfo>& entities) const
{
  copyError_.clear();
  bool childCopy = false;
  if (!isValidCopy_(entities, childCopy))
    return nullptr;
  QByteArray bytes;
  try
  {
    QDataStream out(&bytes, QIODevice::WriteOnly);
    put(out, QVariant(static_cast<qulonglong>(thisProcess())));
    put(out, QVariant(childCopy));
    if (childCopy)
    {
      const EntityInfo& child = entities.front();
      put(out, QVariant(static_cast<int>(child.type)));
      writeRecord_(out, child);
    }
    else
    {
      for (const EntityInfo& entity : entities)
      {
        if (entity.type == PI_PLATFORM_TYPE)
          writePlatform_(out, entity.id);
        else
          writeCustomRendering_(out, entity.id);
      }
    }
    // A byte array holds at most 2 GiB: past that the stream stops writing, and a cut payload
    // must not reach the clipboard.
    if (out.status() != QDataStream::Ok)
      copyError_ = "the entities are too large for the clipboard";
  }
  catch (const std::bad_alloc&)
  {
    copyError_ = "there is not memory enough for a copy of the entities";
  }
  if (!copyError_.empty())
    return nullptr;
  auto* mime = new QMimeData;
  mime->setData(CP_VERSION, bytes);
  return mime;
}

void EntityMimeData::writeRecord_(QDataStream& out, const EntityInfo& entity) const
{
  switch (entity.type)
  {
  case PI_LASER_TYPE: writeLaser_(out, entity.id); break;
  case PI_BEAM_TYPE: writeBeam_(out, entity.id); break;
  case PI_GATE_TYPE: writeGate_(out, entity.id); break;
  case PI_PROJECTOR_TYPE: writeProjector_(out, entity.id); break;
  case PI_CUSTOM_RENDERING_TYPE: writeCustomRendering_(out, entity.id); break;
  case PI_LOB_GROUP_TYPE: writeLob_(out, entity.id); break;
  default: break;
  }
}

void EntityMimeData::writePlatform_(QDataStream& out, unsigned long id) const
{
  PIData::PIPlatformHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_PLATFORM);
  putText(out, header.name);
  putText(out, header.iconFile);
  putId(out, header.originalId);
  writeEntity_(out, id);
  putText(out, CP_CHILDREN);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getCustomRenderingList(host, ids); }, id))
    writeCustomRendering_(out, child);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getBeamList(host, ids); }, id))
    writeBeam_(out, child);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getLaserList(host, ids); }, id))
    writeLaser_(out, child);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getLobList(host, ids); }, id))
    writeLob_(out, child);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getProjectorList(host, ids); }, id))
    writeProjector_(out, child);
  putText(out, CP_DEFINITION_END);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeBeam_(QDataStream& out, unsigned long id) const
{
  PIData::PIBeamHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_BEAM);
  putText(out, header.name);
  putId(out, header.originalId);
  put(out, header.beamType);
  put(out, header.horizontalBeamWidth);
  put(out, header.verticalBeamWidth);
  put(out, header.azimuthOffset);
  put(out, header.elevationOffset);
  put(out, header.flag);
  putId(out, header.targetId);
  writeEntity_(out, id);
  putText(out, CP_CHILDREN);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getGateList(host, ids); }, id))
    writeGate_(out, child);
  for (UniqueID_t child : listed([](UniqueID_t host, std::vector<UniqueID_t>* ids) { PIData::getProjectorList(host, ids); }, id))
    writeProjector_(out, child);
  putText(out, CP_DEFINITION_END);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeGate_(QDataStream& out, unsigned long id) const
{
  PIData::PIGateHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_GATE);
  putText(out, header.name);
  putId(out, header.originalId);
  put(out, header.gateType);
  writeEntity_(out, id);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeLaser_(QDataStream& out, unsigned long id) const
{
  PIData::PILaserHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_LASER);
  putText(out, header.name);
  put(out, header.relative);
  put(out, static_cast<int>(header.frame.coordinateSystem));
  putId(out, PIData::getOriginalId(id));
  writeEntity_(out, id);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeLob_(QDataStream& out, unsigned long id) const
{
  PIData::PILobHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_LOB);
  putText(out, header.name);
  putId(out, header.originalId);
  put(out, header.lobType);
  writeEntity_(out, id);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeProjector_(QDataStream& out, unsigned long id) const
{
  PIData::PIProjectorHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_PROJECTOR);
  putText(out, header.name);
  putId(out, header.originalId);
  writeEntity_(out, id);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeCustomRendering_(QDataStream& out, unsigned long id) const
{
  PIData::PICustomRenderingHeader header;
  if (PIData::getHeader(id, &header) != 0)
    return;
  putText(out, CP_CUSTOM_RENDERING);
  putText(out, header.name);
  putText(out, header.renderer);
  putId(out, header.originalId);
  writeEntity_(out, id);
  putText(out, CP_DEFINITION_END);
}

void EntityMimeData::writeEntity_(QDataStream& out, unsigned long id) const
{
  // Default units: rows travel in LLA, radians, metres and m/s whatever the user shows.
  const kelCore::UnitContextAdapter units;
  const kelCore::UnitContextFormatter formatter(units);
  {
    EntityDataSourceProxy own(formatter, units);
    own.setUniqueId(id, true);
    writeSource_(out, own);
  }
  putText(out, CP_CATEGORY_DATA);
  {
    CategoryDataSource categories(formatter);
    categories.setUniqueId(id, true);
    writeSource_(out, categories);
  }
  putText(out, CP_DEFINITION_END);
  putText(out, CP_GENERIC_DATA);
  {
    GenericDataSource generic(formatter);
    generic.setUniqueId(id, true);
    writeSource_(out, generic);
  }
  putText(out, CP_DEFINITION_END);
  writeDataTables_(out, id);
}

void EntityMimeData::writeSource_(QDataStream& out, const DataSource& source) const
{
  const int rows = source.rowCount();
  const int columns = source.columnCount();
  put(out, rows);
  put(out, columns);
  for (int row = 0; row < rows; ++row)
  {
    for (int column = 0; column < columns; ++column)
      put(out, source.data(row, column, DataSource::Role::Raw));
  }
}

void EntityMimeData::writeDataTables_(QDataStream& out, unsigned long id) const
{
  putText(out, CP_DATA_TABLES);
  std::vector<long> all;
  PIData::getAllDataTableIDs(id, &all);
  // The kinds' own series kept in tables travel in the source block, not here.
  std::vector<long> tables;
  for (long table : all)
  {
    if (PIData::getDataTableName(table).rfind(INTERNAL_TABLE_PREFIX, 0) != 0)
      tables.push_back(table);
  }
  putId(out, tables.size());
  const kelCore::UnitContextAdapter units;
  const kelCore::UnitContextFormatter formatter(units);
  for (long table : tables)
  {
    DataTableDataSource source(formatter);
    source.setUniqueId(id, true);
    source.loadDataTable(table);
    putText(out, CP_DATA_TABLE);
    putText(out, PIData::getDataTableName(table));
    putText(out, CP_COLUMNS);
    const std::vector<DataTableDataSource::Column> columns = source.getColumns();
    putId(out, columns.size());
    for (const DataTableDataSource::Column& column : columns)
    {
      putText(out, column.name);
      put(out, static_cast<int>(column.type));
      put(out, static_cast<int>(column.units));
    }
    putText(out, CP_DEFINITION_END);
    writeSource_(out, source);
    putText(out, CP_DEFINITION_END);
  }
  putText(out, CP_DEFINITION_END);
}

bool EntityMimeData::isLocalData(const QMimeData* mime) const
{
  const QByteArray bytes = payloadOf(mime);
  if (bytes.isEmpty())
    return false;
  PayloadStream in(bytes);
  unsigned long process = 0;
  // A payload whose writer cannot be told is taken as this process's own.
  return !in.readUnsignedLong(process) || process == thisProcess();
}

bool EntityMimeData::isValidPaste(const std::vector<EntityInfo>& targets, const QMimeData* mime) const
{
  const QByteArray bytes = payloadOf(mime);
  if (bytes.isEmpty())
    return false;
  PayloadStream in(bytes);
  unsigned long process = 0;
  // An unreadable process id still offers the paste, which then says what is wrong.
  if (!in.readUnsignedLong(process))
    return true;
  bool childFlag = false;
  if (!in.readBool(childFlag))
    return false;
  if (!childFlag)
    return true;
  if (targets.empty() || targets.size() >= 2)
    return false;
  int type = 0;
  if (!in.readInt(type))
    return false;
  return canHold(targets.front().type, type);
}

int EntityMimeData::paste(const std::vector<EntityInfo>& targets, const QMimeData* mime)
{
  pasteError_.clear();
  pastedIds_.clear();
  if (!isValidPaste(targets, mime))
  {
    pasteError_ = "nothing on the clipboard can be pasted there";
    return 1;
  }
  PayloadStream in(payloadOf(mime));
  unsigned long process = 0;
  bool childFlag = false;
  if (!in.readUnsignedLong(process) || !in.readBool(childFlag))
  {
    pasteError_ = in.error();
    return 1;
  }
  sameProcess = process == thisProcess();
  HostPasteTarget target;
  EntityPayloadReader reader(in, target, sameProcess);
  int status = 0;
  if (childFlag)
    // A child's fault leaves the paste a success: what was made stays, as for any edit.
    reader.pasteChild(targets.front().id);
  else
  {
    status = reader.pasteTopLevel();
    if (status == 0 && !sameProcess)
      PIData::clockAutoConfigureBeginEnd();
  }
  pasteError_ = reader.reason();
  pastedIds_ = target.made();
  return status;
}

} // namespace QtSep
