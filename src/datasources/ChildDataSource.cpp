#include "datasources/ChildDataSource.h"

#include "datasources/RowRules.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "kelCore/StringUtils.h"
#include "units/UnitContext.h"
#include "units/UnitContextFormatter.h"
#include "units/Units.h"

#include <QVariantList>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <type_traits>

namespace QtSep
{

namespace
{

constexpr double TOLERANCE = 1e-6;
constexpr int MOST_STIPPLE = 0xFFFF;

/// Reads a 16-bit line pattern: hexadecimal with "0x", else decimal. @return false when it is none
bool parseStipple(const std::string& text, double& out)
{
  const std::string trimmed = kelCore::trim(text);
  if (trimmed.empty())
    return false;
  char* end = nullptr;
  const bool hex = trimmed.size() > 2 && trimmed[0] == '0' && (trimmed[1] == 'x' || trimmed[1] == 'X');
  const unsigned long long value = std::strtoull(trimmed.c_str(), &end, hex ? 16 : 10);
  if (end == trimmed.c_str() || *end != '\0' || trimmed[0] == '-' || value > 0xFFFFull)
    return false;
  out = static_cast<double>(value);
  return true;
}

std::string stippleText(double value)
{
  std::ostringstream text;
  text << "0x" << std::hex << std::uppercase << static_cast<unsigned int>(value);
  return text.str();
}

} // namespace

ChildDataSource::ChildDataSource(const kelCore::UnitContextFormatter& formatter, std::vector<ColumnLayout> columns,
                                 bool lastRowStays, QObject* parent)
  : QObject(parent), formatter_(formatter), columns_(std::move(columns)), lastRowStays_(lastRowStays)
{
}

ChildDataSource::~ChildDataSource() = default;

const ChildDataSource::ColumnLayout* ChildDataSource::layout_(int column) const
{
  return column >= 1 && column < columnCount() ? &columns_[column - 1] : nullptr;
}

int ChildDataSource::firstColumnOf_(int series) const
{
  for (std::size_t i = 0; i < columns_.size(); ++i)
  {
    if (columns_[i].series == series)
      return static_cast<int>(i);
  }
  return -1;
}

void ChildDataSource::setUniqueId(unsigned long id, bool load)
{
  rows_.clear();
  dirty_ = false;
  id_ = id;
  readHeader_(id);
  if (!load || id == 0)
    return;
  std::vector<Item> items;
  readSeries_(id, items);
  // One row a distinct time, the series merged in time order.
  std::stable_sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.time < b.time; });
  for (const Item& item : items)
  {
    if (rows_.empty() || rows_.back().asRead.time != item.time)
    {
      Values values;
      values.time = item.time;
      rows_.emplace_back(values);
    }
    Values& row = rows_.back().asRead;
    const int first = firstColumnOf_(item.series);
    for (int i = 0; first >= 0 && first + i < static_cast<int>(columns_.size()) && columns_[first + i].series == item.series; ++i)
      row.cells[first + i] = item.values[i];
    row.valid |= static_cast<std::uint16_t>(1U << item.series);
    rows_.back().edited = row;
  }
}

QVariant ChildDataSource::data(int row, int column, Role role) const
{
  if (!inRange_(row))
    return QVariant();
  const Values& values = rows_[row].edited;
  if (column == 0)
    return role == Role::Raw ? QVariant(values.time) : QVariant(QString::fromStdString(formatter_.formatTime(values.time)));
  const ColumnLayout* layout = layout_(column);
  if (!layout || !values.has(layout->series))
    return QVariant();
  const double value = values.cells[column - 1];
  return role == Role::Raw ? raw_(*layout, value) : display_(*layout, value);
}

QVariant ChildDataSource::display_(const ColumnLayout& layout, double value) const
{
  switch (layout.kind)
  {
  case Kind::ANGLE: return QString::fromStdString(formatter_.formatAngle(value, kelCore::AngleExtents::ALL));
  case Kind::DISTANCE: return QString::fromStdString(formatter_.formatDistance(value));
  case Kind::RANGE:
    // The host's marker for no range stays recognisable.
    return value < 0.0 ? QString("-1.0") : QString::fromStdString(formatter_.formatDistance(value));
  case Kind::COLOR: {
    const auto rgba = static_cast<unsigned int>(value);
    return QString::fromStdString(
      formatter_.formatRGBA((rgba >> 24) & 0xFF, (rgba >> 16) & 0xFF, (rgba >> 8) & 0xFF, rgba & 0xFF));
  }
  case Kind::STATE: return QString(value != 0.0 ? "On" : "Off");
  case Kind::TARGET: return raw_(layout, value).toList().front();
  case Kind::INTEGER: return QString::number(static_cast<long long>(value));
  case Kind::STIPPLE: return QString::fromStdString(stippleText(value));
  }
  return QVariant();
}

