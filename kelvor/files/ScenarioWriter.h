#pragma once

#include "kelCore/CoordinateSystem.h"
#include "store/ScenarioStore.h"

#include <ostream>
#include <string>

namespace kelvor
{

/**
 * @brief Writes a scenario as KELVOR Lite's scenario file. Angles are written in radians and
 * every number in the shortest text that reads back exactly, so that a file written in LLA
 * reads back to the same scenario, bit for bit.
 */
class ScenarioWriter
{
public:
  struct Options
  {
    /// The system of the point lines; LLA keeps every bit, the others convert with kelCore.
    kelCore::CoordinateSystem positions = kelCore::CoordinateSystem::LLA;
  };

  explicit ScenarioWriter(const ScenarioStore& store) : ScenarioWriter(store, Options{kelCore::CoordinateSystem::LLA}) {}
  ScenarioWriter(const ScenarioStore& store, Options options) : store_(store), options_(options) {}

  /**
   * Saves atomically: the text goes to a temporary file beside path, which then replaces it,
   * so a failure leaves any old file whole.
   * @param error receives the reason on failure
   * @return true for success
   */
  bool writeFile(const std::string& path, std::string& error) const;
  /// Writes the scenario's text to out.
  void write(std::ostream& out) const;

private:
  const ScenarioStore& store_;
  Options options_;
};

} // namespace kelvor
