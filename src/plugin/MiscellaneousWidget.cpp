#include "plugin/MiscellaneousWidget.h"

#include "actions/CreateScenario.h"
#include "actions/ScenarioPropertiesDialog.h"
#include "actions/ScenarioTimesDialog.h"
#include "host/PURegistry.h"
#include "processing/AdjustScenarioTimes.h"
#include "plugin/ActionUtilities.h"
#include "plugin/UnitsWidget.h"
#include "validation/ValidateScenarioWidget.h"
#include "widgets/GuardedDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace QtSep
{

MiscellaneousWidget::MiscellaneousWidget(QWidget* parent) : TabWidget(parent)
{
  setLayout(new QFormLayout);
  QPushButton* edit = addRow_("Edit Scenario", "Edit...", "editPushButton",
    "Displays an editor to adjust most scenario properties.");
  connect(edit, &QPushButton::clicked, this, &MiscellaneousWidget::editScenario_);
  QPushButton* times = addRow_("Edit Scenario Times:", "Edit Times...", "timesPushButton",
    "Displays a time editor to adjust the reference year and/or start time.");
  connect(times, &QPushButton::clicked, this, &MiscellaneousWidget::editTimes_);
  QPushButton* units = addRow_("Units that apply to all tabs:", "Edit Units...", "unitsPushButton",
    "Displays a unit editor.");
  connect(units, &QPushButton::clicked, this, &MiscellaneousWidget::editUnits_);
  QPushButton* validate = addRow_("Validate Scenario:", "Validate...", "validatePushButton",
    "Checks the in-memory scenario for common errors.");
  connect(validate, &QPushButton::clicked, this, &MiscellaneousWidget::validate_);
}

QPushButton* MiscellaneousWidget::addRow_(const QString& label, const QString& text, const char* name,
  const QString& toolTip)
{
  auto* button = new QPushButton(text);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  static_cast<QFormLayout*>(layout())->addRow(label, button);
  return button;
}

void MiscellaneousWidget::editScenario_()
{
  kelQt::GuardedDialog<ScenarioPropertiesDialog> dialog(false, this);
  if (dialog.exec() != QDialog::Accepted)
    return;
  applyScenarioProperties(*dialog);
  fireChangeCallback(0UL);
}

void MiscellaneousWidget::editTimes_()
{
  kelQt::GuardedDialog<ScenarioTimesDialog> dialog(this);
  dialog->setTimeFormat(UnitsWidget::timeFormat(), UnitsWidget::timePrecision());
  dialog->setDurationFormat(UnitsWidget::durationFormat(), UnitsWidget::durationPrecision());
  if (dialog.exec() != QDialog::Accepted)
    return;
  AdjustScenarioTimes().execute(dialog->referenceYear(), dialog->startSeconds());
}

void MiscellaneousWidget::validate_()
{
  kelQt::GuardedDialog<QDialog> dialog(this);
  dialog->setObjectName("ValidateDialog");
  dialog->setWindowTitle("Validate Scenario");
  auto* view = new ValidateScenarioWidget(dialog.get());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);
  auto* column = new QVBoxLayout(dialog.get());
  column->addWidget(view);
  column->addWidget(buttons);
  view->validate();
  dialog->resize(dialog->sizeHint().expandedTo(QSize(700, 400)));
  dialog.exec();
}

void MiscellaneousWidget::editUnits_()
{
  kelQt::GuardedDialog<QDialog> dialog(this);
  dialog->setObjectName("UnitsDialog");
  dialog->setWindowTitle("Edit Units");
  auto* page = new UnitsWidget(dialog.get());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, dialog.get(), &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);
  auto* column = new QVBoxLayout(dialog.get());
  column->addWidget(page);
  column->addWidget(buttons);
  if (dialog.exec() != QDialog::Accepted)
    return;
  page->saveSettings();
  emit unitsChanged();
}

} // namespace QtSep