QVariant ChildDataSource::raw_(const ColumnLayout& layout, double value) const
{
  switch (layout.kind)
  {
  case Kind::COLOR: return QVariant(static_cast<unsigned int>(value));
  case Kind::STATE: return QVariant(value != 0.0);
  case Kind::TARGET: {
    // The name and the id, as a copy of the entity carries its target.
    const auto target = static_cast<unsigned long>(value);
    const QString name =
      target == 0 ? QString(NO_TARGET_TEXT) : QString::fromStdString(nameOrAliasFromId_(target, PI_PLATFORM_TYPE));
    return QVariantList{name, QVariant(static_cast<qulonglong>(target))};
  }
  case Kind::INTEGER:
  case Kind::STIPPLE: return QVariant(static_cast<int>(value));
  default: return QVariant(value);
  }
}

std::string ChildDataSource::columnName(int column) const
{
  if (column == 0)
    return "Time";
  const ColumnLayout* layout = layout_(column);
  if (!layout)
    return std::string();
  const kelCore::UnitContext& units = formatter_.unitContext();
  switch (layout->kind)
  {
  case Kind::ANGLE: return std::string(layout->title) + " (" + units.angleUnits().abbreviation() + ")";
  case Kind::DISTANCE:
  case Kind::RANGE: return std::string(layout->title) + " (" + units.distanceUnits().abbreviation() + ")";
  default: return layout->title;
  }
}

bool ChildDataSource::canDeleteRow() const { return rowCount() > (lastRowStays_ ? 1 : 0); }

bool ChildDataSource::isColumnEditable(int column) const
{
  return column == 0 || (layout_(column) && isCellEditable_(column));
}

bool ChildDataSource::isDirty(int row, int column) const
{
  if (!inRange_(row))
    return false;
  const Values& read = rows_[row].asRead;
  const Values& edited = rows_[row].edited;
  if (column == 0)
    return !(std::fabs(read.time - edited.time) < TOLERANCE);
  const ColumnLayout* layout = layout_(column);
  if (!layout)
    return false;
  const bool validRead = read.has(layout->series);
  const bool validEdited = edited.has(layout->series);
  const double a = read.cells[column - 1];
  const double b = edited.cells[column - 1];
  switch (layout->kind)
  {
  case Kind::ANGLE: return !areAnglesEqual_(validRead, a, validEdited, b);
  case Kind::DISTANCE:
  case Kind::RANGE: return !areEqual_(validRead, a, validEdited, b);
  default: return validRead != validEdited || (validRead && a != b);
  }
}

void ChildDataSource::setSeriesValid_(Values& row, int series, bool valid) const
{
  const bool was = row.has(series);
  if (valid && !was)
  {
    for (std::size_t i = 0; i < columns_.size(); ++i)
    {
      if (columns_[i].series == series)
        row.cells[i] = 0.0;
    }
  }
  if (valid)
    row.valid |= static_cast<std::uint16_t>(1U << series);
  else
    row.valid &= static_cast<std::uint16_t>(~(1U << series));
}

int ChildDataSource::setData(int row, int column, const QVariant& value)
{
  if (!inRange_(row))
    return 1;
  Values& edited = rows_[row].edited;
  if (column == 0)
  {
    // A time typed in is never static and never before the reference year; a pasted one is
    // as the host stored it, static items of a static host's children included.
    double time = edited.time;
    bool changed = false;
    const bool typedIn = value.userType() == QMetaType::QString;
    const int status = typedIn ? setTime_(value.toString().toUtf8().toStdString(), false, time, changed)
                               : setTime_(value, true, time, changed);
    if (status != 0 || (typedIn && time < 0.0))
      return 1;
    edited.time = time;
    dirty_ = dirty_ || changed;
    return 0;
  }
  const ColumnLayout* layout = layout_(column);
  if (!layout)
    return 1;
  if (value.userType() == QMetaType::QString)
    return setCell_(edited, column - 1, *layout, value.toString().toUtf8().toStdString());
  return setCell_(edited, column - 1, *layout, value);
}

