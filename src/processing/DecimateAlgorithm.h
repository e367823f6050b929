#pragma once

#include "host/PIPlatformPoint.h"
#include "host/UniqueID.h"
#include "kelCore/Vec3.h"

#include <cstdint>
#include <string>
#include <vector>

namespace QtSep
{

/**
 * Thins a platform's track into a new platform: the new one first receives a full copy of the
 * source, then its points are replaced by those the algorithm keeps. The source's points are
 * never edited. Algorithms work on earth-centred, earth-fixed positions (metres).
 */
class DecimateAlgorithm
{
public:
  DecimateAlgorithm() = default;
  virtual ~DecimateAlgorithm() = default;

  /**
   * Makes the thinned copy of a platform.
   * @param newId set to 0, then to the new platform when the thinned track was written; may be null
   * @param mergeCategoryData true to record the copy's source in its "Merge_Source" category
   * @return 0 for success; non-zero when the source has no points or a step failed
   */
  virtual int execute(std::uint64_t sourceId, std::uint64_t* newId, bool mergeCategoryData);
  /**
   * Thins a platform's own track instead of a copy: its points are replaced, flush then add,
   * by those the algorithm keeps; its id, name, children and other data stay.
   * @return 0 for success; non-zero when it has no points or a step failed, and then its
   * points are as they were unless the write itself failed
   */
  int executeInPlace(std::uint64_t id);
  /// @param append true to give the new platform the source's name and rename the source with "_orig"
  virtual void setAppendToSource(bool append) { appendToSource_ = append; }
  /// @return the audit line for the new platform @param name the source's call sign
  virtual std::string auditText(const std::string& name) const = 0;
  /// Thins a track. @param in and out must be different vectors @return 0 for success
  virtual int execute_(const std::vector<PIData::PIPlatformPoint>& in, std::vector<PIData::PIPlatformPoint>& out) = 0;

  /// Ending of a source renamed by the append-to-source choice.
  static const std::string ORIGINAL_EXTENSION;

protected:
  /// @return the suffix of the new platform's name, such as " (Pnt 10)"
  virtual std::string algoSuffix_() const = 0;
  /// @return name without the "_orig" ending, when the append-to-source choice is on and it has one
  std::string cleanName_(const std::string& name) const;
  static kelCore::Vec3 pointToVec_(const PIPoint& point) { return {point.x, point.y, point.z}; }

  bool appendToSource_ = false;
};

} // namespace QtSep
