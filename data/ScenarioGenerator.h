#pragma once

#include "store/ScenarioStore.h"

#include <cstddef>

namespace kelvor
{

/// Makes scenarios for demonstration and benchmarks, the same each time.
class ScenarioGenerator
{
public:
  /**
   * The demonstration scenario: aircraft and ships; a beam, gate, laser, LOB group, projector
   * and custom rendering; category and generic data; a data table; a track broken into pieces
   * of one name; a track with wild points; runs of duplicate points; a platform that never
   * moves; a platform with one timed point; and beam data outside its host's time span.
   */
  static void demo(ScenarioStore& store);
  /// A scenario of about points platform points over 100 aircraft, for benchmarks.
  static void synthetic(ScenarioStore& store, std::size_t points);
};

} // namespace kelvor
