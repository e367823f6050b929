#pragma once

namespace kelNotify
{

/// Severity of a notification; lower is more severe.
enum NotifySeverity : int
{
  NOTIFY_ALWAYS = 0,     ///< shown whatever the level
  NOTIFY_FATAL = 1,      ///< the program cannot go on
  NOTIFY_ERROR = 2,      ///< an operation failed
  NOTIFY_WARN = 3,       ///< something was skipped or changed
  NOTIFY_NOTICE = 4,     ///< worth knowing
  NOTIFY_INFO = 5,       ///< progress
  NOTIFY_DEBUG_INFO = 6, ///< detail for developers
  NOTIFY_DEBUG_FP = 7    ///< numeric detail for developers
};

/// @return the severity's name, "ALWAYS" to "DEBUG_FP".
const char* severityName(NotifySeverity severity);

} // namespace kelNotify
