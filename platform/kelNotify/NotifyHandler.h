#pragma once

#include "kelNotify/NotifySeverity.h"

#include <string>

namespace kelNotify
{

/// Receives each complete notification line.
class NotifyHandler
{
public:
  virtual ~NotifyHandler() = default;
  /// @param severity the line's severity @param line the text, without its line end
  virtual void notify(NotifySeverity severity, const std::string& line) = 0;
};

} // namespace kelNotify
