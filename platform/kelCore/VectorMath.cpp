#include "kelCore/VectorMath.h"

#include <algorithm>
#include <cmath>

namespace kelCore
{

double v3Angle(const Vec3& a, const Vec3& b)
{
  // atan2 of the cross and dot products keeps its accuracy for nearly parallel vectors,
  // where acos of the normalised dot product loses it.
  if (a.length() == 0.0 || b.length() == 0.0)
    return 0.0;
  return std::atan2(a.cross(b).length(), a.dot(b));
}

void d3EulertoDCM(const double euler[3], double dcm[3][3])
{
  const double cy = std::cos(euler[0]), sy = std::sin(euler[0]);
  const double cp = std::cos(euler[1]), sp = std::sin(euler[1]);
  const double cr = std::cos(euler[2]), sr = std::sin(euler[2]);
  dcm[0][0] = cp * cy;
  dcm[0][1] = cp * sy;
  dcm[0][2] = -sp;
  dcm[1][0] = sr * sp * cy - cr * sy;
  dcm[1][1] = sr * sp * sy + cr * cy;
  dcm[1][2] = sr * cp;
  dcm[2][0] = cr * sp * cy + sr * sy;
  dcm[2][1] = cr * sp * sy - sr * cy;
  dcm[2][2] = cr * cp;
}

void d3DCMtoEuler(const double dcm[3][3], double euler[3])
{
  euler[0] = std::atan2(dcm[0][1], dcm[0][0]);
  euler[1] = -std::asin(std::clamp(dcm[0][2], -1.0, 1.0));
  euler[2] = std::atan2(dcm[1][2], dcm[2][2]);
}

void d3MMmult(const double a[3][3], const double b[3][3], double c[3][3])
{
  double result[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      result[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
  std::copy(&result[0][0], &result[0][0] + 9, &c[0][0]);
}

} // namespace kelCore
