#include "actions/AddEntityAction.h"

#include "actions/OptionDialog.h"
#include "host/PIData.h"
#include "host/PIDataTables.h"
#include "plugin/ActionUtilities.h"

#include <QAction>

namespace QtSep
{

const char* const AddEntityAction::RENDERING_TABLE = "Custom Rendering";

namespace
{

const double FIVE_DEGREES = 0.0872664626;

/// One column of a custom rendering's table.
struct Column
{
  const char* name;
  UTILS::VariableType_t type;
  UTILS::UnitType_t units;
};

const Column SHAPE = {"Shape", UTILS::VT_STRING, UTILS::UNITS_NONE};
const Column NAME = {"Name", UTILS::VT_STRING, UTILS::UNITS_NONE};
const Column ORIGINAL_ID = {"Original ID", UTILS::VT_UINT64, UTILS::UNITS_NONE};

Column angle(const char* name) { return {name, UTILS::VT_DOUBLE, UTILS::UNITS_ANGLE}; }
Column distance(const char* name) { return {name, UTILS::VT_DOUBLE, UTILS::UNITS_DISTANCE}; }

std::vector<Column> position() { return {angle("Latitude"), angle("Longitude"), distance("Altitude")}; }
std::vector<Column> ellipseRelative()
{
  return {angle("Heading"), angle("Pitch"), angle("Roll"), distance("X Size"), distance("Y Size")};
}
std::vector<Column> line() { return {angle("Azimuth"), angle("Elevation"), distance("Range")}; }

std::vector<Column> join(std::vector<Column> a, const std::vector<Column>& b)
{
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

/// The columns of a shape's table, ending with the two uncertainties.
std::vector<Column> columnsOf(int shape)
{
  std::vector<Column> columns;
  switch (shape)
  {
  case AddEntityAction::VARIOUS_SHAPES: columns = join(join({SHAPE}, position()), ellipseRelative()); break;
  case AddEntityAction::CUSTOM_ELLIPSE:
  case AddEntityAction::CUSTOM_RECTANGLE: columns = join(position(), ellipseRelative()); break;
  case AddEntityAction::CUSTOM_ELLIPSOID: columns = join(join(position(), ellipseRelative()), {distance("Z Size")}); break;
  case AddEntityAction::CUSTOM_ELLIPSE_RELATIVE: columns = ellipseRelative(); break;
  case AddEntityAction::CUSTOM_LINE: columns = line(); break;
  case AddEntityAction::CUSTOM_LINE_ABSOLUTE: columns = join(position(), line()); break;
  case AddEntityAction::CUSTOM_LINE_TARGET: columns = {NAME, ORIGINAL_ID}; break;
  default: break;
  }
  return join(columns, {angle("Horizontal Uncertainty"), angle("Vertical Uncertainty")});
}

void addRenderingTable(UniqueID_t id, int shape)
{
  std::vector<std::string> names;
  std::vector<UTILS::VariableType_t> types;
  std::vector<UTILS::UnitType_t> units;
  for (const Column& column : columnsOf(shape))
  {
    names.push_back(column.name);
    types.push_back(column.type);
    units.push_back(column.units);
  }
  long table = 0;
  if (PIData::addDataTable(id, AddEntityAction::RENDERING_TABLE, &names, &types, &table) == 1)
    PIData::setDataTableColumnUnits(table, &units);
}

} // namespace

AddEntityAction::AddEntityAction(QWidget* parent) : parent_(parent)
{
  platform_ = makeAction_("Platform...", &AddEntityAction::addPlatform_);
  beam_ = makeAction_("Beam...", &AddEntityAction::addBeam_);
  gate_ = makeAction_("Gate...", &AddEntityAction::addGate_);
  laser_ = makeAction_("Laser...", &AddEntityAction::addLaser_);
  lob_ = makeAction_("LOB...", &AddEntityAction::addLob_);
  projector_ = makeAction_("Projector...", &AddEntityAction::addProjector_);
  customRendering_ = makeAction_("Custom Rendering...", &AddEntityAction::addCustomRendering_);
}

AddEntityAction::~AddEntityAction() = default;

QAction* AddEntityAction::makeAction_(const char* text, void (AddEntityAction::*slot)())
{
  auto* action = new QAction(text, this);
  connect(action, &QAction::triggered, this, slot);
  return action;
}

void AddEntityAction::menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items)
{
  entities_.clear();
  if (entities.size() != 1)
    return;
  entities_ = entities;
  const EntityInfo& host = entities.front();
  auto* submenu = new SubmenuInfo("Add Entity", WEIGHT);
  std::vector<MenuInfo*>& entries = submenu->items();
  const auto add = [&entries](QAction* action) { entries.push_back(new ActionInfo(action, 0)); };
  add(platform_);
  if (host.id == 0)
    add(customRendering_);
  if (host.type == PI_PLATFORM_TYPE)
  {
    entries.push_back(new Separator(0));
    for (QAction* action : {beam_, laser_, lob_, projector_, customRendering_})
      add(action);
  }
  if (host.type == PI_BEAM_TYPE)
  {
    entries.push_back(new Separator(0));
    add(gate_);
    add(projector_);
  }
  items.push_back(submenu);
}

UniqueID_t AddEntityAction::host_() const
{
  return entities_.empty() ? 0 : entities_.front().id;
}

bool AddEntityAction::ask_(OptionDialog& dialog) const
{
  return !entities_.empty() && dialog.exec() == QDialog::Accepted;
}

void AddEntityAction::added_(UniqueID_t id)
{
  fireChangeCallback(id);
  emit entityAdded(id);
}

bool AddEntityAction::isTargetBeam_(UniqueID_t id)
{
  PIData::PIBeamHeader header;
  return PIData::getHeader(id, &header) == 0 && header.beamType == PIData::PI_BEAM_TARGET;
}

void AddEntityAction::addPlatform_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Platform"), parent_);
  dialog.setName("New_Platform");
  if (!ask_(dialog))
    return;
  PIData::PIPlatformHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.iconFile = "x";
  header.originalId = 0;
  PIData::PIPlatformPoint point;
  point.position = {PIData::getLatitudeOrigin(), PIData::getLongitudeOrigin(), PIData::getAltitudeOrigin()};
  point.frame.coordinateSystem = PI_COORDSYS_LLA;
  point.time = PIData::clockGetBegin();
  const UniqueID_t id = PIData::createPlatform(&header, &point);
  point.time = PIData::clockGetEnd();
  PIData::addDataPoint(id, &point);
  added_(id);
}

