#pragma once

#include <QColor>
#include <QDialog>

#include <memory>

class Ui_ScenarioPropertiesDialog;

namespace QtSep
{

/**
 * @brief The scenario-wide properties, for a new scenario ("New Scenario") or the one open
 * ("Edit Scenario"). Angles are shown in degrees; the getters give radians, metres and metres
 * per second, as the host takes them.
 */
class ScenarioPropertiesDialog : public QDialog
{
  Q_OBJECT
public:
  /// @param isNew true to start from the defaults of a new scenario, false to read the open one
  ScenarioPropertiesDialog(bool isNew, QWidget* parent = nullptr);
  ~ScenarioPropertiesDialog() override;

  int referenceYear() const;
  /// @return latitude, longitude (radians) and altitude (metres) of the origin.
  void referenceOrigin(double& lat, double& lon, double& alt) const;
  /// @return x, y offsets (metres) and angle (radians) of the tangent plane.
  void tangentPlaneOffsets(double& x, double& y, double& angle) const;
  QString source() const;
  QString description() const;
  QString classification() const;
  /// @return RGBA
  unsigned int classificationColor() const;
  double windSpeed() const;     ///< metres per second
  double windDirection() const; ///< radians from true north

  /// @return this year, kept to the years a scenario may refer to (1970 to 2038).
  static int currentYear();
  /// The dialog's widgets, for tests.
  Ui_ScenarioPropertiesDialog& ui() { return *ui_; }

private:
  void setToolTips_();
  void readScenario_();

  std::unique_ptr<Ui_ScenarioPropertiesDialog> ui_;
};

} // namespace QtSep
