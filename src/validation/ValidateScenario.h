#pragma once

#include "host/UniqueID.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace QtSep
{

/**
 * Walks the in-memory scenario for the common errors that make it play wrongly: entities
 * without data, and data outside the time span of the entity that hosts them. Each finding is
 * an Issue, which may offer Solutions that repair the scenario when applied. The walk itself
 * changes nothing.
 */
class ValidateScenario
{
public:
  /// The kinds of issue.
  enum Code
  {
    NO_NON_STATIC_PLATFORM = 0,
    NO_POINTS,
    TOO_FEW_POINTS,
    OUTSIDE_HOST_RANGE,
    CHILD_OUTSIDE_HOST_RANGE,
    NO_COLOR,
    COLOR_OUTSIDE_RANGE,
    NO_STATE,
    STATE_OUTSIDE_RANGE,
    NO_TARGET,
    TARGET_OUTSIDE_RANGE,
    NO_DRAW_STYLE,
    DRAW_STYLE_OUTSIDE_RANGE,
    MAX_RANGE_OUTSIDE_RANGE,
    WIDTH_OUTSIDE_RANGE,
    OFFSET_OUTSIDE_RANGE
  };

  /// A repair of an issue.
  class Solution
  {
  public:
    /// Whether the repair was tried and how it went.
    enum State
    {
      NOT_TRIED = 0,
      APPLIED = 1,
      FAILED = 2
    };
    virtual ~Solution() = default;
    virtual std::string title() const = 0;
    virtual std::string toolTip() const = 0;
    /// Repairs the scenario. @return 0 for success
    virtual int apply() = 0;
    /// @return true when other repairs the same entity the same way, so that the two can be one
    virtual bool canMerge(const Solution* other) const = 0;
    /// Takes other's extent into this one.
    virtual void merge(const Solution* other) = 0;
    virtual State state() const = 0;
  };

  /// One finding, owning its repairs.
  class Issue
  {
  public:
    /// @param id the entity concerned, 0 for the whole scenario; the issue owns the solutions
    Issue(Code code, UniqueID_t id, Solution* first = nullptr, Solution* second = nullptr);
    virtual ~Issue();
    Issue(const Issue&) = delete;
    Issue& operator=(const Issue&) = delete;

    Code code() const { return code_; }
    UniqueID_t uniqueId() const { return uniqueId_; }
    /// @return the text shown for the issue, with the entity's name
    std::string description() const;
    /// Copies the repairs' pointers; the issue keeps them.
    void getSolutions(std::vector<Solution*>& solutions) const;
    std::size_t numberOfSolutions() const { return solutions_.size(); }
    /// @return false once a repair applied; otherwise true while one is untried
    bool canApplyASolution() const;
    /// Takes ownership.
    void appendSolution(Solution* solution);

  private:
    Code code_;
    UniqueID_t uniqueId_;
    std::vector<std::unique_ptr<Solution>> solutions_;
  };

  ValidateScenario();
  ~ValidateScenario();

  /// Walks the scenario anew. @return 0; 1 when no scenario is initialised
  int validate();
  /// Copies the issues' pointers; the checker keeps them until the next validate.
  void getIssues(std::vector<Issue*>& issues) const;
  /// @return true when any issue can still be repaired
  bool anySolutionsAvaiable() const;

  /// Told of each repair that Fix All tried: the issue's and the solution's index, and whether it applied.
  using FixTried = std::function<void(std::size_t issue, std::size_t solution, bool applied)>;
  /**
   * Fix All: for each issue that can still be repaired, tries its untried solutions in order
   * and stops at the first that applies, so "the first solution listed" is the first that works.
   * @param tried told of every attempt, if set @return the number of issues repaired
   */
  std::size_t fixAll(const FixTried& tried = FixTried());

  /// Tables of this prefix are the host's own and never reported.
  static const std::string INTERNAL_TABLE_PREFIX;

private:
  void clearIssues_();
  void add_(Issue* issue);
  void mergeOrAppend_(Issue* issue);

  void validatePlatform_(UniqueID_t id, bool& nonStatic);
  void validateBeams_(UniqueID_t host, double start, double end);
  void validateGates_(UniqueID_t host, double start, double end);
  void validateLasers_(UniqueID_t host, double start, double end);
  void validateLobs_(UniqueID_t host, double start, double end);
  void validateProjectors_(UniqueID_t host, double start, double end);
  void validateCustomRenderers_(UniqueID_t host, double start, double end);
  void validateBeam_(UniqueID_t id, double start, double end);
  void validateGate_(UniqueID_t id, double start, double end);
  void validateLaser_(UniqueID_t id, double start, double end);
  void validateLob_(UniqueID_t id, double start, double end);
  void validateProjector_(UniqueID_t id, double start, double end);
  void validateCustomRenderer_(UniqueID_t id, double start, double end);
  /// Issue 4 when the entity's points reach outside its host's range. @return false when it has no points
  template <typename Point>
  bool validateSpan_(UniqueID_t id, double start, double end, bool emptyIsFine, double& first);
  void validateData_(UniqueID_t id, double start, double end, bool allowExpand);
  void validateCategoryData_(UniqueID_t id, double start, double end, bool allowExpand);
  void validateGenericData_(UniqueID_t id, double start, double end, bool allowExpand);
  void validateDataTables_(UniqueID_t id, double start, double end, bool allowExpand);
  void validateDataTable_(UniqueID_t id, long table, double start, double end, bool allowExpand);
  void validateColor_(UniqueID_t id, double end);
  void validateState_(UniqueID_t id, double end);
  void validateTarget_(UniqueID_t id, double end);
  void validateLobDrawStyle_(UniqueID_t id, double end);
  void validateLaserSeries_(UniqueID_t id, double end);
  /// Issue 3 for data reaching outside [start, end], with its repairs.
  void outsideRange_(UniqueID_t id, double first, double last, bool allowExpand, int kind, long table = 0);

  std::vector<std::unique_ptr<Issue>> issues_;
};

} // namespace QtSep
