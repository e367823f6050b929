#pragma once

#include "kelCore/CoordinateSystem.h"

#include <QDialog>

#include <array>
#include <map>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QLabel;

namespace QtSep
{

/**
 * @brief The coefficients of a platform transform: for each chosen component of the points,
 * value x multiplication + addition, in a coordinate system the user picks. Nothing is kept in
 * the registry. OK needs one ticked row that is not the identity.
 */
class TransformPlatformDialog : public QDialog
{
  Q_OBJECT
public:
  /// One row: whether it applies, the factor, and the addition (degrees for angles and for
  /// latitude and longitude, metres, m/s or seconds otherwise).
  struct Coefficients
  {
    bool enabled = false;
    double multiplication = 1.0;
    double addition = 0.0;
  };

  /// The rows, in the order getCoefficients gives them.
  enum Component
  {
    TIME,
    X,
    Y,
    Z,
    YAW,
    PITCH,
    ROLL,
    X_VELOCITY,
    Y_VELOCITY,
    Z_VELOCITY,
    COMPONENTS
  };

  explicit TransformPlatformDialog(QWidget* parent = nullptr);

  /// @return the ten rows, in Component order, each value as shown
  std::array<Coefficients, COMPONENTS> getCoefficients() const;
  /// @return the system chosen; LLA when none is current
  kelCore::CoordinateSystem coordinateSystem() const;

private slots:
  void updateLabels_();
  void updateEnable_();

private:
  struct Row
  {
    QLabel* label;
    QCheckBox* check;
    QDoubleSpinBox* multiplication;
    QDoubleSpinBox* addition;
  };

  /// Adds the labels of the rows x to vz for one system.
  void addLabels_(kelCore::CoordinateSystem system, const std::array<const char*, 9>& labels);

  QComboBox* coordinateSystemComboBox_;
  std::array<Row, COMPONENTS> rows_;
  std::map<kelCore::CoordinateSystem, std::array<const char*, 9>> labels_;
  QDialogButtonBox* buttonBox_;
};

} // namespace QtSep
