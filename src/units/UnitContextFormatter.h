#pragma once

#include "kelCore/Angle.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "units/UnitContext.h"

#include <string>

namespace kelCore
{

/// How the parts of an angle in degrees are marked.
enum class DegreeSymbolFormat
{
  NONE,   ///< "35 30.0000"
  ASCII,  ///< "35 30.0000'"
  UNICODE ///< "35° 30.0000'"
};

/**
 * @brief Turns stored values (seconds, metres, radians, metres per second) into display text
 * in the units, formats and decimals of a unit context. A negative zero never shows.
 */
class UnitContextFormatter
{
public:
  /// @param context the choices to follow; it must outlive the formatter
  explicit UnitContextFormatter(const UnitContext& context);

  /// @return the context followed.
  const UnitContext& unitContext() const { return context_; }

  /// @param seconds since the reference year began @return "Static" for a negative time
  std::string formatTime(double seconds) const;
  /// @return the moment in the context's time format and precision.
  std::string formatTime(const TimeStamp& stamp) const;
  /// @param seconds a span @return it in the context's duration format and precision
  std::string formatDuration(double seconds) const;
  /// @param meters a distance @return it in the distance units, without the unit's name
  std::string formatDistance(double meters) const;
  /// @param meters an altitude above the ellipsoid @return it in the altitude units
  std::string formatAltitude(double meters) const;
  /// @return the altitude moved to the context's vertical datum at lla and time, then formatted.
  std::string formatAltitude(const Vec3& lla, const TimeStamp& time, double meters) const;
  /// @param metersPerSecond a speed @return it in the speed units
  std::string formatSpeed(double metersPerSecond) const;
  /// @return value with the generic precision.
  std::string formatDouble(double value) const;

  /**
   * @param radians the angle @param extents the range it is folded into first
   * @param symbol marks of a degree text
   * @return degrees in the geodetic format when the angle units are degrees, else the angle in its units
   */
  std::string formatAngle(double radians, AngleExtents extents, DegreeSymbolFormat symbol = DegreeSymbolFormat::NONE) const;
  /// @return the bearing moved to the context's north at lla and time, then formatted as formatAngle.
  std::string formatAzimuth(const Vec3& lla, const TimeStamp& time, double radians, AngleExtents extents,
                            DegreeSymbolFormat symbol = DegreeSymbolFormat::NONE) const;
  /// @param radians a latitude @return it in the geodetic format, with "N" or "S" for the degree formats
  std::string formatLatitude(double radians, DegreeSymbolFormat symbol = DegreeSymbolFormat::NONE) const;
  /// @param radians a longitude @return it in the geodetic format, with "E" or "W" for the degree formats
  std::string formatLongitude(double radians, DegreeSymbolFormat symbol = DegreeSymbolFormat::NONE) const;
  /// @return "red, green, blue, alpha" of a colour's components, 0 to 255.
  std::string formatRGBA(int red, int green, int blue, int alpha) const;

  /// @return metres above the context's vertical datum of an altitude above the ellipsoid.
  double rawAltitude(const Vec3& lla, const TimeStamp& time, double meters) const;
  /// @return radians from the context's north of a bearing from true north.
  double rawAzimuth(const Vec3& lla, const TimeStamp& time, double radians) const;

private:
  std::string formatDouble_(double value, int precision) const;
  std::string formatGeodetic_(double radians, int precision, DegreeSymbolFormat symbol, const char* hemispheres) const;
  static int geodeticPrecision_(int precision, GeodeticFormat format);

  const UnitContext& context_;
  TimeFormatterRegistry formatters_;
};

} // namespace kelCore
