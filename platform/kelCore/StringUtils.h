#pragma once

#include <cstdint>
#include <string>

/// @file Number and word text operations.

namespace kelCore
{

/**
 * Prints a number in fixed notation.
 * @param prefix text before the number @param value the number @param width least width of
 * the number, padded on the left @param precision decimals @param suffix text after the number
 * @param padZeros pad with zeros rather than blanks
 */
std::string buildString(const std::string& prefix, double value, std::size_t width = 0, int precision = 2,
                        const std::string& suffix = "", bool padZeros = false);

/**
 * Reads a whole text as a finite number. Strict reading takes the number alone; permissive
 * reading also takes blanks around it and a leading "+". Integers must fit their width.
 * @param value receives the number; untouched on failure
 * @return true when the text is a number
 */
bool isValidNumber(const std::string& text, double& value, bool permissive = true);
bool isValidNumber(const std::string& text, float& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::int8_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::uint8_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::int16_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::uint16_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::int32_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::uint32_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::int64_t& value, bool permissive = true);
bool isValidNumber(const std::string& text, std::uint64_t& value, bool permissive = true);

/// @return 0 when a and b are equal regardless of case, else negative or positive as strcasecmp.
int caseCompare(const std::string& a, const std::string& b);

/// @return true for "1" (or any non-zero number), "true", "yes", "on" and "t", in any case, around blanks.
bool stringIsTrue(const std::string& text);

/// @return text without blanks at either end.
std::string trim(const std::string& text);

} // namespace kelCore
