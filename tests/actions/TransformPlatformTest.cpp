#include "actions/TransformPlatformAction.h"
#include "actions/TransformPlatformDialog.h"
#include "host/PIData.h"
#include "support/ServerFixture.h"
#include "utils/PUCoordConvert.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QPushButton>

#include <cfloat>
#include <cmath>

using namespace QtSep;
using C = TransformPlatformDialog::Component;

namespace
{

constexpr double DEG = M_PI / 180.0;

class Transform : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
  }

  UniqueID_t platform(const std::vector<double>& times)
  {
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, 100.0};
      point.orientation = {0.3, 0.1, 0.0};
      point.velocity = {1.0, 2.0, 3.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  std::vector<PIData::PIPlatformPoint> points(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> out;
    PIData::getDataPoints(id, -DBL_MAX, DBL_MAX, &out);
    return out;
  }

  static TransformPlatformAction::Coefficients only(C component, double multiplication, double addition)
  {
    TransformPlatformAction::Coefficients rows;
    rows[component] = {true, multiplication, addition};
    return rows;
  }
};

} // namespace

TEST_F(Transform, AnglesAndLatitudeTakeTheirAdditionsInDegrees)
{
  const UniqueID_t hawk = platform({10, 20});
  const EntityInfo info{hawk, PI_PLATFORM_TYPE, "Hawk"};
  TransformPlatformAction::transform({info}, only(C::YAW, 0.0, 90.0), kelCore::CoordinateSystem::LLA);
  for (const auto& point : points(hawk))
    EXPECT_NEAR(M_PI / 2, point.orientation.x, 1e-12) << "yaw x 0 + 90 degrees";
  TransformPlatformAction::transform({info}, only(C::X, 2.0, 1.0), kelCore::CoordinateSystem::LLA);
  EXPECT_NEAR(2 * 0.5 + 1.0 * DEG, points(hawk)[0].position.x, 1e-12) << "the factor on radians, the addition in degrees";
  TransformPlatformAction::transform({info}, only(C::Z, 0.0, 0.0), kelCore::CoordinateSystem::LLA);
  EXPECT_EQ(0.0, points(hawk)[1].position.z) << "a cleared altitude";
  TransformPlatformAction::transform({info}, only(C::Z_VELOCITY, 1.0, -3.0), kelCore::CoordinateSystem::LLA);
  EXPECT_NEAR(0.0, points(hawk)[0].velocity.z, 1e-12);
}

