#pragma once

#include "plugin/TabWidget.h"

#include <memory>
#include <vector>

class QCheckBox;
class QGridLayout;
class QPushButton;
class QSpinBox;
class QTimer;

namespace kelQt
{
class BoundBooleanSetting;
class BoundSetting;
class BoundIntegerSetting;
class EntityTreeComposite;
class SelectableEntityFilter;
class Settings;
class SettingsGroup;
}
namespace PluginUtils
{
class EntityTreeModel;
}

namespace QtSep
{

/**
 * @brief The "Make Stationary" tab: detects the platforms that stay within chosen deltas over
 * the whole scenario, lists them in a tree of their own, and converts those the user picks.
 *
 * The deltas are kept in the settings under "Private/ScenarioEditor/MakeStationary"; "Maintain
 * Life Span" is the same registry setting the "Make Stationary" command reads. Detect stays off
 * until a criterion changes or the list is cancelled.
 */
class MakeStationaryWidget : public TabWidget
{
  Q_OBJECT
public:
  explicit MakeStationaryWidget(QWidget* parent = nullptr);
  ~MakeStationaryWidget() override;

  void setTabActive(bool active) override { tabActive_ = active; }
  void listenToEvents(PIApplicationEvents_t, void*) override {}
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  void applyUnitsChange() override {}
  bool dirty() const override { return false; }

  kelQt::EntityTreeComposite& entityTreeComposite() const { return *composite_; }

  /// Settings group of the deltas.
  static const char* const SETTINGS_GROUP;

private slots:
  void setCanDetect_();
  void updateEnable_();
  void detectStaticPlatforms_();
  void makeSelectedPlatformsStatic_();
  void cancel_();
  void updateRegistry_(bool maintainLifeSpan);

private:
  /// A check box and its spin box, bound to their settings, in a row of the form.
  void addDelta_(QGridLayout* grid, const char* name, const QString& label, const QString& suffix, int maximum, int initial,
                 const QString& enableTitle, const QString& enableText, const QString& valueTitle,
                 const QString& valueText, QCheckBox*& check, QSpinBox*& spin);

  std::shared_ptr<kelQt::Settings> settings_;
  std::shared_ptr<kelQt::SettingsGroup> group_;
  /// The deltas' settings, bound to their widgets; they go before the group they observe.
  std::vector<std::unique_ptr<kelQt::BoundSetting>> bound_;
  PluginUtils::EntityTreeModel* model_;
  kelQt::EntityTreeComposite* composite_;
  kelQt::SelectableEntityFilter* filter_; ///< owned by the tree's proxy
  QCheckBox* distanceCheckBox_ = nullptr;
  QSpinBox* distanceSpinBox_ = nullptr;
  QCheckBox* yawCheckBox_ = nullptr;
  QSpinBox* yawSpinBox_ = nullptr;
  QCheckBox* pitchCheckBox_ = nullptr;
  QSpinBox* pitchSpinBox_ = nullptr;
  QCheckBox* rollCheckBox_ = nullptr;
  QSpinBox* rollSpinBox_ = nullptr;
  QCheckBox* lifeSpanCheckBox_;
  QPushButton* detectPushButton_;
  QPushButton* acceptPushButton_;
  QPushButton* cancelPushButton_;
  QTimer* timer_;
  bool canDetect_ = true;
  bool tabActive_ = false;
};

} // namespace QtSep
