#pragma once

#include "host/PI_DATA_BASE_CLASS.h"

#include <cstdint>
#include <string>
#include <vector>

/**
 * @brief The record of every request that is not a plain entity request.
 *
 * Integer 0 selects the operation inside the family; integer 1, where present, is the slot
 * the host overwrites with the call's status. Arguments follow in the operation's order;
 * pointers to out-parameters go in the pointer vector.
 */
class PI_DATA_CATCHALL : public PI_DATA_BASE_CLASS
{
public:
  std::vector<double> doubles;       ///< numeric arguments and results
  std::vector<std::int64_t> integers; ///< selector, status slot, integer arguments
  std::vector<std::string> strings;  ///< text arguments and results
  std::vector<void*> pointers;       ///< pointer arguments and out-parameters

  /// Makes a record with the selector and a status slot of 0.
  static PI_DATA_CATCHALL withSelector(std::int64_t selector)
  {
    PI_DATA_CATCHALL record;
    record.integers = {selector, 0};
    return record;
  }

  /// @return integer slot i, or fallback when the host left it out.
  std::int64_t integerAt(std::size_t i, std::int64_t fallback = 0) const
  {
    return i < integers.size() ? integers[i] : fallback;
  }
  /// @return double slot i, or fallback when the host left it out.
  double doubleAt(std::size_t i, double fallback = 0.0) const { return i < doubles.size() ? doubles[i] : fallback; }
  /// @return pointer slot i, or null when the host left it out.
  void* pointerAt(std::size_t i) const { return i < pointers.size() ? pointers[i] : nullptr; }
};
