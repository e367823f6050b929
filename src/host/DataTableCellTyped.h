#pragma once

#include "host/DataTableCell.h"

#include <cmath>
#include <limits>
#include <sstream>
#include <type_traits>

namespace PIData
{

/// The storage type of T.
template <typename T>
constexpr UTILS::VariableType_t variableTypeOf()
{
  if constexpr (std::is_same_v<T, std::uint8_t>) return UTILS::VT_UINT8;
  else if constexpr (std::is_same_v<T, std::int8_t>) return UTILS::VT_INT8;
  else if constexpr (std::is_same_v<T, std::uint16_t>) return UTILS::VT_UINT16;
  else if constexpr (std::is_same_v<T, std::int16_t>) return UTILS::VT_INT16;
  else if constexpr (std::is_same_v<T, std::uint32_t>) return UTILS::VT_UINT32;
  else if constexpr (std::is_same_v<T, std::int32_t>) return UTILS::VT_INT32;
  else if constexpr (std::is_same_v<T, std::uint64_t>) return UTILS::VT_UINT64;
  else if constexpr (std::is_same_v<T, std::int64_t>) return UTILS::VT_INT64;
  else if constexpr (std::is_same_v<T, float>) return UTILS::VT_FLOAT;
  else if constexpr (std::is_same_v<T, double>) return UTILS::VT_DOUBLE;
  else if constexpr (std::is_same_v<T, std::string>) return UTILS::VT_STRING;
  else if constexpr (std::is_same_v<T, UTILS::Blob>) return UTILS::VT_BLOB;
  else return UTILS::VT_UNKNOWN;
}

/**
 * @brief The one cell implementation, for each of the twelve storage types. Numbers convert
 * to numbers with a cast, to text by a stream; text converts to numbers when it reads as one
 * (floating types also take "nan", "inf", "infinity", "-inf" and "-infinity"); a blob reads
 * as the text "blob" and takes no other type.
 */
template <typename T>
class DataTableCellTyped : public DataTableCell
{
public:
  DataTableCellTyped() = default;
  explicit DataTableCellTyped(const T& value) : value_(value) {}

  const T& value() const { return value_; }

  UTILS::VariableType_t type() const override { return variableTypeOf<T>(); }
  DataTableCell* clone() const override { return new DataTableCellTyped<T>(value_); }
  std::size_t getBinaryFormatSize() const override
  {
    if constexpr (std::is_same_v<T, std::string>) return value_.size() + 1;
    else if constexpr (std::is_same_v<T, UTILS::Blob>) return value_.size() + sizeof(std::uint32_t);
    else return sizeof(T);
  }

  int getValue(std::uint8_t& v) const override { return get_(v); }
  int getValue(std::int8_t& v) const override { return get_(v); }
  int getValue(std::uint16_t& v) const override { return get_(v); }
  int getValue(std::int16_t& v) const override { return get_(v); }
  int getValue(std::uint32_t& v) const override { return get_(v); }
  int getValue(std::int32_t& v) const override { return get_(v); }
  int getValue(std::uint64_t& v) const override { return get_(v); }
  int getValue(std::int64_t& v) const override { return get_(v); }
  int getValue(float& v) const override { return get_(v); }
  int getValue(double& v) const override { return get_(v); }
  int getValue(std::string& v) const override { return get_(v); }
  int getValue(UTILS::Blob& v) const override { return get_(v); }

  int setValue(const std::uint8_t& v) override { return set_(v); }
  int setValue(const std::int8_t& v) override { return set_(v); }
  int setValue(const std::uint16_t& v) override { return set_(v); }
  int setValue(const std::int16_t& v) override { return set_(v); }
  int setValue(const std::uint32_t& v) override { return set_(v); }
  int setValue(const std::int32_t& v) override { return set_(v); }
  int setValue(const std::uint64_t& v) override { return set_(v); }
  int setValue(const std::int64_t& v) override { return set_(v); }
  int setValue(const float& v) override { return set_(v); }
  int setValue(const double& v) override { return set_(v); }
  int setValue(const std::string& v) override { return set_(v); }
  int setValue(const UTILS::Blob& v) override { return set_(v); }

private:
  template <typename From, typename To>
  static int convert_(const From& from, To& to)
  {
    if constexpr (std::is_same_v<From, To>)
    {
      to = from;
      return 0;
    }
    else if constexpr (std::is_same_v<From, UTILS::Blob>)
    {
      if constexpr (std::is_same_v<To, std::string>)
      {
        to = "blob";
        return 0;
      }
      return 1;
    }
    else if constexpr (std::is_same_v<To, UTILS::Blob>)
      return 1;
    else if constexpr (std::is_same_v<To, std::string>)
    {
      std::ostringstream out;
      out.precision(std::numeric_limits<From>::max_digits10);
      if constexpr (sizeof(From) == 1)
        out << static_cast<int>(from);
      else
        out << from;
      to = out.str();
      return 0;
    }
    else if constexpr (std::is_same_v<From, std::string>)
      return fromText_(from, to);
    else
    {
      to = static_cast<To>(from);
      return 0;
    }
  }

  template <typename To>
  static int fromText_(const std::string& text, To& to)
  {
    if constexpr (std::is_floating_point_v<To>)
    {
      std::string lower;
      for (char c : text)
        lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      if (lower == "nan")
        return to = std::numeric_limits<To>::quiet_NaN(), 0;
      if (lower == "inf" || lower == "infinity")
        return to = std::numeric_limits<To>::infinity(), 0;
      if (lower == "-inf" || lower == "-infinity")
        return to = -std::numeric_limits<To>::infinity(), 0;
    }
    std::istringstream in(text);
    if constexpr (sizeof(To) == 1)
    {
      int wide = 0;
      if (!(in >> wide) || !in.eof() || wide < std::numeric_limits<To>::min() || wide > std::numeric_limits<To>::max())
        return 1;
      to = static_cast<To>(wide);
      return 0;
    }
    else
    {
      To parsed{};
      if (!(in >> parsed) || !in.eof())
        return 1;
      to = parsed;
      return 0;
    }
  }

  template <typename To>
  int get_(To& to) const
  {
    return convert_(value_, to);
  }
  template <typename From>
  int set_(const From& from)
  {
    return convert_(from, value_);
  }

  T value_{};
};

} // namespace PIData
