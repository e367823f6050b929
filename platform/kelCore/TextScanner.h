#pragma once

#include <string>

namespace kelCore
{

/**
 * @brief Reads a text from left to right in fixed fields: digits, letters, literal marks and
 * blanks. Each read either takes its field and moves on, or fails and leaves the position alone.
 */
class TextScanner
{
public:
  /// @param text the text to read; it must outlive the scanner
  explicit TextScanner(const std::string& text) : text_(text) {}

  /// Reads minCount to maxCount digits as a whole number; of a longer run of digits it takes
  /// maxCount, so that packed fields ("DDHHMM") read one after the other.
  bool digits(int minCount, int maxCount, long long& value);
  /// As above, into an int.
  bool digits(int minCount, int maxCount, int& value);
  /// Reads one or two digits with an optional decimal part, below 60: the seconds of a time.
  bool seconds(double& value);
  /// Reads a decimal number without sign or exponent: "12", "12.", "12.5" or ".5".
  bool decimal(double& value);
  /// Reads exactly count letters.
  bool letters(int count, std::string& value);
  /// Reads the character c, in any case when ignoreCase.
  bool literal(char c, bool ignoreCase = false);
  /// Reads c when it is next. @return whether it was there
  bool optional(char c) { return literal(c); }
  /// Reads one or more blanks.
  bool blanks();
  /// @return true when the whole text has been read.
  bool atEnd() const { return position_ == text_.size(); }

private:
  std::size_t countDigits_(std::size_t from) const;

  const std::string& text_;
  std::size_t position_ = 0;
};

} // namespace kelCore
