#include "datasources/PlatformDataSource.h"

#include "datasources/FenceSelectionWidget.h"
#include "datasources/RowRules.h"
#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "kelCore/Angle.h"
#include "kelCore/Coordinate.h"
#include "kelCore/Geodesy.h"
#include "kelCore/StringUtils.h"
#include "units/UnitContext.h"
#include "units/UnitContextFormatter.h"
#include "units/Units.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace QtSep
{

namespace
{

using kelCore::CoordinateSystem;

constexpr double TOLERANCE = 1e-6;
constexpr double STATIC_TIME = -1.0;
constexpr double HALF_PI = 1.5707963267948966;
constexpr double PI = 3.141592653589793;

/// The titles of the columns that change with the system, in column order 1-3, 5-7, 10-12.
struct SystemTitles
{
  const char* position[3];
  const char* orientation[3];
  const char* velocity[3];
};

const SystemTitles& titlesOf(CoordinateSystem system)
{
  static const SystemTitles NED{{"North", "East", "Down"}, {"Yaw", "Pitch", "Roll"}, {"Vel (N)", "Vel (E)", "Vel (D)"}};
  static const SystemTitles NWU{{"North", "West", "Up"}, {"Yaw", "Pitch", "Roll"}, {"Vel (N)", "Vel (W)", "Vel (U)"}};
  static const SystemTitles ENU{{"East", "North", "Up"}, {"Yaw", "Pitch", "Roll"}, {"Vel (E)", "Vel (N)", "Vel (U)"}};
  static const SystemTitles LLA{{"Lat", "Lon", "Alt"}, {"Yaw", "Pitch", "Roll"}, {"Vel (E)", "Vel (N)", "Vel (U)"}};
  static const SystemTitles ECEF{{"X ECEF", "Y ECEF", "Z ECEF"}, {"Psi", "Theta", "Phi"}, {"Vel (X)", "Vel (Y)", "Vel (Z)"}};
  static const SystemTitles ECI{{"X ECI", "Y ECI", "Z ECI"}, {"Psi", "Theta", "Phi"}, {"Vel (X)", "Vel (Y)", "Vel (Z)"}};
  static const SystemTitles XEAST{
    {"X East TP", "Y North TP", "Z Up TP"}, {"Yaw", "Pitch", "Roll"}, {"Vel (E)", "Vel (N)", "Vel (U)"}};
  static const SystemTitles GTP{{"X GTP", "Y GTP", "Z GTP"}, {"Yaw", "Pitch", "Roll"}, {"Vel (X)", "Vel (Y)", "Vel (Z)"}};
  switch (system)
  {
  case CoordinateSystem::NWU: return NWU;
  case CoordinateSystem::ENU: return ENU;
  case CoordinateSystem::LLA: return LLA;
  case CoordinateSystem::ECEF: return ECEF;
  case CoordinateSystem::ECI: return ECI;
  case CoordinateSystem::XEAST: return XEAST;
  case CoordinateSystem::GTP: return GTP;
  default: return NED;
  }
}

bool isSet(const PIPoint& point)
{
  return point.x != PI_INVALID_DOUBLE && point.y != PI_INVALID_DOUBLE && point.z != PI_INVALID_DOUBLE;
}

kelCore::Vec3 vec(const PIPoint& point) { return {point.x, point.y, point.z}; }
PIPoint toPoint(const kelCore::Vec3& v) { return {v.x, v.y, v.z}; }

/// @return the component of a triple that a column of a group of three stands for
double& component(PIPoint& p, int index) { return index == 0 ? p.x : (index == 1 ? p.y : p.z); }
double component(const PIPoint& p, int index) { return index == 0 ? p.x : (index == 1 ? p.y : p.z); }

} // namespace

PlatformDataSource::PlatformDataSource(const kelCore::UnitContextFormatter& formatter,
                                       const kelCore::UnitContext& context, QObject* parent)
  : QObject(parent), formatter_(formatter), context_(context)
{
  PIData::PICoordReferenceFrame frame;
  PIData::getScenarioCoordReferenceFrame(&frame);
  converter_.setReferenceOrigin(frame.latOrigin, frame.lonOrigin, frame.altOrigin);
  converter_.setTangentPlaneOffsets(frame.tangentPlaneXOffset, frame.tangentPlaneYOffset, frame.tangentPlaneAngle);
  eciReferenceTime_ = frame.eciReferenceTime;
  setCoordinateSystem(context_.coordinateSystem());
  fence_ = std::make_unique<FenceSelectionWidget>();
  connect(fence_.get(), &FenceSelectionWidget::selectedTimes, this, &PlatformDataSource::selectedTimes);
}

PlatformDataSource::~PlatformDataSource() = default;

void PlatformDataSource::setCoordinateSystem(kelCore::CoordinateSystem system)
{
  if (system == coordinateSystem_)
    return;
  coordinateSystem_ = system;
  const SystemTitles& titles = titlesOf(system);
  columns_ = {"Time",
              titles.position[0],
              titles.position[1],
              titles.position[2],
              "Calc. Head",
              titles.orientation[0],
              titles.orientation[1],
              titles.orientation[2],
              "Calc. Speed",
              "Speed",
              titles.velocity[0],
              titles.velocity[1],
              titles.velocity[2]};
}

void PlatformDataSource::applyUnitsChange() { setCoordinateSystem(context_.coordinateSystem()); }

void PlatformDataSource::setUniqueId(unsigned long id, bool load)
{
  rows_.clear();
  if (!load)
  {
    id_ = id;
    dirty_ = false;
    return;
  }
  if (id != 0)
  {
    // The platform's own geodetic form, whatever the scenario's frame.
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, 0.0, DBL_MAX, &points, PIData::PICoordReferenceFrame());
    for (const PIData::PIPlatformPoint& read : points)
      rows_.emplace_back(Fix{read.time, read.position, read.orientation, read.velocity});
  }
  id_ = id;
  fence_->setUniqueId(id);
  dirty_ = false;
}

