#pragma once

#include "plugin/TabWidget.h"

class QPushButton;

namespace QtSep
{

/// The "Miscellaneous" tab: editors of the scenario's properties and of the units of all tabs.
class MiscellaneousWidget : public TabWidget
{
  Q_OBJECT
public:
  explicit MiscellaneousWidget(QWidget* parent = nullptr);

  void setTabActive(bool) override {}
  void listenToEvents(PIApplicationEvents_t, void*) override {}
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  void applyUnitsChange() override {}
  /// The tab edits nothing of its own: every change is applied when its dialog closes.
  bool dirty() const override { return false; }

signals:
  /// The user stored new units for all tabs.
  void unitsChanged();

private slots:
  void editScenario_();
  /// Shows the reference year and start time; on OK every time-stamped value moves with them.
  void editTimes_();
  void editUnits_();
  /// Shows the scenario's issues, checked at once, with their repairs.
  void validate_();

private:
  QPushButton* addRow_(const QString& label, const QString& text, const char* name, const QString& toolTip);
};

} // namespace QtSep
