#pragma once

#include "host/UniqueID.h"
#include "merge/DropOut.h"
#include "plugin/TabWidget.h"

#include <cstdint>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace kelQt
{
class ColorWidget;
class EntityTreeComposite;
}

namespace QtSep
{

/**
 * @brief The "Manual Merge" tab: builds one good track out of several by priority. The first
 * platform of the ordered list is the primary; each later one fills only what all earlier
 * ones leave open. The tab lists the dropouts of the primary with the platform that fills each
 * stretch, lets the user untick stretches, previews the result in the scene with a temporary
 * platform, and on Merge makes a new permanent platform. The sources are never changed.
 *
 * Any change of the list, the gap, the colours or the time slice removes a running preview
 * and leaves Preview and Merge off until the next Detect.
 */
class ManualMergeWidget : public TabWidget
{
  Q_OBJECT
public:
  /// @param entityTree the editor's entity list, whose selection Add takes
  explicit ManualMergeWidget(kelQt::EntityTreeComposite& entityTree, QWidget* parent = nullptr);
  ~ManualMergeWidget() override;

  void setTabActive(bool) override {}
  /**
   * Follows removed entities (a listed platform leaves the list, a removed preview is cleaned
   * up) and empties the tab when the scenario is replaced.
   */
  void listenToEvents(PIApplicationEvents_t event, void* data) override;
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  /// Shows the time slice in the units now chosen.
  void applyUnitsChange() override;
  /// @return true when the dropout list no longer matches the list, gap, colours or slice
  bool dirty() const override { return dirty_; }

  /// Empties both lists, removes a preview and forgets the time slice.
  void clearAll();
  /// Appends the platforms selected in the entity list that are not listed yet, in their order.
  void addSelectedPlatforms();

  /// @return the listed platforms in priority order, the primary first
  std::vector<UniqueID_t> platformIds() const;
  /// @return the stretches found by the last Detect, parallel to the rows of the dropout list
  const std::vector<DropOut>& dropouts() const { return dropouts_; }
  /// @return the temporary platform of a running preview, 0 without one
  UniqueID_t previewId() const { return previewId_; }
  /// @return the ids of the display rules the running preview handed the host
  const std::vector<long>& ruleIds() const { return ruleIds_; }
  /// @return the time slice's start, seconds since the reference year; -1 before a platform is listed
  double startTime() const { return startTime_; }
  /// @return the time slice's end, seconds since the reference year; -1 before a platform is listed
  double endTime() const { return endTime_; }
  /// Sets the time slice as the time slice dialog would, seconds since the reference year.
  void setTimeSlice(double start, double end);

  /// @return text with a backslash before each regular-expression character of "\+?|{[()^$.#"
  static std::string escapeForRegex(const std::string& text);
  /// The display rules of a preview, before the platform's name is added to them.
  static const char* const RULES[];
  /// The colours of the list positions, 32 bits with red in the low byte and alpha in the high.
  static const std::vector<std::uint32_t> DEFAULT_COLORS;

private slots:
  void setDropoutColor_(const QColor& color);
  void updateDropoutColorWidget_();
  void updateEnables_();
  void removePlatform_();
  void raisePlatform_();
  void lowerPlatform_();
  void showTimeEditor_();
  void detectDropouts_();
  void previewDropouts_();
  void mergeDropouts_();
  void setDirty_();
  void setScenarioTimeAndView_(QTreeWidgetItem* item, int column);

private:
  void buildUi_();
  /// Gives the widgets the names tests and style sheets find them by.
  void nameWidgets_();
  void connectUi_();
  bool isDuplicateId_(UniqueID_t id) const;
  bool atLeastOneUnique_() const;
  /// Moves the current row by delta rows; it stays current and selected.
  void moveCurrentPlatform_(int delta);
  void clearDirty_();
  void updateTimes_();
  void updateTimeLabels_();
  void addDropoutRow_(const DropOut& dropout);
  bool rowChecked_(std::size_t row) const;
  std::uint32_t colorAt_(std::size_t position) const;
  void preview_();
  void addRules_(UniqueID_t id);
  void removeRules_();
  void removePreview_();
  void previewRemovalCleanup_();
  /// Empties the tab after the host replaced the scenario, touching nothing of the host's.
  void forgetScenario_();

  kelQt::EntityTreeComposite& entityTree_;
  UniqueID_t primaryId_ = 0;
  UniqueID_t previewId_ = 0;
  UniqueID_t hiddenId_ = 0; ///< the platform the running preview hides, shown again when it goes
  std::vector<std::uint32_t> colors_;
  std::vector<DropOut> dropouts_;
  bool dirty_ = true;
  std::vector<long> ruleIds_;
  double startTime_ = -1.0;
  double endTime_ = -1.0;

  QToolButton* addToolButton_ = nullptr;
  QToolButton* removeToolButton_ = nullptr;
  QToolButton* upToolButton_ = nullptr;
  QToolButton* downToolButton_ = nullptr;
  QTreeWidget* orderedTreeWidget_ = nullptr;
  QLabel* startTimeLabel_ = nullptr;
  QLabel* endTimeLabel_ = nullptr;
  QLabel* durationLabel_ = nullptr;
  kelQt::ColorWidget* dropoutColorWidget_ = nullptr;
  QPushButton* selectTimePushButton_ = nullptr;
  QSpinBox* gapSpinBox_ = nullptr;
  QPushButton* detectPushButton_ = nullptr;
  QCheckBox* includeNoOriginalIdCheckBox_ = nullptr;
  QTreeWidget* dropoutTreeWidget_ = nullptr;
  QPushButton* clearPushButton_ = nullptr;
  QPushButton* previewPushButton_ = nullptr;
  QPushButton* mergePushButton_ = nullptr;
};

} // namespace QtSep