void AddEntityAction::addBeam_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Beam"), parent_);
  dialog.setName("New_Beam");
  dialog.setOptions("Type:", {{"Absolute", PIData::PI_BEAM_ABSOLUTE}, {"Body", PIData::PI_BEAM_BODY},
                              {"Target", PIData::PI_BEAM_TARGET}, {"Unknown", PIData::PI_BEAM_UNKNOWN}});
  if (!ask_(dialog))
    return;
  PIData::PIBeamHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.azimuthOffset = 0.0;
  header.elevationOffset = 0.0;
  header.horizontalBeamWidth = FIVE_DEGREES;
  header.verticalBeamWidth = FIVE_DEGREES;
  header.targetId = 0;
  header.beamType = dialog.getOptionNumber();
  header.flag = false;
  header.originalId = 0;
  const PIData::PIBeamPoint point{0.0, 0.0, 0.0, PIData::getEarliestTime(host_())};
  added_(PIData::createBeam(host_(), &header, &point, true));
}

void AddEntityAction::addGate_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Gate"), parent_);
  dialog.setName("New_Gate");
  std::map<QString, int> types = {{"Absolute", PIData::PI_GATE_ABSOLUTE}, {"Body", PIData::PI_GATE_BODY}};
  if (isTargetBeam_(host_()))
    types["Target"] = PIData::PI_GATE_TARGET;
  dialog.setOptions("Type:", types);
  if (!ask_(dialog))
    return;
  PIData::PIGateHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.gateType = dialog.getOptionNumber();
  header.originalId = 0;
  const PIData::PIGatePoint point{0.0, 0.0, -1.0, -1.0, 900.0, 1100.0, 1000.0, PIData::getEarliestTime(host_())};
  added_(PIData::createGate(host_(), &header, &point, true));
}

