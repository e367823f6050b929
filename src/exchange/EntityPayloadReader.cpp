#include "exchange/EntityPayloadReader.h"

#include "exchange/PasteTarget.h"
#include "exchange/PayloadMarkers.h"
#include "exchange/PayloadStream.h"

#include <QVariantList>

#include <tuple>

namespace QtSep
{

namespace
{

std::string utf8(const QString& text) { return text.toUtf8().toStdString(); }

bool isOneOf(const QString& marker, std::initializer_list<const char*> markers)
{
  for (const char* m : markers)
  {
    if (marker == QLatin1String(m))
      return true;
  }
  return false;
}

// The largest storage type a data table column may have (a blob).
constexpr int MOST_COLUMN_TYPE = UTILS::VT_BLOB;

} // namespace

EntityPayloadReader::EntityPayloadReader(PayloadStream& stream, PasteTarget& target, bool sameProcess)
  : stream_(stream), target_(target), sameProcess_(sameProcess)
{
}

int EntityPayloadReader::fail_(const std::string& reason)
{
  if (reason_.empty())
    reason_ = reason;
  return 1;
}

int EntityPayloadReader::streamFailed_()
{
  return fail_(stream_.failed() ? stream_.error() : std::string("the payload is not well formed"));
}

void EntityPayloadReader::naming_(const char* kind, const std::string& name)
{
  entity_ = std::string(kind) + " \"" + name + "\"";
}

int EntityPayloadReader::expectMarker_(const char* marker)
{
  return stream_.readMarker(marker) ? 0 : streamFailed_();
}

int EntityPayloadReader::pasteTopLevel()
{
  while (!stream_.atEnd())
  {
    QString marker;
    if (!stream_.readText(marker))
      return streamFailed_();
    int status = 1;
    if (marker == QLatin1String(CP_PLATFORM))
      status = pastePlatform_();
    else if (marker == QLatin1String(CP_CUSTOM_RENDERING))
      status = pasteCustomRendering_(0);
    else
      return fail_("a record \"" + utf8(marker.left(64)) + "\" where a platform or custom rendering was expected");
    if (status != 0 || expectMarker_(CP_DEFINITION_END) != 0)
      return 1;
  }
  return 0;
}

int EntityPayloadReader::pasteChild(unsigned long host)
{
  int type = 0;
  QString marker;
  if (!stream_.readInt(type) || !stream_.readText(marker))
    return streamFailed_();
  if (pasteRecord_(marker, host, ANY_CHILD) != 0)
    return 1;
  return expectMarker_(CP_DEFINITION_END);
}

int EntityPayloadReader::pasteRecord_(const QString& marker, unsigned long host, ChildKinds allowed)
{
  const bool allowedHere = allowed == ANY_CHILD
                             ? isOneOf(marker, {CP_CUSTOM_RENDERING, CP_BEAM, CP_GATE, CP_LASER, CP_LOB, CP_PROJECTOR})
                           : allowed == PLATFORM_CHILDREN
                             ? isOneOf(marker, {CP_CUSTOM_RENDERING, CP_BEAM, CP_LASER, CP_LOB, CP_PROJECTOR})
                             : isOneOf(marker, {CP_GATE, CP_PROJECTOR});
  if (!allowedHere)
    return fail_("a record \"" + utf8(marker.left(64)) + "\" where it cannot stand");
  if (marker == QLatin1String(CP_CUSTOM_RENDERING))
    return pasteCustomRendering_(host);
  if (marker == QLatin1String(CP_BEAM))
    return pasteBeam_(host);
  if (marker == QLatin1String(CP_GATE))
    return pasteGate_(host);
  if (marker == QLatin1String(CP_LASER))
    return pasteLaser_(host);
  if (marker == QLatin1String(CP_LOB))
    return pasteLob_(host);
  return pasteProjector_(host);
}

int EntityPayloadReader::pasteChildren_(unsigned long host, ChildKinds allowed)
{
  if (expectMarker_(CP_CHILDREN) != 0)
    return 1;
  for (;;)
  {
    QString marker;
    if (!stream_.readText(marker))
      return streamFailed_();
    if (marker == QLatin1String(CP_DEFINITION_END))
      return 0;
    if (pasteRecord_(marker, host, allowed) != 0 || expectMarker_(CP_DEFINITION_END) != 0)
      return 1;
  }
}

int EntityPayloadReader::pastePlatform_()
{
  PIData::PIPlatformHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUtf8(header.iconFile) || !stream_.readUnsignedLong(header.originalId))
    return streamFailed_();
  naming_("platform", header.name);
  const unsigned long id = target_.createPlatform(header);
  if (pasteEntity_(id) != 0)
    return 1;
  return pasteChildren_(id, PLATFORM_CHILDREN);
}

