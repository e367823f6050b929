#pragma once

#include <QColor>
#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QSpinBox;

namespace kelQt
{
class ColorWidget;
class FileSelectorWidget;
}

namespace QtSep
{

/// The options of an overlay export: plot style, line look, colour, offset and file.
class GogExportDialog : public QDialog
{
  Q_OBJECT
public:
  /// What is plotted for each point.
  enum ExportType
  {
    LL_PLOT = 0,          ///< ground track: latitude, longitude
    LLA_PLOT,             ///< trajectory: latitude, longitude, altitude
    ALTITUDE_VS_TIME,     ///< x-y: time, altitude
    ALTITUDE_VS_RANGE,    ///< x-y: ground range from the scenario origin, altitude
    VELOCITY_VS_TIME      ///< x-y: time, speed
  };
  enum LineStyle
  {
    SOLID = 0,
    DASHED,
    DOTTED
  };

  explicit GogExportDialog(QWidget* parent = nullptr);

  ExportType exportType() const;
  void setExportType(int type);
  LineStyle lineStyle() const;
  void setLineStyle(int style);
  int lineWidth() const;
  void setLineWidth(int width);
  QColor defaultColor() const;
  void setDefaultColor(const QColor& color);
  /// @return what is added to the x values of the x-y plots
  double xOffset() const;
  void setXOffset(double offset);
  bool useTrackColor() const;
  void setUseTrackColor(bool use);
  bool useDepthBuffer() const;
  void setUseDepthBuffer(bool use);
  QString filename() const;
  void setFilename(const QString& name);

  /// Reads the last accepted options from the host's settings.
  void loadSettings();
  /// Writes the options to the host's settings.
  void saveSettings() const;

private:
  void updateEnable_();

  QComboBox* type_;
  QComboBox* style_;
  QSpinBox* width_;
  kelQt::ColorWidget* color_;
  QDoubleSpinBox* offset_;
  QCheckBox* trackColor_;
  QCheckBox* depthBuffer_;
  kelQt::FileSelectorWidget* file_;
  QPushButton* ok_;
};

} // namespace QtSep
