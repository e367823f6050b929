#include "cli/ProgressLine.h"

#include <unistd.h>

namespace kelvor
{

namespace
{

// Back to the start of the line, and erase to its end.
const char* const ERASE = "\r\033[K";

} // namespace

ProgressLine::ProgressLine(std::ostream& err, bool enabled, std::chrono::milliseconds delay)
  : err_(err), enabled_(enabled), delay_(delay), start_(std::chrono::steady_clock::now())
{
}

ProgressLine::~ProgressLine()
{
  clear();
}

void ProgressLine::step(const std::string& what)
{
  if (!enabled_)
    return;
  const auto elapsed = std::chrono::steady_clock::now() - start_;
  if (elapsed < delay_)
    return;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
  err_ << ERASE << "kelvor-edit: " << what << " (" << seconds << " s)" << std::flush;
  shown_ = true;
}

void ProgressLine::clear()
{
  if (!shown_)
    return;
  err_ << ERASE << std::flush;
  shown_ = false;
}

bool ProgressLine::standardErrorIsTerminal()
{
  return ::isatty(STDERR_FILENO) == 1;
}

} // namespace kelvor
