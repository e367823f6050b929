#include "utils/RegexObject.h"

#include <pcre.h>

#include <stdexcept>

namespace UTILS
{

RegexObject::RegexObject(const std::string& pattern, bool caseless)
{
  const char* error = nullptr;
  int errorOffset = 0;
  const std::string anchored = "^(?:" + pattern + ")$";
  compiled_ = pcre_compile(anchored.c_str(), caseless ? PCRE_CASELESS : 0, &error, &errorOffset, nullptr);
  if (!compiled_)
    throw std::invalid_argument("Bad regular expression \"" + pattern + "\": " + (error ? error : "unknown error"));
  pcre_fullinfo(compiled_, nullptr, PCRE_INFO_CAPTURECOUNT, &groupCount_);
}

RegexObject::~RegexObject()
{
  pcre_free(compiled_);
}

bool RegexObject::match(const std::string& text, std::vector<std::string>& groups) const
{
  std::vector<int> offsets(3 * (groupCount_ + 1));
  const int found = pcre_exec(compiled_, nullptr, text.data(), static_cast<int>(text.size()), 0, 0, offsets.data(),
    static_cast<int>(offsets.size()));
  if (found < 0)
    return false;
  groups.assign(groupCount_, std::string());
  for (int group = 1; group < found; ++group)
  {
    const int start = offsets[2 * group];
    if (start >= 0)
      groups[group - 1] = text.substr(start, offsets[2 * group + 1] - start);
  }
  return true;
}

} // namespace UTILS
