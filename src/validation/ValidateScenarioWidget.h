#pragma once

#include "plugin/TabWidget.h"

#include <memory>

class QPushButton;
class QTreeWidget;

namespace QtSep
{

class ValidateScenario;

/**
 * The result of a validation pass: a table of issues with one button per repair. Validate is
 * offered again only after something was repaired; Fix All applies, for every issue, the first
 * repair that works.
 */
class ValidateScenarioWidget : public TabWidget
{
  Q_OBJECT
public:
  explicit ValidateScenarioWidget(QWidget* parent = nullptr);
  ~ValidateScenarioWidget() override;

  void setTabActive(bool) override {}
  /// The table keeps what it showed when the scenario changes.
  void listenToEvents(PIApplicationEvents_t, void*) override {}
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return 0; }
  void applyUnitsChange() override {}
  bool dirty() const override { return false; }
  /// @return wide enough for every column of the issues shown, each at its contents' width
  QSize sizeHint() const override;

public slots:
  /// Runs a new pass and shows its issues.
  void validate();

private slots:
  void fixAll_();
  void applySoluton_(int value);
  void updateEnable_();

private:
  /// @return the button of a row's solution, counted from 1; null when there is none
  QPushButton* button_(int row, int solution) const;
  void disableRow_(int row);

  QPushButton* validateButton_;
  QPushButton* fixAllButton_;
  QTreeWidget* issuesTree_;
  std::unique_ptr<ValidateScenario> validator_;
  int columnCount_ = 0;
  bool changed_ = false;
};

} // namespace QtSep
