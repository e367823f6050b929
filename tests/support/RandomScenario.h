#pragma once

#include "support/SeededRandom.h"

/**
 * Makes a random scenario through the plug-in's call path, replacing any scenario open. The
 * same seed makes the same scenario. Every value is finite.
 *
 * It holds what commands meet in recordings: platforms of one name (some of one original id
 * too) for the merges; moving tracks with irregular steps, runs of points equal but for their
 * time, stationary spells and wild jumps, with or without orientation and velocity; static
 * platforms (one point at time -1), one-point and empty platforms; beams with gates,
 * lasers, LOB groups, projectors on platforms and beams, custom renderings on platforms,
 * beams and alone, each with its series; child data that sometimes reaches outside the host's
 * span; category and generic data, some static; and data tables of every cell type with NULL
 * cells, some empty. Names hold quotes, backslashes, '#' and non-ASCII text.
 */
struct RandomScenario
{
  int leastPlatforms = 6;
  int mostPlatforms = 10;
  int leastPoints = 10;   ///< of a moving track
  int mostPoints = 150;   ///< of a moving track

  /// Makes the scenario, and fits the clock to its data.
  void make(SeededRandom& random) const;
};
