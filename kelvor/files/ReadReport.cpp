#include "files/ReadReport.h"

#include "files/NumberText.h"

namespace kelvor
{

void ReadReport::noteReplacement(const std::string& file, std::size_t line, std::size_t earlierLine,
                                 const std::string& what, double time, bool identical)
{
  if (identical)
  {
    ++repeats;
    return;
  }
  ++replaced;
  warnings.push_back(file + ":" + std::to_string(line) + ": replaces " + what + " of line " +
                     std::to_string(earlierLine) + " at time " + NumberText::format(time));
}

void ReadReport::noteRepeats(const std::string& file)
{
  if (repeats > 0)
    warnings.push_back(file + ": " + std::to_string(repeats) + " identical repeated record" + (repeats == 1 ? "" : "s") +
                       " ignored");
}

std::string ReadReport::replacementSummary() const
{
  std::string summary;
  if (replaced > 0)
    summary = std::to_string(replaced) + (replaced == 1 ? " record replaced an earlier one" : " records replaced earlier ones");
  if (repeats > 0)
    summary += (summary.empty() ? "" : ", ") + std::to_string(repeats) + " identical repeated record" +
               (repeats == 1 ? "" : "s") + " ignored";
  return summary;
}

} // namespace kelvor