double PlatformDataSource::time(int row) const { return inRange_(row) ? rows_[row].edited.time : 0.0; }

kelCore::Coordinate PlatformDataSource::storedCoordinate_(const Fix& point) const
{
  const double elapsed = point.time < 0.0 ? 0.0 : std::max(0.0, point.time - eciReferenceTime_);
  kelCore::Coordinate stored(CoordinateSystem::LLA, vec(point.position), elapsed);
  if (isSet(point.orientation))
    stored.setOrientation(vec(point.orientation));
  if (isSet(point.velocity))
    stored.setVelocity(vec(point.velocity));
  return stored;
}

void PlatformDataSource::convert_(const Fix& point, kelCore::Coordinate& out) const
{
  converter_.convert(storedCoordinate_(point), out, coordinateSystem_);
}

void PlatformDataSource::convert_(const kelCore::Coordinate& in, Fix& point) const
{
  kelCore::Coordinate out;
  converter_.convert(in, out, CoordinateSystem::LLA);
  point.position = toPoint(out.position());
  // A point without orientation or velocity keeps none until one of them is typed.
  if (out.hasOrientation())
    point.orientation = toPoint(out.orientation());
  if (out.hasVelocity())
    point.velocity = toPoint(out.velocity());
}

bool PlatformDataSource::converted_(const kelCore::Coordinate& coordinate, int column, double& value)
{
  if (column >= POSITION_0 && column <= POSITION_2)
  {
    value = coordinate.position()[column - POSITION_0];
    return true;
  }
  if (column >= ORIENTATION_0 && column <= ORIENTATION_2 && coordinate.hasOrientation())
  {
    value = coordinate.orientation()[column - ORIENTATION_0];
    return true;
  }
  if (column >= VELOCITY_0 && column <= VELOCITY_2 && coordinate.hasVelocity())
  {
    value = coordinate.velocity()[column - VELOCITY_0];
    return true;
  }
  return false;
}

QVariant PlatformDataSource::data(int row, int column, Role role) const
{
  if (!inRange_(row) || column < 0 || column >= columnCount())
    return QVariant();
  const Fix& edited = rows_[row].edited;
  double value = 0.0;
  switch (column)
  {
  case TIME: value = edited.time; break;
  case CALC_HEAD: value = row == 0 ? 0.0 : calculateHeading_(rows_[row - 1].edited, edited); break;
  case CALC_SPEED: value = row == 0 ? 0.0 : calculateSpeed_(rows_[row - 1].edited, edited); break;
  case SPEED:
    if (!isSet(edited.velocity))
      return QVariant();
    value = speed_(edited);
    break;
  default: {
    // Shown as stored, LLA needs no conversion: every visible cell is read at each repaint.
    kelCore::Coordinate shown;
    if (coordinateSystem_ == CoordinateSystem::LLA)
      shown = storedCoordinate_(edited);
    else
      convert_(edited, shown);
    if (!converted_(shown, column, value))
      return QVariant();
  }
  }
  return role == Role::Raw ? QVariant(value) : display_(column, value);
}

