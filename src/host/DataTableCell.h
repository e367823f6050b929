#pragma once

#include "host/Blob.h"
#include "host/VariableType.h"

#include <cstdint>
#include <string>

namespace PIData
{

/**
 * @brief One cell of a data table row: a value of one of the twelve storage types, readable
 * and writable as any of them. getValue and setValue answer 0 for success, 1 when the value
 * cannot be converted (the out value is then untouched).
 */
class DataTableCell
{
public:
  virtual ~DataTableCell() = default;

  /// @return the storage type of the value held.
  virtual UTILS::VariableType_t type() const = 0;
  /// @return a new cell holding the same value.
  virtual DataTableCell* clone() const = 0;
  /// @return bytes the value takes in the binary table format.
  virtual std::size_t getBinaryFormatSize() const = 0;

  virtual int getValue(std::uint8_t& v) const = 0;
  virtual int getValue(std::int8_t& v) const = 0;
  virtual int getValue(std::uint16_t& v) const = 0;
  virtual int getValue(std::int16_t& v) const = 0;
  virtual int getValue(std::uint32_t& v) const = 0;
  virtual int getValue(std::int32_t& v) const = 0;
  virtual int getValue(std::uint64_t& v) const = 0;
  virtual int getValue(std::int64_t& v) const = 0;
  virtual int getValue(float& v) const = 0;
  virtual int getValue(double& v) const = 0;
  virtual int getValue(std::string& v) const = 0;
  virtual int getValue(UTILS::Blob& v) const = 0;

  virtual int setValue(const std::uint8_t& v) = 0;
  virtual int setValue(const std::int8_t& v) = 0;
  virtual int setValue(const std::uint16_t& v) = 0;
  virtual int setValue(const std::int16_t& v) = 0;
  virtual int setValue(const std::uint32_t& v) = 0;
  virtual int setValue(const std::int32_t& v) = 0;
  virtual int setValue(const std::uint64_t& v) = 0;
  virtual int setValue(const std::int64_t& v) = 0;
  virtual int setValue(const float& v) = 0;
  virtual int setValue(const double& v) = 0;
  virtual int setValue(const std::string& v) = 0;
  virtual int setValue(const UTILS::Blob& v) = 0;
};

} // namespace PIData
