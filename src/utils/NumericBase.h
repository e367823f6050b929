#pragma once

namespace UTILS
{

/// The base numbers are written in.
enum NumericBase_t : int
{
  BASE_DECIMAL = 0,
  BASE_OCTAL = 1,
  BASE_HEXADECIMAL = 2
};

} // namespace UTILS
