#include "units/UnitContextFormatter.h"

#include "kelCore/StringUtils.h"

#include <cmath>

namespace kelCore
{

namespace
{

struct Marks
{
  const char* degree;
  const char* minute;
  const char* second;
};

Marks marksOf(DegreeSymbolFormat symbol)
{
  switch (symbol)
  {
  case DegreeSymbolFormat::UNICODE:
    return {"\u00b0", "'", "\""};
  case DegreeSymbolFormat::ASCII:
    return {"", "'", "\""};
  case DegreeSymbolFormat::NONE:
    break;
  }
  return {"", "", ""};
}

const Units& unitsOfGeodeticFormat(GeodeticFormat format)
{
  switch (format)
  {
  case GeodeticFormat::BAM:
    return Units::BAM;
  case GeodeticFormat::MIL:
    return Units::MIL;
  case GeodeticFormat::MILLIRADIANS:
    return Units::MILLIRADIANS;
  default:
    return Units::RADIANS;
  }
}

long long scaleOf(int precision)
{
  long long scale = 1;
  for (int i = 0; i < precision; ++i)
    scale *= 10;
  return scale;
}

// "DD MM.mmm" or "DD MM SS.sss" of a non-negative number of degrees, rounded once at the
// last field so that 59.99995 minutes carries into the degrees.
std::string sexagesimalText(double degrees, int precision, bool withSeconds, const Marks& marks)
{
  const long long scale = scaleOf(precision);
  const double unitsPerDegree = (withSeconds ? 3600.0 : 60.0) * static_cast<double>(scale);
  long long units = std::llround(degrees * unitsPerDegree);
  const long long fraction = units % scale;
  long long whole = units / scale;
  const long long last = whole % 60;
  whole /= 60;
  std::string text;
  if (withSeconds)
  {
    const long long minutes = whole % 60;
    whole /= 60;
    text = std::to_string(whole) + marks.degree + " " + buildString("", static_cast<double>(minutes), 2, 0, "", true) +
           marks.minute + " ";
  }
  else
    text = std::to_string(whole) + marks.degree + " ";
  std::string lastField = buildString("", static_cast<double>(last), 2, 0, "", true);
  if (precision > 0)
    lastField += "." + buildString("", static_cast<double>(fraction), static_cast<std::size_t>(precision), 0, "", true);
  return text + lastField + (withSeconds ? marks.second : marks.minute);
}

bool isAllZeros(const std::string& text)
{
  return text.find_first_of("123456789") == std::string::npos;
}

} // namespace

UnitContextFormatter::UnitContextFormatter(const UnitContext& context) : context_(context) {}

std::string UnitContextFormatter::formatTime(double seconds) const
{
  if (seconds < 0.0)
    return "Static";
  return formatTime(TimeStamp(context_.referenceYear(), seconds));
}

std::string UnitContextFormatter::formatTime(const TimeStamp& stamp) const
{
  return formatters_.toString(context_.timeFormat(), stamp, context_.referenceYear(),
                              static_cast<unsigned short>(std::max(0, context_.timePrecision())));
}

std::string UnitContextFormatter::formatDuration(double seconds) const
{
  return formatters_.toString(context_.durationFormat(), TimeStamp(context_.referenceYear(), seconds),
                              context_.referenceYear(), static_cast<unsigned short>(std::max(0, context_.durationPrecision())));
}

std::string UnitContextFormatter::formatDistance(double meters) const
{
  return formatDouble_(Units::METERS.convertTo(context_.distanceUnits(), meters), context_.distancePrecision());
}

std::string UnitContextFormatter::formatAltitude(double meters) const
{
  return formatDouble_(Units::METERS.convertTo(context_.altitudeUnits(), meters), context_.altitudePrecision());
}

std::string UnitContextFormatter::formatAltitude(const Vec3& lla, const TimeStamp& time, double meters) const
{
  return formatAltitude(rawAltitude(lla, time, meters));
}

std::string UnitContextFormatter::formatSpeed(double metersPerSecond) const
{
  return formatDouble_(Units::METERS_PER_SECOND.convertTo(context_.speedUnits(), metersPerSecond),
                       context_.speedPrecision());
}

std::string UnitContextFormatter::formatDouble(double value) const
{
  return formatDouble_(value, context_.genericPrecision());
}

std::string UnitContextFormatter::formatAngle(double radians, AngleExtents extents, DegreeSymbolFormat symbol) const
{
  const double folded = angFix(radians, extents);
  if (context_.angleUnits() == Units::DEGREES)
    return formatGeodetic_(folded, geodeticPrecision_(context_.anglePrecision(), context_.geodeticFormat()), symbol,
                           nullptr);
  return formatDouble_(Units::RADIANS.convertTo(context_.angleUnits(), folded), context_.anglePrecision());
}

std::string UnitContextFormatter::formatAzimuth(const Vec3& lla, const TimeStamp& time, double radians,
                                                AngleExtents extents, DegreeSymbolFormat symbol) const
{
  return formatAngle(rawAzimuth(lla, time, radians), extents, symbol);
}

std::string UnitContextFormatter::formatLatitude(double radians, DegreeSymbolFormat symbol) const
{
  return formatGeodetic_(angFix(radians, AngleExtents::PI_2),
                         geodeticPrecision_(context_.geodeticPrecision(), context_.geodeticFormat()), symbol, "NS");
}

std::string UnitContextFormatter::formatLongitude(double radians, DegreeSymbolFormat symbol) const
{
  return formatGeodetic_(angFix(radians, AngleExtents::PI),
                         geodeticPrecision_(context_.geodeticPrecision(), context_.geodeticFormat()), symbol, "EW");
}

std::string UnitContextFormatter::formatRGBA(int red, int green, int blue, int alpha) const
{
  return std::to_string(red) + ", " + std::to_string(green) + ", " + std::to_string(blue) + ", " +
         std::to_string(alpha);
}

double UnitContextFormatter::rawAltitude(const Vec3& lla, const TimeStamp& time, double meters) const
{
  return context_.datumConvert()->convertVerticalDatum(lla, time, meters, VerticalDatum::WGS84, context_.verticalDatum(),
                                                        context_.verticalDatumUserOffset());
}

double UnitContextFormatter::rawAzimuth(const Vec3& lla, const TimeStamp& time, double radians) const
{
  return context_.datumConvert()->convertMagneticDatum(lla, time, radians, MagneticVariance::TRUE_NORTH,
                                                        context_.magneticVariance(),
                                                        context_.magneticVarianceUserValue());
}

std::string UnitContextFormatter::formatDouble_(double value, int precision) const
{
  std::string text = buildString("", value, 0, std::max(0, precision));
  if (text.rfind("-0", 0) == 0 && text.find_first_not_of("0.", 1) == std::string::npos)
    text.erase(0, 1);
  return text;
}

std::string UnitContextFormatter::formatGeodetic_(double radians, int precision, DegreeSymbolFormat symbol,
                                                  const char* hemispheres) const
{
  const GeodeticFormat format = context_.geodeticFormat();
  const bool sexagesimal = format == GeodeticFormat::DEGREES_MINUTES || format == GeodeticFormat::DEGREES_MINUTES_SECONDS;
  if (format != GeodeticFormat::DEGREES && !sexagesimal)
    return formatDouble_(Units::RADIANS.convertTo(unitsOfGeodeticFormat(format), radians), precision);

  const Marks marks = marksOf(symbol);
  const double degrees = std::fabs(radians) * 180.0 / M_PI;
  std::string text = sexagesimal
                         ? sexagesimalText(degrees, precision, format == GeodeticFormat::DEGREES_MINUTES_SECONDS, marks)
                         : buildString("", degrees, 0, precision) + marks.degree;
  const bool negative = radians < 0.0 && !isAllZeros(text);
  if (hemispheres)
    return text + " " + hemispheres[negative ? 1 : 0];
  return negative ? "-" + text : text;
}

int UnitContextFormatter::geodeticPrecision_(int precision, GeodeticFormat format)
{
  int result = precision;
  if (format == GeodeticFormat::DEGREES_MINUTES)
    result = precision - 2;
  else if (format == GeodeticFormat::DEGREES_MINUTES_SECONDS)
    result = precision - 4;
  return result < 0 ? 0 : result;
}

} // namespace kelCore