int EntityPayloadReader::pasteBeam_(unsigned long host)
{
  PIData::PIBeamHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUnsignedLong(header.originalId) || !stream_.readInt(header.beamType) ||
      !stream_.readDouble(header.horizontalBeamWidth) || !stream_.readDouble(header.verticalBeamWidth) ||
      !stream_.readDouble(header.azimuthOffset) || !stream_.readDouble(header.elevationOffset) ||
      !stream_.readBool(header.flag) || !stream_.readUnsignedLong(header.targetId))
    return streamFailed_();
  naming_("beam", header.name);
  const unsigned long id = target_.createBeam(host, header);
  if (pasteEntity_(id) != 0)
    return 1;
  return pasteChildren_(id, BEAM_CHILDREN);
}

int EntityPayloadReader::pasteGate_(unsigned long host)
{
  PIData::PIGateHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUnsignedLong(header.originalId) || !stream_.readInt(header.gateType))
    return streamFailed_();
  naming_("gate", header.name);
  return pasteEntity_(target_.createGate(host, header));
}

int EntityPayloadReader::pasteLaser_(unsigned long host)
{
  int system = 0;
  PIData::PILaserHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readBool(header.relative) || !stream_.readInt(system) ||
      !stream_.readUnsignedLong(header.originalId))
    return streamFailed_();
  header.frame.coordinateSystem = static_cast<PICoordSystem_t>(system);
  naming_("laser", header.name);
  return pasteEntity_(target_.createLaser(host, header));
}

int EntityPayloadReader::pasteLob_(unsigned long host)
{
  PIData::PILobHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUnsignedLong(header.originalId) || !stream_.readInt(header.lobType))
    return streamFailed_();
  naming_("LOB group", header.name);
  return pasteEntity_(target_.createLob(host, header));
}

int EntityPayloadReader::pasteProjector_(unsigned long host)
{
  PIData::PIProjectorHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUnsignedLong(header.originalId))
    return streamFailed_();
  naming_("projector", header.name);
  return pasteEntity_(target_.createProjector(host, header));
}

int EntityPayloadReader::pasteCustomRendering_(unsigned long host)
{
  PIData::PICustomRenderingHeader header;
  if (!stream_.readUtf8(header.name) || !stream_.readUtf8(header.renderer) || !stream_.readUnsignedLong(header.originalId))
    return streamFailed_();
  naming_("custom rendering", header.name);
  return pasteEntity_(target_.createCustomRendering(host, header));
}

int EntityPayloadReader::pasteEntity_(unsigned long id)
{
  if (id == 0)
    return fail_("the host could not make the entity");
  target_.openTable(id, PasteTarget::Table::OWN);
  table_ = "its data";
  if (pasteDataSource_() != 0)
    return 1;
  const std::tuple<const char*, PasteTarget::Table, const char*> sections[] = {
    {CP_CATEGORY_DATA, PasteTarget::Table::CATEGORY, "its category data"},
    {CP_GENERIC_DATA, PasteTarget::Table::GENERIC, "its generic data"}};
  for (const auto& [marker, table, title] : sections)
  {
    if (expectMarker_(marker) != 0)
      return 1;
    target_.openTable(id, table);
    table_ = title;
    if (pasteDataSource_() != 0 || expectMarker_(CP_DEFINITION_END) != 0)
      return 1;
  }
  unsigned long tables = 0;
  if (expectMarker_(CP_DATA_TABLES) != 0)
    return 1;
  if (!stream_.readUnsignedLong(tables))
    return streamFailed_();
  // Each table takes bytes of its own, so a false count ends at the payload's end.
  for (unsigned long i = 0; i < tables; ++i)
  {
    if (expectMarker_(CP_DATA_TABLE) != 0 || pasteTable_(id) != 0 || expectMarker_(CP_DEFINITION_END) != 0)
      return 1;
  }
  return expectMarker_(CP_DEFINITION_END);
}

