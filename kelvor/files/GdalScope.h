#pragma once

#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief What a read or write through GDAL runs inside: GDAL's drivers registered (once a
 * process), and the errors GDAL reports while the scope lives collected instead of printed.
 * GDAL reports most failures (a truncated XML file, a write that ran out of disk) through
 * its error handler, not through the call's result, so a caller asks failed() after each step.
 * The handler is the calling thread's: scopes on different threads do not see each other's.
 */
class GdalScope
{
public:
  GdalScope();
  ~GdalScope();
  GdalScope(const GdalScope&) = delete;
  GdalScope& operator=(const GdalScope&) = delete;

  /// @return true when GDAL reported a failure since the scope began
  bool failed() const { return !failures_.empty(); }
  /// @return the first failure GDAL reported, or fallback when it reported none
  std::string firstFailure(const std::string& fallback) const;

private:
  static void handle_(int level, int number, const char* message);

  std::vector<std::string> failures_;
};

} // namespace kelvor
