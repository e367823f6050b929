#include "units/MagneticDatumConvert.h"

namespace kelCore
{

namespace
{

double surfaceAboveEllipsoid(VerticalDatum datum, double userOffset)
{
  return datum == VerticalDatum::USER ? userOffset : 0.0;
}

double northEastOfTrue(MagneticVariance variance, double userVariance)
{
  return variance == MagneticVariance::USER ? userVariance : 0.0;
}

} // namespace

double MagneticDatumConvert::convertVerticalDatum(const Vec3&, const TimeStamp&, double altitude, VerticalDatum from,
                                                  VerticalDatum to, double userOffset) const
{
  return altitude + surfaceAboveEllipsoid(from, userOffset) - surfaceAboveEllipsoid(to, userOffset);
}

double MagneticDatumConvert::convertMagneticDatum(const Vec3&, const TimeStamp&, double bearing, MagneticVariance from,
                                                  MagneticVariance to, double userVariance) const
{
  return bearing + northEastOfTrue(from, userVariance) - northEastOfTrue(to, userVariance);
}

} // namespace kelCore
