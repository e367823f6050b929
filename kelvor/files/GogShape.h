#pragma once

#include <string>
#include <vector>

namespace kelvor
{

/// One shape of a GOG overlay, as read.
struct GogShape
{
  enum Kind
  {
    LINE,    ///< a polyline through the points
    POINTS,  ///< the points alone
    POLYGON  ///< a closed outline
  };
  enum Coordinates
  {
    GEODETIC, ///< latitude, longitude (degrees) and altitude (metres; "lla" gives feet and is converted)
    XY        ///< plot values x, y as written
  };
  struct Point
  {
    double x = 0.0; ///< latitude in degrees, or plot x
    double y = 0.0; ///< longitude in degrees, or plot y
    double z = 0.0; ///< altitude in metres, or 0
  };

  Kind kind = LINE;
  Coordinates coordinates = GEODETIC;
  std::vector<Point> points;
  unsigned int color = 0xFFFFFFFF; ///< RGBA
  int width = 1;                   ///< pixels
  std::string style = "solid";     ///< solid, dash or dot
  bool depthBuffer = true;
  std::size_t line = 0;            ///< where the shape starts in its file
};

} // namespace kelvor
