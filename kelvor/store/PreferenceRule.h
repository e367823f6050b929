#pragma once

#include <string>

namespace kelvor
{

/**
 * A display rule a plug-in hands the host, as
 * ruleName=TracksWidth ruleValue="3" nameExpression="^Eagle 1$" categoryFilters=" "
 * for the entities whose names the expression matches.
 */
struct PreferenceRule
{
  long id = 0;            ///< the rule's id, from 1
  std::string text;       ///< the rule as the plug-in wrote it
  bool saved = true;      ///< false for a rule of the session only, which no file keeps
};

} // namespace kelvor
