#pragma once

#include <stdexcept>
#include <string>

namespace kelCore
{

/// Base of the library's exceptions; what() gives the reason.
class Exception : public std::runtime_error
{
public:
  explicit Exception(const std::string& reason) : std::runtime_error(reason) {}
};

/// A time or its text could not be handled.
class TimeException : public Exception
{
public:
  explicit TimeException(const std::string& reason) : Exception(reason) {}
};

} // namespace kelCore
