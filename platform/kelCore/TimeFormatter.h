#pragma once

#include "kelCore/TimeFormat.h"
#include "kelCore/TimeStamp.h"

#include <string>

namespace kelCore
{

/// Writes and reads the text of a time in one format.
class TimeFormatter
{
public:
  virtual ~TimeFormatter() = default;

  /// @return the format this formatter writes.
  virtual TimeFormat format() const = 0;

  /**
   * @param stamp the moment @param referenceYear the year that relative formats count from
   * @param precision decimals of the seconds, 0 to 9
   * @return the text of stamp
   */
  virtual std::string toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const = 0;

  /**
   * Reads text written in this format.
   * @param stamp receives the moment; untouched on failure
   * @param referenceYear the year that relative formats count from
   * @return 0 for success, 1 when the text is not in this format or names no real moment
   */
  virtual int fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const = 0;

  /// @return true when fromString would accept text.
  bool canConvert(const std::string& text) const
  {
    TimeStamp ignored;
    return fromString(text, ignored, 1970) == 0;
  }
};

} // namespace kelCore