void AddEntityAction::addLaser_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Laser"), parent_);
  dialog.setName("New_Laser");
  dialog.setOptions("Type:", {{"Absolute", 0}, {"Relative", 1}});
  if (!ask_(dialog))
    return;
  PIData::PILaserHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.frame.latOrigin = PI_INVALID_POINT.x;
  header.frame.lonOrigin = PI_INVALID_POINT.y;
  header.frame.altOrigin = PI_INVALID_POINT.z;
  header.relative = dialog.getOptionNumber() == 1;
  header.originalId = 0;
  const UniqueID_t id = PIData::createLaser(host_(), &header, 0);
  const double start = PIData::getEarliestTime(host_());
  const PIData::PILaserPoint point{0.0, 0.0, 0.0, start};
  PIData::addLaserOriDataPoint(id, &point);
  PIData::setStatus(id, PI_VISIBILITY_ON, start);
  PIData::addLaserMaxRangeDataPoint(id, start, 10000.0);
  added_(id);
}

void AddEntityAction::addLob_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add LOB Group"), parent_);
  dialog.setName("New_LOBGroup");
  dialog.setOptions("Type:", {{"Absolute", PIData::PI_LOB_ABSOLUTE}, {"Relative", PIData::PI_LOB_RELATIVE}});
  if (!ask_(dialog))
    return;
  PIData::PILobHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.originalId = 0;
  header.lobType = dialog.getOptionNumber();
  const UniqueID_t id = PIData::createLob(host_(), &header);
  const PIData::PILobPoint point{0.0, 0.0, 1000.0, PIData::getEarliestTime(host_())};
  PIData::addDataPoint(id, &point);
  added_(id);
}

void AddEntityAction::addProjector_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Projector"), parent_);
  dialog.setName("New_Projector");
  if (!ask_(dialog))
    return;
  PIData::PIProjectorHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.originalId = 0;
  const UniqueID_t id = PIData::createProjector(host_(), &header);
  const double start = PIData::getEarliestTime(host_());
  PIData::setStatus(id, PI_VISIBILITY_ON, start);
  PIData::addProjectorFOV(id, start, 30.0);
  added_(id);
}

void AddEntityAction::addCustomRendering_()
{
  if (entities_.empty())
    return;
  OptionDialog dialog(tr("Add Custom Rendering"), parent_);
  dialog.setName("New_Custom_Rendering");
  dialog.setOptions("Renderer:", {{"Various Shapes", VARIOUS_SHAPES},
                                  {"Custom Ellipse", CUSTOM_ELLIPSE},
                                  {"Custom Rectangle", CUSTOM_RECTANGLE},
                                  {"Custom Ellipsoid", CUSTOM_ELLIPSOID},
                                  {"Custom Ellipse Relative", CUSTOM_ELLIPSE_RELATIVE},
                                  {"Custom Line", CUSTOM_LINE},
                                  {"Custom Line Absolute", CUSTOM_LINE_ABSOLUTE},
                                  {"Custom Line Target", CUSTOM_LINE_TARGET}});
  if (!ask_(dialog))
    return;
  PIData::PICustomRenderingHeader header;
  header.name = dialog.getName().toUtf8().toStdString();
  header.renderer = dialog.getOptionString().toUtf8().toStdString();
  header.originalId = 0;
  const UniqueID_t id = PIData::createCustomRendering(host_(), &header);
  addRenderingTable(id, dialog.getOptionNumber());
  added_(id);
}

} // namespace QtSep
