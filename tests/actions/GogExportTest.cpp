#include "actions/GogExportAction.h"
#include "actions/GogExportDialog.h"
#include "host/GenericDataTags.h"
#include "host/PIData.h"
#include "support/ServerFixture.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <sstream>

using namespace QtSep;

namespace
{

class GogExport : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::clockSetBegin(0.0);
    PIData::clockSetEnd(100.0);
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
      point.position = {0.5, -2.0, 304.8};
      point.velocity = {3.0, 4.0, 0.0};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  std::string write(UniqueID_t id, GogExportDialog::ExportType type, const QColor& colour, bool trackColour,
                    double offset = 0.0)
  {
    std::ostringstream out;
    GogExportAction::exportToGog_(out, id, 3, type, GogExportDialog::DASHED, 2, colour, offset, trackColour, true);
    return out.str();
  }
};

} // namespace

TEST_F(GogExport, ASectionHeadsEachRunOfOneColour)
{
  const UniqueID_t one = platform({10});
  EXPECT_EQ("start\ndepthbuffer true\nlinecolor color3\nlinewidth 2\npoints\nlla 28.647890 -114.591559 1000.000032\nend\n",
            write(one, GogExportDialog::LLA_PLOT, QColor(0, 0, 0, 0), false))
      << "one point: points, no line style; no colour given";

  const UniqueID_t hawk = platform({10, 20, 30, 40});
  for (const auto& [time, colour] : {std::make_pair(15.0, "0xFF0000FF"), std::make_pair(35.0, "0x00FF00FF")})
  {
    PIData::PIGenericDataPoint item;
    item.time = time;
    item.tag = KELVOR_GD_TRACKCOLOR;
    item.value = colour;
    PIData::createGenericData(hawk, &item);
  }
  const std::string text = write(hawk, GogExportDialog::ALTITUDE_VS_TIME, QColor(255, 255, 255), true, 5.0);
  EXPECT_EQ("start\ndepthbuffer true\nlinecolor color3 0xFFFFFFFF\nlinewidth 2\nlinestyle dash\nline\n"
            "xy 15.000000 333.333344\n"
            "end\n"
            "start\ndepthbuffer true\nlinecolor color3 0xFF0000FF\nlinewidth 2\nlinestyle dash\nline\n"
            "xy 15.000000 333.333344\nxy 25.000000 333.333344\nxy 35.000000 333.333344\n"
            "end\n"
            "start\ndepthbuffer true\nlinecolor color3 0xFF00FF00\nlinewidth 2\nlinestyle dash\nline\n"
            "xy 35.000000 333.333344\nxy 45.000000 333.333344\n"
            "end\n",
            text)
      << "three sections, each but the first starting with the last point of the one before";
}

TEST_F(GogExport, PlotsInFeetYardsAndDegrees)
{
  const UniqueID_t hawk = platform({10, 20});
  const std::string speed = write(hawk, GogExportDialog::VELOCITY_VS_TIME, QColor(1, 2, 3, 4), false);
  EXPECT_NE(std::string::npos, speed.find("linecolor color3 0x04030201\n")) << "alpha, blue, green, red";
  EXPECT_NE(std::string::npos, speed.find("xy 10.000000 5.468067\n")) << "5 m/s in yards a second";
  const std::string ground = write(hawk, GogExportDialog::LL_PLOT, QColor(0, 0, 0, 0), false);
  EXPECT_NE(std::string::npos, ground.find("ll 28.647890 -114.591559\n"));
  const std::string none = write(platform({}), GogExportDialog::LL_PLOT, QColor(0, 0, 0, 0), false);
  EXPECT_TRUE(none.empty()) << "a platform with no points adds nothing";
}

TEST_F(GogExport, TheDialogOffersTheOffsetForXyPlotsOnlyAndNeedsAFile)
{
  GogExportDialog dialog;
  dialog.loadSettings();
  auto* offset = dialog.findChild<QDoubleSpinBox*>("xOffsetSpinBox");
  EXPECT_FALSE(offset->isEnabled());
  dialog.setExportType(GogExportDialog::ALTITUDE_VS_RANGE);
  EXPECT_TRUE(offset->isEnabled());
  EXPECT_EQ(QColor(255, 255, 255, 255), dialog.defaultColor()) << "opaque white at first";
  EXPECT_TRUE(dialog.useDepthBuffer());
  QPushButton* ok = nullptr;
  for (auto* button : dialog.findChildren<QPushButton*>())
    if (button->text().contains("OK"))
      ok = button;
  ASSERT_NE(nullptr, ok);
  EXPECT_FALSE(ok->isEnabled());
  auto* typed = dialog.findChild<QLineEdit*>("filenameEdit");
  ASSERT_NE(nullptr, typed);
  QTest::keyClicks(typed, "/tmp/typed.gog");
  EXPECT_TRUE(ok->isEnabled()) << "a name being typed is enough, before the field loses focus";
  typed->clear();
  EXPECT_FALSE(ok->isEnabled());
  dialog.setFilename("/tmp/out.gog");
  EXPECT_TRUE(ok->isEnabled());
  dialog.setLineWidth(4);
  dialog.saveSettings();

  GogExportDialog again;
  again.loadSettings();
  EXPECT_EQ(GogExportDialog::ALTITUDE_VS_RANGE, again.exportType());
  EXPECT_EQ(4, again.lineWidth());
  EXPECT_EQ("/tmp/out.gog", again.filename());
}