int EntityPayloadReader::pasteDataSource_()
{
  int rows = 0;
  int columns = 0;
  if (!stream_.readInt(rows) || !stream_.readInt(columns))
    return streamFailed_();
  if (rows < 0 || columns < 1)
    return fail_("a table of " + std::to_string(rows) + " rows and " + std::to_string(columns) + " columns");
  for (int row = 0; row < rows; ++row)
  {
    target_.addRow(row);
    for (int column = 0; column < columns; ++column)
    {
      QVariant cell;
      if (!stream_.read(cell))
        return streamFailed_();
      // A table is always followed by a marker, so a cell that ends the payload is a cut one.
      if (stream_.atEnd())
        return fail_("the payload ends inside a table");
      if (cell.userType() == QMetaType::QVariantList)
      {
        const QVariantList forms = cell.toList();
        if (forms.size() != 2)
          return fail_("a cell of " + std::to_string(forms.size()) + " forms where two belong");
        cell = forms[sameProcess_ ? 1 : 0];
      }
      if (target_.setCell(row, column, cell) != 0)
        return fail_(entity_ + ", " + table_ + ": row " + std::to_string(row + 1) + ", column " +
                     std::to_string(column + 1) + " holds a value the entity does not take");
    }
  }
  if (rows > 0)
    target_.commit();
  return 0;
}

int EntityPayloadReader::skipDataSource_()
{
  int rows = 0;
  int columns = 0;
  if (!stream_.readInt(rows) || !stream_.readInt(columns))
    return streamFailed_();
  if (rows < 0 || columns < 1)
    return fail_("a table of " + std::to_string(rows) + " rows and " + std::to_string(columns) + " columns");
  QVariant cell;
  for (long long cells = static_cast<long long>(rows) * columns; cells > 0; --cells)
  {
    if (!stream_.read(cell))
      return streamFailed_();
  }
  return 0;
}

int EntityPayloadReader::pasteTable_(unsigned long id)
{
  std::string name;
  unsigned long count = 0;
  if (!stream_.readUtf8(name) || expectMarker_(CP_COLUMNS) != 0 || !stream_.readUnsignedLong(count))
    return streamFailed_();
  std::vector<PasteTarget::Column> columns;
  for (unsigned long i = 0; i < count; ++i)
  {
    PasteTarget::Column column;
    int type = 0;
    int units = 0;
    if (!stream_.readUtf8(column.name) || !stream_.readInt(type) || !stream_.readInt(units))
      return streamFailed_();
    if (type < UTILS::VT_UNKNOWN || type > MOST_COLUMN_TYPE)
      return fail_("a table column of storage type " + std::to_string(type));
    column.type = static_cast<UTILS::VariableType_t>(type);
    column.units = static_cast<UTILS::UnitType_t>(units);
    // The first column is the table's time, which every table has of itself.
    if (i > 0)
      columns.push_back(column);
  }
  if (expectMarker_(CP_DEFINITION_END) != 0)
    return 1;
  if (columns.empty())
    return skipDataSource_();
  table_ = "its data table \"" + name.substr(0, 64) + "\"";
  if (!target_.openDataTable(id, name, columns))
    return fail_("the host could not make " + table_.substr(4));
  return pasteDataSource_();
}

} // namespace QtSep