template <typename Input>
int ChildDataSource::setCell_(Values& row, int cell, const ColumnLayout& layout, const Input& input)
{
  // Text comes from the table, in the user's units; a typed value comes from a paste, as stored.
  constexpr bool TEXT = std::is_same_v<Input, std::string>;
  bool valid = row.has(layout.series);
  int status = 1;
  double number = 0.0;
  const auto into = [&](auto typed, auto set) {
    status = set(typed);
    number = static_cast<double>(typed);
  };
  switch (layout.kind)
  {
  case Kind::COLOR: into(0U, [&](unsigned int& v) { return setColor_(input, v, valid, dirty_); }); break;
  case Kind::STATE: into(false, [&](bool& v) { return setBoolean_(input, v, valid, dirty_); }); break;
  case Kind::TARGET: into(0UL, [&](unsigned long& v) { return setTarget_(input, v, valid, dirty_); }); break;
  case Kind::INTEGER: into(0, [&](int& v) { return setInteger_(input, v, valid, dirty_); }); break;
  case Kind::STIPPLE:
    if constexpr (TEXT)
      status = setStipple_(input, number, valid);
    else
      into(0, [&](int& v) {
        // A line pattern has sixteen bits; a pasted one beyond them is refused, as typed text is.
        const bool fits = !input.isValid() || (input.userType() == QMetaType::Int && input.toInt() >= 0 &&
                                               input.toInt() <= MOST_STIPPLE);
        return fits ? setInteger_(input, v, valid, dirty_) : 1;
      });
    break;
  default:
    if constexpr (TEXT)
    {
      const kelCore::UnitContext& units = formatter_.unitContext();
      const bool angle = layout.kind == Kind::ANGLE;
      status = setDouble_(input, number, valid, dirty_, angle ? units.angleUnits() : units.distanceUnits(),
                          angle ? kelCore::Units::RADIANS : kelCore::Units::METERS);
    }
    else
      status = setDouble_(input, number, valid, dirty_);
    break;
  }
  if (status != 0)
    return 1;
  setSeriesValid_(row, layout.series, valid);
  if (valid)
    row.cells[cell] = number;
  return 0;
}

int ChildDataSource::setStipple_(const std::string& text, double& out, bool& valid)
{
  if (text.empty())
    valid = false;
  else if (parseStipple(text, out))
    valid = true;
  else
    return 1;
  dirty_ = true;
  return 0;
}

int ChildDataSource::revert(int row, int column)
{
  if (!isDirty(row, column))
    return 1;
  Entry& entry = rows_[row];
  if (column == 0)
    entry.edited.time = entry.asRead.time;
  else
  {
    const int series = layout_(column)->series;
    const bool validRead = entry.asRead.has(series);
    setSeriesValid_(entry.edited, series, validRead);
    entry.edited.cells[column - 1] = entry.asRead.cells[column - 1];
  }
  // Added and deleted rows leave no dirty cell, as for platform points.
  if (!hasDirtyCell_())
    dirty_ = false;
  return 0;
}

void ChildDataSource::deleteRows(const std::vector<int>& rows)
{
  if (RowRules::deleteRows(rows_, rows, [](const Entry&) {}))
    dirty_ = true;
}

int ChildDataSource::moveRow(int from, int to) { return RowRules::moveRow(rows_, from, to); }

int ChildDataSource::getCopyDestination(int row) const { return RowRules::copyDestination(rows_, row); }

void ChildDataSource::copyRow(int row, int destination)
{
  dirty_ = true;
  if (rows_.empty())
  {
    // A first row at the clock's begin, with no series yet: values are typed in.
    Values first;
    first.time = std::max(0.0, PIData::clockGetBegin());
    rows_.emplace_back(first, true);
    return;
  }
  const Values& source = rows_[inRange_(row) ? row : rowCount() - 1].edited;
  rows_.insert(rows_.begin() + std::clamp(destination, 0, rowCount()), Entry(source, true));
}

void ChildDataSource::flush_(unsigned long id) const { PIData::flushEntityData(id, PIData::FLUSH_POINTS_AND_COMMANDS); }

void ChildDataSource::commitChanges(bool refresh)
{
  if (id_ == 0)
    return;
  flush_(id_);
  for (const Entry& entry : rows_)
    writeRow_(id_, entry.edited);
  if (!refresh)
    return;
  PIData::clockAutoConfigureBeginEnd();
  setUniqueId(id_, true);
}

} // namespace QtSep
