#pragma once

#include <string>

namespace kelvor
{

/// A display rule a plug-in hands the host, as "TrackDrawMode=Ribbon" for the entities it names.
struct PreferenceRule
{
  long id = 0;      ///< the rule's id, from 1
  std::string text; ///< the rule as the plug-in wrote it
};

} // namespace kelvor
