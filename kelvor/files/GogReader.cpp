#include "files/GogReader.h"

#include "files/LineTokenizer.h"
#include "files/NumberText.h"
#include "kelCore/StringUtils.h"

#include <fstream>
#include <optional>

namespace kelvor
{

namespace
{

constexpr double METRES_PER_FOOT = 0.3048;

bool is(const std::string& a, const char* b) { return kelCore::caseCompare(a, b) == 0; }

} // namespace

bool GogReader::parseColor(const std::string& token, unsigned int& rgba)
{
  static const struct
  {
    const char* name;
    unsigned int rgba;
  } NAMES[] = {{"white", 0xFFFFFFFF}, {"black", 0x000000FF}, {"red", 0xFF0000FF},     {"green", 0x00FF00FF},
               {"blue", 0x0000FFFF},  {"yellow", 0xFFFF00FF}, {"cyan", 0x00FFFFFF},   {"magenta", 0xFF00FFFF},
               {"orange", 0xFFA500FF}, {"gray", 0x808080FF}};
  for (const auto& n : NAMES)
    if (is(token, n.name))
      return rgba = n.rgba, true;
  unsigned int abgr = 0;
  if (token.size() < 3 || !(token[0] == '0' && (token[1] == 'x' || token[1] == 'X')) || !NumberText::parseColor(token, abgr))
    return false;
  // GOG writes alpha, blue, green, red; the host keeps red, green, blue, alpha.
  const unsigned int a = (abgr >> 24) & 0xFF, b = (abgr >> 16) & 0xFF, g = (abgr >> 8) & 0xFF, r = abgr & 0xFF;
  rgba = (r << 24) | (g << 16) | (b << 8) | a;
  return true;
}

std::vector<GogShape> GogReader::readFile(const std::string& path, std::vector<std::string>& errors)
{
  std::ifstream in(path);
  if (!in)
  {
    errors.push_back(path + ":0: cannot open the file");
    return {};
  }
  return read(in, path, errors);
}

std::vector<GogShape> GogReader::read(std::istream& in, const std::string& name, std::vector<std::string>& errors)
{
  std::vector<GogShape> shapes;
  std::optional<GogShape> open;
  std::string line, error;
  std::vector<std::string> t;
  std::size_t number = 0;
  auto fail = [&](const std::string& reason) { errors.push_back(name + ":" + std::to_string(number) + ": " + reason); };
  auto numbers = [&](std::size_t count, double* out) {
    if (t.size() < count + 1)
      return fail("missing field: '" + t[0] + "' takes " + std::to_string(count) + " numbers"), false;
    for (std::size_t i = 0; i < count; ++i)
      if (!NumberText::parse(t[i + 1], out[i]))
        return fail("bad number '" + t[i + 1] + "'"), false;
    return true;
  };
  while (std::getline(in, line))
  {
    ++number;
    const std::string trimmed = kelCore::trim(line);
    if (trimmed.empty() || trimmed.rfind("//", 0) == 0 || trimmed[0] == '#')
      continue;
    if (!LineTokenizer::split(trimmed, t, error))
    {
      fail(error);
      continue;
    }
    if (t.empty() || is(t[0], "comment"))
      continue;
    const std::string& k = t[0];
    if (is(k, "start"))
    {
      if (open)
        fail("'start' inside an open section");
      open = GogShape();
      open->line = number;
      continue;
    }
    if (!open)
    {
      fail("'" + k + "' outside a start ... end section");
      continue;
    }
    if (is(k, "end"))
    {
      shapes.push_back(*open);
      open.reset();
    }
    else if (is(k, "line") || is(k, "linesegs"))
      open->kind = GogShape::LINE;
    else if (is(k, "points"))
      open->kind = GogShape::POINTS;
    else if (is(k, "poly") || is(k, "polygon"))
      open->kind = GogShape::POLYGON;
    else if (is(k, "ll") || is(k, "lla") || is(k, "xy"))
    {
      double v[3] = {0, 0, 0};
      const bool lla = is(k, "lla");
      if (!numbers(lla ? 3 : 2, v))
        continue;
      open->coordinates = is(k, "xy") ? GogShape::XY : GogShape::GEODETIC;
      open->points.push_back({v[0], v[1], lla ? v[2] * METRES_PER_FOOT : 0.0});
    }
    else if (is(k, "linecolor"))
    {
      bool found = false;
      for (std::size_t i = 1; i < t.size(); ++i)
        found = parseColor(t[i], open->color) || found;
      // "linecolor colorN" alone names a colour slot without a value: the default stays.
      if (!found && (t.size() < 2 || t[1].rfind("color", 0) != 0))
        fail("bad colour on 'linecolor'");
    }
    else if (is(k, "linewidth"))
    {
      double w = 0;
      if (numbers(1, &w))
        open->width = static_cast<int>(w);
    }
    else if (is(k, "linestyle"))
    {
      if (t.size() < 2 || !(is(t[1], "solid") || is(t[1], "dash") || is(t[1], "dashed") || is(t[1], "dot") ||
                            is(t[1], "dotted")))
        fail("bad line style: expected solid, dash or dot");
      else
        open->style = is(t[1], "dashed") ? "dash" : (is(t[1], "dotted") ? "dot" : kelCore::trim(t[1]));
    }
    else if (is(k, "depthbuffer"))
    {
      if (t.size() < 2 || !(is(t[1], "true") || is(t[1], "false") || is(t[1], "on") || is(t[1], "off")))
        fail("bad depthbuffer: expected true or false");
      else
        open->depthBuffer = is(t[1], "true") || is(t[1], "on");
    }
    else
      fail("unknown GOG keyword '" + k + "'");
  }
  if (open)
  {
    number = open->line;
    fail("section not closed with 'end'");
    shapes.push_back(*open);
  }
  return shapes;
}

} // namespace kelvor
