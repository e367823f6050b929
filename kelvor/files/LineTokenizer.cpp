#include "files/LineTokenizer.h"

namespace kelvor
{

namespace
{

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

} // namespace

bool LineTokenizer::split(std::string_view line, std::vector<std::string>& tokens, std::string& error)
{
  std::vector<bool> quoted;
  return split(line, tokens, quoted, error);
}

bool LineTokenizer::split(std::string_view line, std::vector<std::string>& tokens, std::vector<bool>& quoted,
                          std::string& error)
{
  // Tokens are assigned into the strings already there, so a reader that reuses its vectors
  // allocates nothing for lines of ordinary length.
  std::size_t used = 0;
  auto emit = [&](std::string_view text, bool inQuotes) {
    if (used < tokens.size())
      tokens[used].assign(text.data(), text.size());
    else
      tokens.emplace_back(text);
    if (used < quoted.size())
      quoted[used] = inQuotes;
    else
      quoted.push_back(inQuotes);
    ++used;
  };
  std::size_t i = 0;
  const std::size_t n = line.size();
  while (i < n)
  {
    while (i < n && isBlank(line[i]))
      ++i;
    if (i >= n || line[i] == '#')
      break;
    if (line[i] != '"')
    {
      const std::size_t start = i;
      while (i < n && !isBlank(line[i]) && line[i] != '#' && line[i] != '"')
        ++i;
      if (i < n && line[i] == '"')
      {
        error = "a quote inside a word; put the whole word in quotes";
        tokens.resize(used);
        quoted.resize(used);
        return false;
      }
      emit(line.substr(start, i - start), false);
      continue;
    }
    std::string token;
    ++i;
    bool closed = false;
    while (i < n)
    {
      const char c = line[i++];
      if (c == '"')
      {
        closed = true;
        break;
      }
      if (c == '\\' && i < n && (line[i] == '"' || line[i] == '\\'))
        token += line[i++];
      else
        token += c;
    }
    if (!closed)
    {
      error = "unterminated quote";
      return false;
    }
    if (i < n && !isBlank(line[i]) && line[i] != '#')
    {
      error = "text right after a closing quote";
      return false;
    }
    emit(token, true);
  }
  tokens.resize(used);
  quoted.resize(used);
  return true;
}

std::string LineTokenizer::quote(const std::string& text)
{
  std::string quoted = "\"";
  for (char c : text)
  {
    if (c == '"' || c == '\\')
      quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

} // namespace kelvor