TEST_F(Transform, InAnotherSystemTheComponentIsThatSystems)
{
  const UniqueID_t hawk = platform({10});
  const auto before = points(hawk)[0];
  PIData::PICoordReferenceFrame ecef;
  ecef.coordinateSystem = PI_COORDSYS_ECEF;
  std::vector<PIData::PIPlatformPoint> asEcef;
  PIData::getDataPoints(hawk, -DBL_MAX, DBL_MAX, &asEcef, ecef);
  TransformPlatformAction::transform({EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, only(C::Z, 1.0, 1000.0),
                                     kelCore::CoordinateSystem::ECEF);
  std::vector<PIData::PIPlatformPoint> after;
  PIData::getDataPoints(hawk, -DBL_MAX, DBL_MAX, &after, ecef);
  EXPECT_NEAR(asEcef[0].position.z + 1000.0, after[0].position.z, 1e-6) << "Z ECEF moved by 1 km";
  EXPECT_NEAR(asEcef[0].position.x, after[0].position.x, 1e-6);
  EXPECT_NE(before.position.x, points(hawk)[0].position.x) << "so the latitude changed";
}

TEST_F(Transform, TheTimeAxisMovesChildrenAndNeverGoesBelowZero)
{
  const UniqueID_t hawk = platform({10, 20});
  PIData::PIBeamHeader beamHeader;
  const UniqueID_t beam = PIData::createBeam(hawk, &beamHeader, nullptr, true);
  const PIData::PIBeamPoint pointing{0.1, 0.0, 100.0, 15.0};
  PIData::addDataPoint(beam, &pointing);
  const std::vector<unsigned long> changed = TransformPlatformAction::transform(
    {EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, only(C::TIME, 2.0, 5.0), kelCore::CoordinateSystem::LLA);
  EXPECT_EQ(25.0, points(hawk)[0].time);
  EXPECT_EQ(45.0, points(hawk)[1].time);
  std::vector<PIData::PIBeamPoint> beamPoints;
  PIData::getDataPoints(beam, -DBL_MAX, DBL_MAX, &beamPoints);
  ASSERT_EQ(1u, beamPoints.size());
  EXPECT_EQ(35.0, beamPoints[0].time) << "the beam follows its platform";
  EXPECT_EQ(2u, changed.size());

  TransformPlatformAction::transform({EntityInfo{hawk, PI_PLATFORM_TYPE, "Hawk"}}, only(C::TIME, 1.0, -30.0),
                                     kelCore::CoordinateSystem::LLA);
  EXPECT_EQ(25.0, points(hawk)[0].time) << "25 - 30 is below zero: the platform stays";

  PIData::PIPlatformHeader header;
  PIData::PIPlatformPoint fixed;
  fixed.time = -1.0;
  fixed.position = {0.5, -2.0, 10.0};
  const UniqueID_t site = PIData::createPlatform(&header, &fixed);
  auto rows = only(C::TIME, 1.0, 100.0);
  rows[C::Z] = {true, 1.0, 5.0};
  TransformPlatformAction::transform({EntityInfo{site, PI_PLATFORM_TYPE, "Site"}}, rows, kelCore::CoordinateSystem::LLA);
  ASSERT_EQ(1u, points(site).size());
  EXPECT_EQ(-1.0, points(site)[0].time) << "a static platform stays static";
  EXPECT_EQ(15.0, points(site)[0].position.z) << "its other fields are transformed";
  EXPECT_EQ(86390.0, TransformPlatformAction::fixReferenceTimeEci_(-10.0));
  EXPECT_EQ(100.0, TransformPlatformAction::fixReferenceTimeEci_(86500.0));
}

TEST_F(Transform, TheDialogWantsOneTickedRowThatIsNoIdentity)
{
  TransformPlatformDialog dialog;
  EXPECT_EQ("Transform Platform", dialog.windowTitle());
  QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  EXPECT_FALSE(ok->isEnabled());
  dialog.findChild<QCheckBox*>("yawCheckBox")->setChecked(true);
  EXPECT_FALSE(ok->isEnabled()) << "ticked, but x 1 + 0";
  dialog.findChild<QDoubleSpinBox*>("yawAddition")->setValue(90.0);
  EXPECT_TRUE(ok->isEnabled());
  EXPECT_EQ(" deg", dialog.findChild<QDoubleSpinBox*>("latAddition")->suffix()) << "latitude in LLA";
  auto* systems = dialog.findChild<QComboBox*>("coordinateSystemComboBox");
  systems->setCurrentIndex(systems->findData(static_cast<int>(kelCore::CoordinateSystem::ECEF)));
  EXPECT_EQ(kelCore::CoordinateSystem::ECEF, dialog.coordinateSystem());
  EXPECT_EQ(" m", dialog.findChild<QDoubleSpinBox*>("latAddition")->suffix());
  const auto rows = dialog.getCoefficients();
  EXPECT_TRUE(rows[C::YAW].enabled);
  EXPECT_EQ(90.0, rows[C::YAW].addition);
  EXPECT_FALSE(rows[C::TIME].enabled);
}

TEST(CoordConvert, HostAndKelCoreSystemsMapBothWays)
{
  EXPECT_EQ(kelCore::CoordinateSystem::XEAST, PUCoordConvert::convertKelCore(PI_COORDSYS_XEAST));
  EXPECT_EQ(kelCore::CoordinateSystem::ECI, PUCoordConvert::convertKelCore(PI_COORDSYS_ECI));
  EXPECT_EQ(kelCore::CoordinateSystem::LLA, PUCoordConvert::convertKelCore(PI_COORDSYS_LLA_7));
  EXPECT_EQ(kelCore::CoordinateSystem::LLA, PUCoordConvert::convertKelCore(static_cast<PICoordSystem_t>(12)));
  for (int value = 1; value <= 8; ++value)
  {
    const auto system = static_cast<kelCore::CoordinateSystem>(value);
    EXPECT_EQ(system, PUCoordConvert::convertKelCore(PUCoordConvert::convertPICoordSystem(system))) << value;
  }
  EXPECT_EQ(PI_COORDSYS_LLA, PUCoordConvert::convertPICoordSystem(kelCore::CoordinateSystem::NONE));

  PIData::PICoordReferenceFrame frame;
  frame.coordinateSystem = PI_COORDSYS_ENU;
  frame.latOrigin = 0.5;
  frame.lonOrigin = -2.0;
  frame.altOrigin = 10.0;
  const kelCore::CoordinateConverter converter = PUCoordConvert::makeCoordConvert(frame);
  EXPECT_EQ(0.5, converter.referenceLat());
  PIData::PIPlatformPoint point;
  PUCoordConvert::convertToRefFrame(7.0, kelCore::Coordinate(kelCore::CoordinateSystem::LLA, {0.5, -2.0, 10.0}), frame,
                                    point, converter);
  EXPECT_NEAR(0.0, point.position.x, 1e-6) << "the origin is the frame's zero";
  EXPECT_EQ(7.0, point.time);
  EXPECT_EQ(PI_INVALID_POINT, point.orientation) << "no orientation given, none made";
}