QVariant PlatformDataSource::display_(int column, double value) const
{
  const bool lla = coordinateSystem_ == CoordinateSystem::LLA;
  std::string text;
  switch (column)
  {
  case TIME: text = formatter_.formatTime(value); break;
  case POSITION_0: text = lla ? formatter_.formatLatitude(value) : formatter_.formatDistance(value); break;
  case POSITION_1: text = lla ? formatter_.formatLongitude(value) : formatter_.formatDistance(value); break;
  case POSITION_2: text = lla ? formatter_.formatAltitude(value) : formatter_.formatDistance(value); break;
  case CALC_HEAD: text = formatter_.formatAngle(value, kelCore::AngleExtents::TWOPI); break;
  case ORIENTATION_0:
  case ORIENTATION_2: text = formatter_.formatAngle(value, kelCore::AngleExtents::PI); break;
  case ORIENTATION_1: text = formatter_.formatAngle(value, kelCore::AngleExtents::PI_2); break;
  default: text = formatter_.formatSpeed(value); break;
  }
  return QString::fromStdString(text);
}

std::string PlatformDataSource::columnName(int column) const
{
  if (column < 0 || column >= columnCount())
    return std::string();
  if (column == TIME)
    return columns_[column];
  const bool lla = coordinateSystem_ == CoordinateSystem::LLA;
  std::string units;
  if (column == POSITION_0 || column == POSITION_1)
    units = lla ? getGeodeticFormatAbbreviation_(context_.geodeticFormat()) : context_.distanceUnits().abbreviation();
  else if (column == POSITION_2)
    units = lla ? context_.altitudeUnits().abbreviation() : context_.distanceUnits().abbreviation();
  else if (column <= ORIENTATION_2)
    units = context_.angleUnits().abbreviation();
  else
    units = context_.speedUnits().abbreviation();
  return columns_[column] + " (" + units + ")";
}

std::string PlatformDataSource::getGeodeticFormatAbbreviation_(kelCore::GeodeticFormat format)
{
  switch (static_cast<int>(format))
  {
  case 0: return "deg";
  case 1: return "dmd";
  case 2: return "dms";
  case 3: return "rad";
  case 4: return "bam";
  case 5: return "mil";
  case 6: return "mrad";
  default: return "n/a";
  }
}

bool PlatformDataSource::isValid() const
{
  if (rows_.empty())
    return false;
  // A platform of one point must be a static one; a track has no static point.
  if (rows_.size() == 1)
    return rows_.front().edited.time == STATIC_TIME;
  return std::none_of(rows_.begin(), rows_.end(), [](const Entry& e) { return e.edited.time == STATIC_TIME; });
}

bool PlatformDataSource::isDirty(int row, int column) const
{
  if (!inRange_(row))
    return false;
  const Fix& read = rows_[row].asRead;
  const Fix& edited = rows_[row].edited;
  const auto differs = [](double a, double b) { return !(std::fabs(a - b) < TOLERANCE); };
  switch (column)
  {
  case TIME: return differs(read.time, edited.time);
  case POSITION_0:
  case POSITION_1: {
    const int i = column - POSITION_0;
    return !kelCore::areAnglesEqual(component(read.position, i), component(edited.position, i), TOLERANCE);
  }
  case POSITION_2: return differs(read.position.z, edited.position.z);
  case ORIENTATION_0:
  case ORIENTATION_1:
  case ORIENTATION_2: {
    const int i = column - ORIENTATION_0;
    return !kelCore::areAnglesEqual(component(read.orientation, i), component(edited.orientation, i), TOLERANCE);
  }
  case SPEED: return differs(speed_(read), speed_(edited));
  case VELOCITY_0:
  case VELOCITY_1:
  case VELOCITY_2: {
    const int i = column - VELOCITY_0;
    return differs(component(read.velocity, i), component(edited.velocity, i));
  }
  default: return false;
  }
}

