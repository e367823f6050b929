#include "actions/GogExportDialog.h"

#include "host/PURegistry.h"
#include "widgets/ColorWidget.h"
#include "widgets/FileSelectorWidget.h"
#include "widgets/FormatTooltip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>

#include <limits>

namespace QtSep
{

namespace
{

const char* const FILENAME_KEY = "GOG Export Filename";
const char* const TYPE_KEY = "GOG Export Type";
const char* const STYLE_KEY = "GOG Export Line Style";
const char* const WIDTH_KEY = "GOG Export Line Width";
const char* const COLOR_KEY = "GOG Export Line Color";
const char* const OFFSET_KEY = "GOG Export X Offset";
const char* const TRACK_COLOR_KEY = "GOG Export Use Track Color";
const char* const DEPTH_BUFFER_KEY = "GOG Export Use Depth Buffer";

} // namespace

GogExportDialog::GogExportDialog(QWidget* parent) : QDialog(parent)
{
  setObjectName("GogExportDialog");
  setWindowTitle("Export to GOG");
  type_ = kelQt::namedWithTooltip(new QComboBox, "typeComboBox", kelQt::formatTooltip("Plot Style", "Style of GOG plot."));
  type_->addItems({"LL Plot (Ground Range)", "LLA Plot (Trajectory)", "Altitude vs Time",
                   "Altitude vs Range from Scenario Origin", "Velocity vs Time"});
  style_ = kelQt::namedWithTooltip(new QComboBox, "lineStyleComboBox", kelQt::formatTooltip("Line Style", "Style of GOG lines."));
  style_->addItems({"Solid", "Dashed", "Dotted"});
  width_ = kelQt::namedWithTooltip(new QSpinBox, "lineWidthSpinBox", kelQt::formatTooltip("Line Width", "Pixel width of GOG lines."));
  width_->setRange(1, 10);
  color_ = kelQt::namedWithTooltip(new kelQt::ColorWidget, "colorWidget",
                 kelQt::formatTooltip("Default Color", "Color to use for GOG (use 0x00000000 for no default)"));
  color_->setShowAlpha(true);
  offset_ = kelQt::namedWithTooltip(new QDoubleSpinBox, "xOffsetSpinBox", kelQt::formatTooltip("X Offset", "Value to offset GOG X values by."));
  offset_->setRange(-std::numeric_limits<double>::max(), std::numeric_limits<double>::max());
  trackColor_ = kelQt::namedWithTooltip(new QCheckBox("Use Track Color"), "trackColorCheckBox",
                      kelQt::formatTooltip("Use Track Color", "Use generic data track color."));
  depthBuffer_ = kelQt::namedWithTooltip(new QCheckBox("Use Depth Buffer"), "depthBufferCheckBox",
                       kelQt::formatTooltip("Use Depth Buffer", "Enable the use of depth buffer."));
  file_ = kelQt::namedWithTooltip(new kelQt::FileSelectorWidget, "fileSelector", QString());
  file_->setBrowserTitle("Load To GOG File");
  file_->setFilter("GOG Files (*.gog)");
  file_->setForSaving(true);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* form = new QFormLayout(this);
  form->addRow("Plot Style:", type_);
  form->addRow("Line Style:", style_);
  form->addRow("Line Width:", width_);
  form->addRow("Default Color:", color_);
  form->addRow("X Offset:", offset_);
  form->addRow(trackColor_);
  form->addRow(depthBuffer_);
  form->addRow("GOG Filename:", file_);
  form->addRow(buttons);
  connect(type_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &GogExportDialog::updateEnable_);
  // OK follows the name as it is typed, not only when the field loses focus.
  connect(file_, &kelQt::FileSelectorWidget::textChanged, this, &GogExportDialog::updateEnable_);
  updateEnable_();
}

void GogExportDialog::updateEnable_()
{
  ok_->setEnabled(!file_->filename().isEmpty());
  // The offset moves the x axis of the x-y plots only.
  offset_->setEnabled(type_->currentIndex() >= ALTITUDE_VS_TIME);
}

GogExportDialog::ExportType GogExportDialog::exportType() const { return static_cast<ExportType>(type_->currentIndex()); }
void GogExportDialog::setExportType(int type) { type_->setCurrentIndex(type); }
GogExportDialog::LineStyle GogExportDialog::lineStyle() const { return static_cast<LineStyle>(style_->currentIndex()); }
void GogExportDialog::setLineStyle(int style) { style_->setCurrentIndex(style); }
int GogExportDialog::lineWidth() const { return width_->value(); }
void GogExportDialog::setLineWidth(int width) { width_->setValue(width); }
QColor GogExportDialog::defaultColor() const { return color_->color(); }
void GogExportDialog::setDefaultColor(const QColor& color) { color_->setColor(color); }
double GogExportDialog::xOffset() const { return offset_->value(); }
void GogExportDialog::setXOffset(double offset) { offset_->setValue(offset); }
bool GogExportDialog::useTrackColor() const { return trackColor_->isChecked(); }
void GogExportDialog::setUseTrackColor(bool use) { trackColor_->setChecked(use); }
bool GogExportDialog::useDepthBuffer() const { return depthBuffer_->isChecked(); }
void GogExportDialog::setUseDepthBuffer(bool use) { depthBuffer_->setChecked(use); }
QString GogExportDialog::filename() const { return file_->filename(); }
void GogExportDialog::setFilename(const QString& name) { file_->setFilename(name); }

void GogExportDialog::loadSettings()
{
  setFilename(QString::fromStdString(PURegistry::loadReg(std::string(), FILENAME_KEY)));
  setExportType(PURegistry::loadReg(0, TYPE_KEY));
  setLineStyle(PURegistry::loadReg(0, STYLE_KEY));
  setLineWidth(PURegistry::loadReg(1, WIDTH_KEY));
  setDefaultColor(QColor::fromRgba(static_cast<QRgb>(PURegistry::loadReg(-1, COLOR_KEY))));
  setXOffset(PURegistry::loadReg(0.0, OFFSET_KEY));
  setUseTrackColor(PURegistry::loadReg(false, TRACK_COLOR_KEY));
  setUseDepthBuffer(PURegistry::loadReg(true, DEPTH_BUFFER_KEY));
}

void GogExportDialog::saveSettings() const
{
  PURegistry::saveReg(FILENAME_KEY, filename().toStdString());
  PURegistry::saveReg(TYPE_KEY, static_cast<int>(exportType()));
  PURegistry::saveReg(STYLE_KEY, static_cast<int>(lineStyle()));
  PURegistry::saveReg(WIDTH_KEY, lineWidth());
  PURegistry::saveReg(COLOR_KEY, static_cast<int>(defaultColor().rgba()));
  PURegistry::saveReg(OFFSET_KEY, xOffset());
  PURegistry::saveReg(TRACK_COLOR_KEY, useTrackColor());
  PURegistry::saveReg(DEPTH_BUFFER_KEY, useDepthBuffer());
}

} // namespace QtSep
