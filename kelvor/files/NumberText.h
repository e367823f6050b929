#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelvor
{

/// Numbers in scenario files: written in the shortest text that reads back to the same bits.
class NumberText
{
public:
  /// @return the shortest decimal text of value that reads back exactly ("0.1", "-1", "1e+300").
  static std::string format(double value);
  /**
   * Reads a whole token as a double.
   * @param allowNonFinite also take "nan", "inf" and "-inf"
   * @return false, leaving value alone, for anything else
   */
  static bool parse(std::string_view text, double& value, bool allowNonFinite = false);
  /// Reads a whole token as a signed 64-bit integer.
  static bool parse(std::string_view text, std::int64_t& value);
  /// Reads a whole token as an unsigned 64-bit integer.
  static bool parse(std::string_view text, std::uint64_t& value);
  /// Reads a colour "0xRRGGBBAA" (or decimal) as RGBA.
  static bool parseColor(std::string_view text, unsigned int& value);
  /// @return "0xRRGGBBAA" of an RGBA colour.
  static std::string formatColor(unsigned int color);
};

} // namespace kelvor