int PlatformDataSource::setData(int row, int column, const QVariant& value)
{
  if (!inRange_(row) || column < 0 || column >= columnCount())
    return 1;
  Fix& edited = rows_[row].edited;
  if (value.userType() == QMetaType::Double)
    return setRaw_(edited, column, value.toDouble());
  // A null cell is a value the point lacks, such as an orientation never recorded: a pasted
  // row keeps it unset, as the row it came from had it. A time is never absent.
  if (!value.isValid())
    return column == TIME ? 1 : setRaw_(edited, column, PI_INVALID_DOUBLE);
  if (value.userType() != QMetaType::QString)
    return 1;
  const std::string text = value.toString().toUtf8().toStdString();
  if (column == TIME)
    return setTime_(text, true, edited.time, dirty_);
  kelCore::Coordinate coordinate;
  convert_(edited, coordinate);
  if (setData_(coordinate, edited.orientation, static_cast<Column>(column), text) != 0)
    return 1;
  dirty_ = true;
  convert_(coordinate, edited);
  return 0;
}

int PlatformDataSource::setRaw_(Fix& point, int column, double value) const
{
  // A raw value is in the stored form, whatever the display; the entity's flag stays as it is.
  switch (column)
  {
  case TIME:
    // A time that is no number would break the order of the host's series.
    if (!std::isfinite(value))
      return 1;
    point.time = value;
    break;
  case POSITION_0:
  case POSITION_1:
  case POSITION_2: component(point.position, column - POSITION_0) = value; break;
  case ORIENTATION_0:
  case ORIENTATION_1:
  case ORIENTATION_2: component(point.orientation, column - ORIENTATION_0) = value; break;
  case VELOCITY_0:
  case VELOCITY_1:
  case VELOCITY_2: component(point.velocity, column - VELOCITY_0) = value; break;
  default: break;
  }
  return 0;
}

int PlatformDataSource::setData_(kelCore::Coordinate& coordinate, const PIPoint& orientation, Column column,
                                 const std::string& text) const
{
  const bool lla = coordinateSystem_ == CoordinateSystem::LLA;
  double value = 0.0;
  switch (column)
  {
  case TIME:
  case CALC_HEAD:
  case CALC_SPEED: return 1;
  case POSITION_0:
  case POSITION_1: {
    if (lla)
    {
      const double limit = column == POSITION_0 ? HALF_PI : PI;
      if (kelCore::getAngleFromDegreeString(text, true, value) != 0 || value < -limit || value > limit)
        return 1;
    }
    else if (kelCore::isValidNumber(text, value, true))
      value = context_.distanceUnits().convertTo(kelCore::Units::METERS, value);
    else
      return 1;
    kelCore::Vec3 position = coordinate.position();
    position[column - POSITION_0] = value;
    coordinate.setPosition(position);
    return 0;
  }
  case POSITION_2: {
    if (!kelCore::isValidNumber(text, value, true))
      return 1;
    const kelCore::Units& from = lla ? context_.altitudeUnits() : context_.distanceUnits();
    kelCore::Vec3 position = coordinate.position();
    position.z = from.convertTo(kelCore::Units::METERS, value);
    coordinate.setPosition(position);
    return 0;
  }
  case ORIENTATION_0:
  case ORIENTATION_1:
  case ORIENTATION_2: {
    if (!kelCore::isValidNumber(text, value, true))
      return 1;
    kelCore::Vec3 angles = coordinate.orientation();
    angles[column - ORIENTATION_0] = context_.angleUnits().convertTo(kelCore::Units::RADIANS, value);
    coordinate.setOrientation(angles);
    return 0;
  }
  case SPEED:
  case VELOCITY_0:
  case VELOCITY_1:
  case VELOCITY_2: {
    if (!kelCore::isValidNumber(text, value, true) || (column == SPEED && value < 0.0))
      return 1;
    // The source unit is the angle unit, as speeds have always been read here; convertTo
    // leaves a value of a unit of another family as it is.
    const double metresPerSecond = context_.angleUnits().convertTo(kelCore::Units::METERS_PER_SECOND, value);
    if (column == SPEED)
    {
      // The direction stays, from the point's yaw and pitch; the magnitude changes.
      const double yaw = isSet(orientation) ? orientation.x : 0.0;
      const double pitch = isSet(orientation) ? orientation.y : 0.0;
      coordinate.setVelocity({metresPerSecond * std::sin(yaw) * std::cos(pitch),
                              metresPerSecond * std::cos(yaw) * std::cos(pitch), metresPerSecond * std::sin(pitch)});
      return 0;
    }
    kelCore::Vec3 velocity = coordinate.velocity();
    velocity[column - VELOCITY_0] = metresPerSecond;
    coordinate.setVelocity(velocity);
    return 0;
  }
  default: return 0;
  }
}

