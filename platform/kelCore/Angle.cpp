#include "kelCore/Angle.h"

#include "kelCore/StringUtils.h"

#include <cctype>
#include <cmath>
#include <vector>

namespace kelCore
{

namespace
{

constexpr double TWO_PI = 2.0 * M_PI;

double foldTwoPi(double angle)
{
  double folded = std::fmod(angle, TWO_PI);
  if (folded < 0.0)
    folded += TWO_PI;
  // fmod of a tiny negative angle plus 2 pi rounds to 2 pi itself.
  return folded >= TWO_PI ? 0.0 : folded;
}

// Splits the text at blanks, colons and degree, minute and second marks.
std::vector<std::string> angleFields(const std::string& text)
{
  std::vector<std::string> fields;
  std::string field;
  auto flush = [&]() {
    if (!field.empty())
      fields.push_back(field);
    field.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i)
  {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (std::isspace(c) || c == ':' || c == '\'' || c == '"' || c == 'd' || c == 'D')
      flush();
    else if (c == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) == 0xB0)
    {
      flush(); // the UTF-8 degree sign
      ++i;
    }
    else if (c == 0xB0)
      flush(); // a Latin-1 degree sign
    else
      field += static_cast<char>(c);
  }
  flush();
  return fields;
}

// Takes a hemisphere letter off either end of the text: +1, -1, or 0 for none.
int takeHemisphere(std::string& text)
{
  auto letterSign = [](char c) {
    switch (std::toupper(static_cast<unsigned char>(c)))
    {
    case 'N':
    case 'E':
      return 1;
    case 'S':
    case 'W':
      return -1;
    default:
      return 0;
    }
  };
  const std::size_t first = text.find_first_not_of(" \t");
  const std::size_t last = text.find_last_not_of(" \t");
  if (first == std::string::npos)
    return 0;
  if (int sign = letterSign(text[first]))
  {
    text.erase(first, 1);
    return sign;
  }
  if (int sign = letterSign(text[last]))
  {
    text.erase(last, 1);
    return sign;
  }
  return 0;
}

} // namespace

double angFix(double angle, AngleExtents extents)
{
  if (!std::isfinite(angle))
    return angle;
  switch (extents)
  {
  case AngleExtents::TWOPI:
    return foldTwoPi(angle);
  case AngleExtents::PI: {
    const double folded = foldTwoPi(angle + M_PI) - M_PI;
    return folded;
  }
  case AngleExtents::PI_2: {
    const double folded = foldTwoPi(angle + M_PI) - M_PI;
    if (folded > M_PI_2)
      return M_PI - folded;
    if (folded < -M_PI_2)
      return -M_PI - folded;
    return folded;
  }
  case AngleExtents::ALL:
    break;
  }
  return angle;
}

bool areAnglesEqual(double a, double b, double tolerance)
{
  return std::fabs(angFix(a - b, AngleExtents::PI)) <= tolerance;
}

int getAngleFromDegreeString(const std::string& text, bool toRadians, double& value)
{
  std::string body = text;
  const int hemisphere = takeHemisphere(body);
  const std::vector<std::string> fields = angleFields(body);
  if (fields.empty() || fields.size() > 3)
    return 1;
  double parts[3] = {0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (!isValidNumber(fields[i], parts[i], false))
      return 1;
  const bool negative = fields[0][0] == '-';
  for (std::size_t i = 1; i < fields.size(); ++i)
    if (parts[i] < 0.0 || parts[i] >= 60.0 || fields[i][0] == '+')
      return 1;
  if (hemisphere != 0 && (negative || fields[0][0] == '+'))
    return 1; // a sign and a hemisphere letter together are ambiguous
  double degrees = std::fabs(parts[0]) + parts[1] / 60.0 + parts[2] / 3600.0;
  if (negative || hemisphere < 0)
    degrees = -degrees;
  value = toRadians ? degrees * M_PI / 180.0 : degrees;
  return 0;
}

} // namespace kelCore
