#pragma once

#include "kelCore/TimeFormatter.h"

#include <memory>
#include <vector>

namespace kelCore
{

/// A formatter for every TimeFormat, and reading of a time text in whichever format it has.
class TimeFormatterRegistry
{
public:
  TimeFormatterRegistry();

  /// @return the formatter of format; the SECONDS formatter for a value outside the enumeration.
  const TimeFormatter& formatter(TimeFormat format) const;

  /**
   * @param stamp the moment @param format the text form @param referenceYear the year relative
   * forms count from @param precision decimals of the seconds, 0 to 9
   */
  std::string toString(TimeFormat format, const TimeStamp& stamp, int referenceYear, unsigned short precision) const;

  /**
   * Reads a time in any known format. Surrounding blanks and double or single quotes are
   * dropped, and so is a leading "+"; "-1" reads as one second before referenceYear began.
   * @param stamp receives the moment; untouched on failure
   * @param referenceYear the year relative forms count from
   * @param matched receives the format that read it, if not null
   * @return 0 for success, 1 when no format reads the text
   */
  int fromString(const std::string& text, TimeStamp& stamp, int referenceYear, TimeFormat* matched = nullptr) const;

private:
  std::vector<std::unique_ptr<TimeFormatter>> formatters_; // in the order fromString tries them
};

} // namespace kelCore