int PlatformDataSource::revert(int row, int column)
{
  if (!isDirty(row, column))
    return 1;
  Entry& entry = rows_[row];
  switch (column)
  {
  case TIME: entry.edited.time = entry.asRead.time; break;
  case POSITION_0:
  case POSITION_1:
  case POSITION_2:
    component(entry.edited.position, column - POSITION_0) = component(entry.asRead.position, column - POSITION_0);
    break;
  case ORIENTATION_0:
  case ORIENTATION_1:
  case ORIENTATION_2:
    component(entry.edited.orientation, column - ORIENTATION_0) =
      component(entry.asRead.orientation, column - ORIENTATION_0);
    break;
  case SPEED: entry.edited.velocity = entry.asRead.velocity; break;
  case VELOCITY_0:
  case VELOCITY_1:
  case VELOCITY_2:
    component(entry.edited.velocity, column - VELOCITY_0) = component(entry.asRead.velocity, column - VELOCITY_0);
    break;
  default: return 1;
  }
  // Added and deleted rows leave no dirty cell: reverting the last dirty cell ends the
  // entity's dirty state although rows have changed.
  if (!hasDirtyCell_())
    dirty_ = false;
  return 0;
}

bool PlatformDataSource::isColumnEditable(int column) const
{
  if (column == CALC_HEAD || column == CALC_SPEED)
    return false;
  if (column == SPEED)
    return coordinateSystem_ == CoordinateSystem::LLA;
  return true;
}

void PlatformDataSource::deleteRows(const std::vector<int>& rows)
{
  if (RowRules::deleteRows(rows_, rows, [](const Entry&) {}))
    dirty_ = true;
}

int PlatformDataSource::moveRow(int from, int to) { return RowRules::moveRow(rows_, from, to); }

int PlatformDataSource::getCopyDestination(int row) const { return RowRules::copyDestination(rows_, row); }

void PlatformDataSource::copyRow(int row, int destination)
{
  dirty_ = true;
  if (rows_.empty())
  {
    // The first point of an empty platform: at the scenario's origin, at the clock's begin.
    Fix first;
    first.time = PIData::clockGetBegin();
    first.position = {PIData::getLatitudeOrigin(), PIData::getLongitudeOrigin(),
                      std::max(0.0, PIData::getAltitudeOrigin())};
    first.orientation = {0.0, 0.0, 0.0};
    first.velocity = {0.0, 0.0, 0.0};
    rows_.emplace_back(first, true);
    return;
  }
  const Fix& source = rows_[inRange_(row) ? row : rowCount() - 1].edited;
  rows_.insert(rows_.begin() + std::clamp(destination, 0, rowCount()), Entry(source, true));
}

void PlatformDataSource::commitChanges(bool refresh)
{
  if (id_ == 0)
    return;
  PIData::flushEntityData(id_, PIData::FLUSH_POINTS);
  std::vector<PIData::PIPlatformPoint> points;
  points.reserve(rows_.size());
  for (const Entry& entry : rows_)
  {
    PIData::PIPlatformPoint out;
    out.time = entry.edited.time;
    out.position = entry.edited.position;
    out.orientation = entry.edited.orientation;
    out.velocity = entry.edited.velocity;
    points.push_back(out);
  }
  PIData::addDataPoints(id_, &points);
  if (!refresh)
    return;
  PIData::clockAutoConfigureBeginEnd();
  setUniqueId(id_, true);
}

QWidget* PlatformDataSource::widget() { return fence_.get(); }

bool PlatformDataSource::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  return fence_->handleMouseEvent(type, event);
}

double PlatformDataSource::speed_(const Fix& point)
{
  const PIPoint& v = point.velocity;
  return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

double PlatformDataSource::calculateSpeed_(const Fix& previous, const Fix& current)
{
  kelCore::Vec3 velocity;
  kelCore::calculateVelFromGeodeticPos(vec(current.position), vec(previous.position), current.time - previous.time,
                                       velocity);
  return std::sqrt(velocity.x * velocity.x + velocity.y * velocity.y + velocity.z * velocity.z);
}

double PlatformDataSource::calculateHeading_(const Fix& previous, const Fix& current)
{
  // The direction of travel from the previous point to this one.
  kelCore::Vec3 velocity;
  kelCore::calculateVelFromGeodeticPos(vec(current.position), vec(previous.position), current.time - previous.time,
                                       velocity);
  kelCore::Vec3 angles;
  kelCore::calculateFlightPathAngles(velocity, angles);
  return angles.x;
}

} // namespace QtSep
