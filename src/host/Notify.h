#pragma once

#include "host/PICommon.h"

#include <sstream>

namespace PICommon
{

/**
 * @brief The stream form of notify: text written to it goes to the host's notification
 * stream as one line when the object goes out of scope.
 *
 *   PICommon::Notify(PICommon::NOTIFY_WARN) << "Skipped " << count << " points";
 */
class Notify
{
public:
  explicit Notify(NotifySeverity severity) : severity_(severity) {}
  ~Notify()
  {
    const std::string text = stream_.str();
    if (!text.empty())
      notify(text, severity_);
  }
  Notify(const Notify&) = delete;
  Notify& operator=(const Notify&) = delete;

  template <typename T>
  Notify& operator<<(const T& value)
  {
    stream_ << value;
    return *this;
  }

private:
  NotifySeverity severity_;
  std::ostringstream stream_;
};

} // namespace PICommon
