#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvor
{

/**
 * @brief Splits one line of a scenario file into tokens: blanks separate them, double quotes
 * group one (with \" and \\ inside), and "#" outside quotes begins a comment.
 */
class LineTokenizer
{
public:
  /**
   * @param line the line, without its end
   * @param tokens receives the tokens; quoted ones without their quotes
   * @param error receives the reason on failure
   * @return false for an unterminated quote or a stray character after a closing quote
   */
  static bool split(std::string_view line, std::vector<std::string>& tokens, std::string& error);
  /// As above, and quoted[i] tells whether token i was in quotes.
  static bool split(std::string_view line, std::vector<std::string>& tokens, std::vector<bool>& quoted,
                    std::string& error);
  /// @return text quoted so that split reads it back as one token.
  static std::string quote(const std::string& text);
};

} // namespace kelvor
