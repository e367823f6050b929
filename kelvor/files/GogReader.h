#pragma once

#include "files/GogShape.h"

#include <istream>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief Reads GOG overlay files: sections from "start" to "end" with a shape (line, points,
 * poly), its points (ll, lla, xy), and its look (linecolor, linewidth, linestyle,
 * depthbuffer). Lines beginning with "//" or "#", and "comment" lines, are comments.
 * Each line that cannot be read gives "file:line: reason"; the rest is read.
 */
class GogReader
{
public:
  /// @param errors receives one message for each line that could not be read
  /// @return the shapes read
  static std::vector<GogShape> readFile(const std::string& path, std::vector<std::string>& errors);
  static std::vector<GogShape> read(std::istream& in, const std::string& name, std::vector<std::string>& errors);
  /// Reads a GOG colour: "0xAABBGGRR" or a name such as "red". @return false for neither
  static bool parseColor(const std::string& token, unsigned int& rgba);
};

} // namespace kelvor
