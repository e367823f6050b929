#pragma once

#include <string>
#include <vector>

struct real_pcre;

namespace UTILS
{

/// A compiled Perl-compatible regular expression that matches whole texts.
class RegexObject
{
public:
  /**
   * @param pattern the expression, without anchors; it must match the whole text
   * @param caseless true to ignore the case of letters
   * @throws std::invalid_argument with the compiler's message when pattern is not valid
   */
  explicit RegexObject(const std::string& pattern, bool caseless = false);
  ~RegexObject();
  RegexObject(const RegexObject&) = delete;
  RegexObject& operator=(const RegexObject&) = delete;

  /**
   * @param text the text to match as a whole
   * @param groups receives the captured groups, group 1 first; an unmatched group is empty
   * @return true when the whole text matches
   */
  bool match(const std::string& text, std::vector<std::string>& groups) const;

private:
  real_pcre* compiled_ = nullptr;
  int groupCount_ = 0;
};

} // namespace UTILS
