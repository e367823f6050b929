#pragma once

#include "datasources/DataSource.h"
#include "host/PIPoint.h"
#include "kelCore/Coordinate.h"
#include "kelCore/CoordinateConverter.h"
#include "kelCore/CoordinateSystem.h"
#include "kelCore/GeodeticFormat.h"

#include <QObject>

#include <deque>
#include <memory>

namespace kelCore
{
class UnitContext;
class UnitContextFormatter;
}

namespace QtSep
{

class FenceSelectionWidget;

/**
 * @brief The TSPI points of a platform: one row a point, thirteen columns, shown and edited in
 * the user's coordinate system.
 *
 * Points stay stored as latitude, longitude (radians), altitude (metres), yaw, pitch, roll
 * (radians) and an east, north, up velocity (m/s); every cell converts on reading and every
 * edit converts back, through one converter set up with the scenario's reference frame when
 * the source is made. Dirty cells are judged on the stored form, so a change of display
 * system alone dirties nothing. Calc. Head and Calc. Speed derive from each row and the row
 * before it. A scratch row holds the point as read and as edited in 168 bytes.
 */
class PlatformDataSource : public QObject, public DataSource
{
  Q_OBJECT
public:
  /// The columns, alike in every coordinate system.
  enum Column
  {
    TIME = 0,
    POSITION_0 = 1,
    POSITION_1 = 2,
    POSITION_2 = 3,
    CALC_HEAD = 4,
    ORIENTATION_0 = 5,
    ORIENTATION_1 = 6,
    ORIENTATION_2 = 7,
    CALC_SPEED = 8,
    SPEED = 9,
    VELOCITY_0 = 10,
    VELOCITY_1 = 11,
    VELOCITY_2 = 12,
    COLUMN_COUNT = 13
  };

  /// @param formatter,context the user's units; both outlive the source
  PlatformDataSource(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                     QObject* parent = nullptr);
  ~PlatformDataSource() override;

  void setUniqueId(unsigned long id, bool load) override;
  unsigned long uniqueId() const override { return id_; }
  int rowCount() const override { return static_cast<int>(rows_.size()); }
  int columnCount() const override { return static_cast<int>(columns_.size()); }
  double time(int row) const override;
  QVariant data(int row, int column, Role role) const override;
  std::string columnName(int column) const override;
  bool isValid() const override;
  bool canDeleteRow() const override { return rowCount() > 1; }
  bool isDirty() const override { return dirty_; }
  bool isDirty(int row, int column) const override;
  void commitChanges(bool refresh) override;
  void deleteRows(const std::vector<int>& rows) override;
  int setData(int row, int column, const QVariant& value) override;
  int revert(int row, int column) override;
  bool isColumnEditable(int column) const override;
  int moveRow(int from, int to) override;
  int getCopyDestination(int row) const override;
  void copyRow(int row, int destination) override;
  bool isAddedRow(int row) const override { return inRange_(row) && rows_[row].added; }
  QWidget* widget() override;
  bool handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) override;
  void applyUnitsChange() override;

  /// Shows the points in another system; rebuilds the column titles. No effect when unchanged.
  void setCoordinateSystem(kelCore::CoordinateSystem system);
  kelCore::CoordinateSystem coordinateSystem() const { return coordinateSystem_; }

signals:
  /// A fence in the 3-D view picked these point times, ascending.
  void selectedTimes(std::vector<double> times);

private:
  /// A point as stored: time (seconds, -1 static), latitude, longitude (radians), altitude
  /// (metres), yaw, pitch, roll (radians), east, north, up velocity (m/s). Orientation and
  /// velocity hold PI_INVALID_DOUBLE where the point has none.
  struct Fix
  {
    double time = 0.0;
    PIPoint position;
    PIPoint orientation;
    PIPoint velocity;
  };

  /// One row: the point as read, the point as edited, and whether the row was added.
  struct Entry
  {
    explicit Entry(const Fix& fix, bool isAdded = false) : asRead(fix), edited(fix), added(isAdded) {}
    Fix asRead;
    Fix edited;
    bool added;
  };

  bool inRange_(int row) const { return row >= 0 && row < rowCount(); }
  /// The point as stored, in LLA, with the elapsed ECI time of its time (0 for a static point).
  kelCore::Coordinate storedCoordinate_(const Fix& point) const;
  /// The point in the display system.
  void convert_(const Fix& point, kelCore::Coordinate& out) const;
  /// A coordinate of the display system back into the point; its time stays.
  void convert_(const kelCore::Coordinate& in, Fix& point) const;
  /// Parses text into one value of a coordinate of the display system. @return 0, or 1 when refused
  int setData_(kelCore::Coordinate& coordinate, const PIPoint& orientation, Column column,
               const std::string& text) const;
  int setRaw_(Fix& point, int column, double value) const;
  QVariant display_(int column, double value) const;
  /// @return the display system's value of a converted column, or nothing when the point has none
  static bool converted_(const kelCore::Coordinate& coordinate, int column, double& value);
  static double speed_(const Fix& point);
  static double calculateSpeed_(const Fix& previous, const Fix& current);
  static double calculateHeading_(const Fix& previous, const Fix& current);
  /// @return the short name of a geodetic format, as a column heading shows it
  static std::string getGeodeticFormatAbbreviation_(kelCore::GeodeticFormat format);

  const kelCore::UnitContextFormatter& formatter_;
  const kelCore::UnitContext& context_;
  unsigned long id_ = 0;
  std::vector<std::string> columns_;
  std::deque<Entry> rows_;
  bool dirty_ = false;
  kelCore::CoordinateSystem coordinateSystem_ = kelCore::CoordinateSystem::NONE;
  kelCore::CoordinateConverter converter_;
  double eciReferenceTime_ = 0.0;
  std::unique_ptr<FenceSelectionWidget> fence_;
};

} // namespace QtSep
