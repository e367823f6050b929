#include "datasources/DataSource.h"

#include "host/PIDataEntities.h"
#include "host/PIDataScenario.h"
#include "host/PIKELVOR.h"
#include "kelCore/Angle.h"
#include "kelCore/StringUtils.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "plugin/ActionUtilities.h"
#include "units/Units.h"
#include "utils/StringUtils.h"

#include <QMetaType>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace QtSep
{

namespace
{

constexpr double TOLERANCE = 1e-6;
constexpr double STATIC_TIME = -1.0;

/// Empty text clears an optional value. @return true when it did
bool clearedByEmptyText(const std::string& text, bool& valid, bool& dirty)
{
  if (!text.empty())
    return false;
  valid = false;
  dirty = true;
  return true;
}

/// A null variant clears an optional value; one of the given type is taken. @return the status
template <typename T>
int setTyped(const QVariant& value, int type, T& out, bool& valid, bool& dirty)
{
  if (value.isNull())
  {
    valid = false;
    dirty = true;
    return 0;
  }
  if (value.userType() != type)
    return 1;
  out = value.value<T>();
  valid = true;
  dirty = true;
  return 0;
}

std::string lowerCase(std::string text)
{
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

} // namespace

int DataSource::setDouble_(const std::string& text, double& out, bool& valid, bool& dirty, const kelCore::Units& from,
                           const kelCore::Units& to) const
{
  if (clearedByEmptyText(text, valid, dirty))
    return 0;
  double number = 0.0;
  if (!kelCore::isValidNumber(text, number, true))
    return 1;
  out = from.convertTo(to, number);
  valid = true;
  dirty = true;
  return 0;
}

int DataSource::setColor_(const std::string& text, unsigned int& out, bool& valid, bool& dirty) const
{
  if (clearedByEmptyText(text, valid, dirty))
    return 0;
  out = UTILS::stringConvertHexToUInt(text);
  valid = true;
  dirty = true;
  return 0;
}

int DataSource::setBoolean_(const std::string& text, bool& out, bool& valid, bool& dirty) const
{
  if (clearedByEmptyText(text, valid, dirty))
    return 0;
  out = kelCore::stringIsTrue(text);
  valid = true;
  dirty = true;
  return 0;
}

int DataSource::setInteger_(const std::string& text, int& out, bool& valid, bool& dirty) const
{
  if (clearedByEmptyText(text, valid, dirty))
    return 0;
  std::int32_t number = 0;
  if (!kelCore::isValidNumber(text, number, true))
    return 1;
  out = number;
  valid = true;
  dirty = true;
  return 0;
}

const char* const DataSource::NO_TARGET_TEXT = "None";

namespace
{

constexpr qulonglong MOST_EXACT_ID = 1ULL << 53;

} // namespace

int DataSource::setTarget_(const std::string& text, unsigned long& out, bool& valid, bool& dirty) const
{
  if (clearedByEmptyText(text, valid, dirty))
    return 0;
  // "None" is how the table shows no target, so it reads back as none unless a platform has that name.
  const unsigned long target = text == "0" ? 0UL : static_cast<unsigned long>(PIData::findPlatform(text));
  if (target == 0 && text != "0" && text != NO_TARGET_TEXT)
    return 1;
  out = target;
  valid = true;
  dirty = true;
  return 0;
}

int DataSource::setTime_(const std::string& text, bool allowStatic, double& out, bool& dirty) const
{
  if (allowStatic)
  {
    double number = 0.0;
    if ((kelCore::isValidNumber(text, number, true) && number == STATIC_TIME) || lowerCase(text) == "static")
    {
      out = STATIC_TIME;
      dirty = true;
      return 0;
    }
  }
  const int year = PIData::getReferenceYear();
  kelCore::TimeStamp stamp;
  if (kelCore::TimeFormatterRegistry().fromString(text, stamp, year) != 0)
    return 1;
  out = stamp.secondsSinceRefYear(year).Double();
  dirty = true;
  return 0;
}

int DataSource::setTime_(const QVariant& value, bool allowStatic, double& out, bool& dirty) const
{
  if (value.userType() != QMetaType::Double)
    return 1;
  const double time = value.toDouble();
  // A time that is no number would break the order of the host's series.
  if (!std::isfinite(time))
    return 1;
  if (time < 0.0)
  {
    if (!allowStatic)
      return 1;
    out = STATIC_TIME;
  }
  else
    out = time;
  dirty = true;
  return 0;
}

int DataSource::setDouble_(const QVariant& value, double& out, bool& valid, bool& dirty) const
{
  return setTyped(value, QMetaType::Double, out, valid, dirty);
}

int DataSource::setColor_(const QVariant& value, unsigned int& out, bool& valid, bool& dirty) const
{
  return setTyped(value, QMetaType::UInt, out, valid, dirty);
}

int DataSource::setBoolean_(const QVariant& value, bool& out, bool& valid, bool& dirty) const
{
  return setTyped(value, QMetaType::Bool, out, valid, dirty);
}

int DataSource::setInteger_(const QVariant& value, int& out, bool& valid, bool& dirty) const
{
  return setTyped(value, QMetaType::Int, out, valid, dirty);
}

int DataSource::setTarget_(const QVariant& value, unsigned long& out, bool& valid, bool& dirty) const
{
  qulonglong target = 0;
  // Ids are kept beside the other cells as doubles, exact to 2^53; no host numbers past that.
  if (value.userType() == QMetaType::ULongLong && value.toULongLong() > MOST_EXACT_ID)
    return 1;
  const int status = setTyped(value, QMetaType::ULongLong, target, valid, dirty);
  if (status == 0 && valid)
    out = static_cast<unsigned long>(target);
  return status;
}

bool DataSource::areEqual_(bool validA, double a, bool validB, double b)
{
  if (validA != validB)
    return false;
  return !validA || std::fabs(a - b) < TOLERANCE;
}

bool DataSource::areAnglesEqual_(bool validA, double a, bool validB, double b)
{
  if (validA != validB)
    return false;
  return !validA || kelCore::areAnglesEqual(a, b, TOLERANCE);
}

bool DataSource::areEqual_(bool validA, unsigned int a, bool validB, unsigned int b)
{
  return validA == validB && (!validA || a == b);
}

bool DataSource::areEqual_(bool validA, unsigned long a, bool validB, unsigned long b)
{
  return validA == validB && (!validA || a == b);
}

bool DataSource::areEqual_(bool validA, bool a, bool validB, bool b)
{
  return validA == validB && (!validA || a == b);
}

bool DataSource::hasDirtyCell_() const
{
  for (int row = 0; row < rowCount(); ++row)
  {
    for (int column = 0; column < columnCount(); ++column)
    {
      if (isDirty(row, column))
        return true;
    }
  }
  return false;
}

std::string DataSource::nameFromId_(unsigned long id, PIScenarioObjectType_t type)
{
  std::string name;
  return readEntityHeaderName(id, type, name) ? name : std::string("N/A");
}

std::string DataSource::nameOrAliasFromId_(unsigned long id, PIScenarioObjectType_t type)
{
  if (PIKELVOR::getUseAlias(id))
  {
    const std::string alias = PIData::getObjectAlias(id);
    if (!alias.empty())
      return alias;
  }
  return nameFromId_(id, type);
}

} // namespace QtSep
