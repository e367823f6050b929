#include "actions/ScenarioPropertiesDialog.h"

#include "host/PIDataScenario.h"
#include "ui_ScenarioPropertiesDialog.h"
#include "widgets/FormatTooltip.h"

#include <QDate>

#include <algorithm>

#include <cmath>

namespace QtSep
{

namespace
{

constexpr double DEG = M_PI / 180.0;

unsigned int toRgba(const QColor& c)
{
  return (static_cast<unsigned int>(c.red()) << 24) | (static_cast<unsigned int>(c.green()) << 16) |
         (static_cast<unsigned int>(c.blue()) << 8) | static_cast<unsigned int>(c.alpha());
}

QColor fromRgba(unsigned int c) { return QColor((c >> 24) & 0xFF, (c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }

} // namespace

ScenarioPropertiesDialog::ScenarioPropertiesDialog(bool isNew, QWidget* parent)
  : QDialog(parent), ui_(std::make_unique<Ui_ScenarioPropertiesDialog>())
{
  ui_->setupUi(this);
  setObjectName("ScenarioPropertiesDialog");
  setWindowTitle(isNew ? tr("New Scenario") : tr("Edit Scenario"));
  setToolTips_();
  ui_->source->setText("Scenario Editor Plug-in");
  ui_->source->setEnabled(isNew);
  if (isNew)
  {
    ui_->referenceYear->setValue(currentYear());
    ui_->description->setText("Manually entered scenario data");
    ui_->classification->setText("UNCLASSIFIED");
  }
  else
    readScenario_();
}

ScenarioPropertiesDialog::~ScenarioPropertiesDialog() = default;

int ScenarioPropertiesDialog::currentYear() { return std::clamp(QDate::currentDate().year(), 1970, 2038); }

void ScenarioPropertiesDialog::readScenario_()
{
  ui_->referenceYear->setValue(PIData::getReferenceYear());
  ui_->latitude->setValue(PIData::getLatitudeOrigin() / DEG);
  ui_->longitude->setValue(PIData::getLongitudeOrigin() / DEG);
  ui_->altitude->setValue(PIData::getAltitudeOrigin());
  ui_->xOffset->setValue(PIData::getTangentPlaneOffsetX());
  ui_->yOffset->setValue(PIData::getTangentPlaneOffsetY());
  ui_->angleOffset->setValue(PIData::getTangentPlaneAngle() / DEG);
  ui_->description->setText(QString::fromStdString(PIData::getDescription()));
  ui_->classification->setText(QString::fromStdString(PIData::getClassification()));
  ui_->classificationColor->setColor(fromRgba(PIData::getClassificationColor()));
  ui_->windSpeed->setValue(PIData::getWindSpeed());
  ui_->windDirection->setValue(PIData::getWindDirection() / DEG);
}

void ScenarioPropertiesDialog::setToolTips_()
{
  using kelQt::formatTooltip;
  ui_->referenceYear->setToolTip(formatTooltip(
      "Reference Year", "The year to which time is referenced. All time values are assumed to be seconds since the "
                        "beginning of a year.  Use the Time Editor to change the reference year for an existing scenario."));
  ui_->latitude->setToolTip(formatTooltip("Latitude"));
  ui_->longitude->setToolTip(formatTooltip("Longitude"));
  ui_->altitude->setToolTip(formatTooltip("Altitude"));
  ui_->xOffset->setToolTip(formatTooltip("X Offset"));
  ui_->yOffset->setToolTip(formatTooltip("Y Offset"));
  ui_->angleOffset->setToolTip(formatTooltip("Angle Offset"));
  ui_->source->setToolTip(formatTooltip(
      "Source", "The data source for a new scenario.  The text cannot be changed after the scenario is created."));
  ui_->description->setToolTip(formatTooltip("Description"));
  ui_->classification->setToolTip(formatTooltip("Classification", "Classification label of the data in the scenario."));
  ui_->classificationColor->setToolTip(formatTooltip("Classification Color"));
  ui_->windSpeed->setToolTip(formatTooltip("Wind Speed", "Speed of the wind (in meters/sec)."));
  ui_->windDirection->setToolTip(
      formatTooltip("Wind Direction", "Direction (in degrees) from which the wind is blowing, referenced to True North."));
}

int ScenarioPropertiesDialog::referenceYear() const { return ui_->referenceYear->value(); }

void ScenarioPropertiesDialog::referenceOrigin(double& lat, double& lon, double& alt) const
{
  lat = ui_->latitude->value() * DEG;
  lon = ui_->longitude->value() * DEG;
  alt = ui_->altitude->value();
}

void ScenarioPropertiesDialog::tangentPlaneOffsets(double& x, double& y, double& angle) const
{
  x = ui_->xOffset->value();
  y = ui_->yOffset->value();
  angle = ui_->angleOffset->value() * DEG;
}

QString ScenarioPropertiesDialog::source() const { return ui_->source->text(); }
QString ScenarioPropertiesDialog::description() const { return ui_->description->text(); }
QString ScenarioPropertiesDialog::classification() const { return ui_->classification->text(); }
unsigned int ScenarioPropertiesDialog::classificationColor() const { return toRgba(ui_->classificationColor->color()); }
double ScenarioPropertiesDialog::windSpeed() const { return ui_->windSpeed->value(); }
double ScenarioPropertiesDialog::windDirection() const { return ui_->windDirection->value() * DEG; }

} // namespace QtSep
