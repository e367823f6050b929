#pragma once

#include "plugin/TabWidget.h"

#include <memory>
#include <vector>

namespace Ui
{
class AutomaticMergeWidget;
}

namespace QtSep
{

struct MergeInfo;

/**
 * The "Auto Merge" tab: finds groups of platforms that are one object by name (and optionally
 * original ID), lists them for review with a tick each, and merges the ticked groups into their
 * earliest platform, removing the others.
 */
class AutomaticMergeWidget : public TabWidget
{
  Q_OBJECT
public:
  explicit AutomaticMergeWidget(QWidget* parent = nullptr);
  ~AutomaticMergeWidget() override;

  void setTabActive(bool) override {}
  /// Clears the review when a platform of a listed group is removed.
  void listenToEvents(PIApplicationEvents_t event, void* data) override;
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  void applyUnitsChange() override {}
  /// @return true while groups are listed for review
  bool dirty() const override { return !groups_.empty(); }

  /// @return the groups found, in the order listed
  const std::vector<std::unique_ptr<MergeInfo>>& groups() const { return groups_; }

private slots:
  void detectPlatformMatches_();
  void mergePlatforms_();
  void cancel_();
  void checkAll_();
  void uncheckAll_();

private:
  void updateEnable_();
  void clearGroups_();
  void setAllChecked_(Qt::CheckState state);
  void warn_(const QString& text);

  std::unique_ptr<Ui::AutomaticMergeWidget> ui_;
  std::vector<std::unique_ptr<MergeInfo>> groups_;
  bool merging_ = false;
};

} // namespace QtSep
