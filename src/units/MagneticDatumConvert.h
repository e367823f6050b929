#pragma once

#include "kelCore/TimeStamp.h"
#include "kelCore/Vec3.h"

namespace kelCore
{

/// Surfaces an altitude can be measured from; the numbers are the host's.
enum class VerticalDatum : int
{
  WGS84 = 1, ///< the WGS-84 ellipsoid, in which altitudes are stored
  MSL = 2,   ///< mean sea level
  USER = 3   ///< a surface a user-given distance above the ellipsoid
};

/// North references a bearing can be measured from; the numbers are the host's.
enum class MagneticVariance : int
{
  TRUE_NORTH = 1, ///< true north, in which bearings are stored
  WMM = 2,        ///< magnetic north of the world magnetic model
  USER = 3        ///< a north turned east by a user-given angle
};

/**
 * @brief Moves altitudes between vertical datums and bearings between north references.
 *
 * The user datum lies userOffset metres above the ellipsoid; the user north is turned
 * userVariance radians east of true north. Mean sea level and the world magnetic model need
 * model data that the platform does not ship, so they are taken to coincide with the
 * ellipsoid and true north: their values pass through unchanged.
 */
class MagneticDatumConvert
{
public:
  virtual ~MagneticDatumConvert() = default;

  /**
   * @param lla the position, radians and metres @param time the moment
   * @param altitude metres above from's surface @param userOffset metres of the user datum above the ellipsoid
   * @return metres above to's surface
   */
  virtual double convertVerticalDatum(const Vec3& lla, const TimeStamp& time, double altitude, VerticalDatum from,
                                      VerticalDatum to, double userOffset) const;

  /**
   * @param lla the position, radians and metres @param time the moment
   * @param bearing radians clockwise from from's north @param userVariance radians of the user north east of true north
   * @return radians clockwise from to's north
   */
  virtual double convertMagneticDatum(const Vec3& lla, const TimeStamp& time, double bearing, MagneticVariance from,
                                      MagneticVariance to, double userVariance) const;
};

} // namespace kelCore
