#include "actions/AddEntityAction.h"
#include "actions/OptionDialog.h"
#include "host/PIData.h"
#include "host/PIDataTables.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QLineEdit>
#include <QSignalSpy>

using namespace QtSep;

namespace
{

class AddingEntities : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    qRegisterMetaType<UniqueID_t>("UniqueID_t");
  }

  /// @return the texts of the "Add Entity" sub-menu for one selected entity, "-" for a rule
  QStringList offered(const EntityInfo& host)
  {
    std::vector<MenuInfo*> items;
    action.menuRequested({host}, items);
    QStringList texts;
    for (MenuInfo* item : items)
    {
      auto* submenu = dynamic_cast<SubmenuInfo*>(item);
      if (!submenu)
        continue;
      EXPECT_EQ("Add Entity", submenu->text());
      EXPECT_EQ(260, submenu->weight());
      for (MenuInfo* entry : submenu->items())
        texts << (dynamic_cast<ActionInfo*>(entry) ? static_cast<ActionInfo*>(entry)->action()->text() : "-");
    }
    for (MenuInfo* item : items)
      delete item;
    return texts;
  }

  /// Chooses an entry for host and answers its dialog. @param answer sees the dialog first; false rejects it
  void add(const EntityInfo& host, const QString& entry, std::function<bool(OptionDialog&)> answer)
  {
    std::vector<MenuInfo*> items;
    action.menuRequested({host}, items);
    QAction* chosen = nullptr;
    for (MenuInfo* entryInfo : static_cast<SubmenuInfo*>(items.front())->items())
    {
      auto* info = dynamic_cast<ActionInfo*>(entryInfo);
      if (info && info->action()->text() == entry)
        chosen = info->action();
    }
    ASSERT_NE(nullptr, chosen);
    {
      WhenShown<OptionDialog> answered([answer](OptionDialog& dialog) { answer(dialog) ? dialog.accept() : dialog.reject(); });
      chosen->trigger();
    }
    for (MenuInfo* item : items)
      delete item;
  }

  static QStringList options(OptionDialog& dialog)
  {
    auto* combo = dialog.findChild<QComboBox*>("optionComboBox");
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
      texts << combo->itemText(i);
    return texts;
  }

  AddEntityAction action{nullptr};
};

} // namespace

TEST_F(AddingEntities, EachHostOffersTheKindsItCanHold)
{
  EXPECT_EQ((QStringList{"Platform...", "Custom Rendering..."}), offered(EntityInfo{0, PI_ALL_TYPES, ""}));
  EXPECT_EQ((QStringList{"Platform...", "-", "Beam...", "Laser...", "LOB...", "Projector...", "Custom Rendering..."}),
            offered(EntityInfo{7, PI_PLATFORM_TYPE, ""}));
  EXPECT_EQ((QStringList{"Platform...", "-", "Gate...", "Projector..."}), offered(EntityInfo{8, PI_BEAM_TYPE, ""}));
  std::vector<MenuInfo*> none;
  action.menuRequested({EntityInfo{7, PI_PLATFORM_TYPE, ""}, EntityInfo{8, PI_BEAM_TYPE, ""}}, none);
  EXPECT_TRUE(none.empty()) << "only for one entity";
}

TEST_F(AddingEntities, ANewPlatformIsNamedByCountAndSpansTheClock)
{
  PIData::clockSetBegin(0.0);
  PIData::clockSetEnd(100.0);
  QSignalSpy added(&action, &AddEntityAction::entityAdded);
  add(EntityInfo{0, PI_ALL_TYPES, ""}, "Platform...", [](OptionDialog& dialog) {
    EXPECT_EQ("Add Platform", dialog.windowTitle());
    EXPECT_EQ("New_Platform_0", dialog.getName());
    EXPECT_TRUE(dialog.findChild<QComboBox*>("optionComboBox")->isHidden()) << "platforms have no variants";
    return true;
  });
  ASSERT_EQ(1, added.count());
  const auto id = static_cast<UniqueID_t>(added.at(0).at(0).toULongLong());
  EXPECT_EQ(PI_PLATFORM_TYPE, PIData::getObjectType(id));
  EXPECT_EQ(2u, PIData::getNumberDataPoints(id));
  EXPECT_EQ(100.0, PIData::getLatestTime(id));

  add(EntityInfo{0, PI_ALL_TYPES, ""}, "Platform...", [](OptionDialog&) { return false; });
  EXPECT_EQ(1, added.count()) << "cancelled: nothing made";
}

TEST_F(AddingEntities, GatesOfferTargetOnlyOnTargetBeamsAndChildrenStartWithTheirHost)
{
  PIData::PIPlatformHeader header;
  header.name = "Empty";
  const UniqueID_t platform = PIData::createPlatform(&header, nullptr);
  QSignalSpy added(&action, &AddEntityAction::entityAdded);
  add(EntityInfo{platform, PI_PLATFORM_TYPE, "Empty"}, "Beam...", [](OptionDialog& dialog) {
    EXPECT_EQ((QStringList{"Absolute", "Body", "Target", "Unknown"}), options(dialog));
    dialog.findChild<QComboBox*>("optionComboBox")->setCurrentText("Target");
    return true;
  });
  ASSERT_EQ(1, added.count());
  const auto beam = static_cast<UniqueID_t>(added.at(0).at(0).toULongLong());
  EXPECT_EQ(-1.0, PIData::getEarliestTime(beam)) << "the earliest time of a host without points";
  PIData::PIBeamHeader beamHeader;
  PIData::getHeader(beam, &beamHeader);
  EXPECT_EQ(PIData::PI_BEAM_TARGET, beamHeader.beamType);
  EXPECT_DOUBLE_EQ(0.0872664626, beamHeader.horizontalBeamWidth);

  add(EntityInfo{beam, PI_BEAM_TYPE, ""}, "Gate...", [](OptionDialog& dialog) {
    EXPECT_EQ((QStringList{"Absolute", "Body", "Target"}), options(dialog));
    return false;
  });
  const UniqueID_t plainBeam = PIData::createBeam(platform, &beamHeader, nullptr, true);
  beamHeader.beamType = PIData::PI_BEAM_ABSOLUTE;
  PIData::updateHeader(plainBeam, &beamHeader);
  add(EntityInfo{plainBeam, PI_BEAM_TYPE, ""}, "Gate...", [](OptionDialog& dialog) {
    EXPECT_EQ((QStringList{"Absolute", "Body"}), options(dialog));
    dialog.findChild<QLineEdit*>("nameLineEdit")->clear();
    auto* buttons = dialog.findChild<QDialogButtonBox*>("buttonBox");
    EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled()) << "no name, no OK";
    return false;
  });
}

TEST_F(AddingEntities, ACustomRenderingGetsTheTableOfItsShape)
{
  QSignalSpy added(&action, &AddEntityAction::entityAdded);
  add(EntityInfo{0, PI_ALL_TYPES, ""}, "Custom Rendering...", [](OptionDialog& dialog) {
    EXPECT_EQ(8, options(dialog).size());
    EXPECT_EQ("Custom Ellipse", options(dialog).front()) << "in alphabetical order";
    dialog.findChild<QComboBox*>("optionComboBox")->setCurrentText("Custom Line");
    return true;
  });
  ASSERT_EQ(1, added.count());
  const auto id = static_cast<UniqueID_t>(added.at(0).at(0).toULongLong());
  PIData::PICustomRenderingHeader header;
  PIData::getHeader(id, &header);
  EXPECT_EQ("Custom Line", header.renderer);
  long table = 0;
  ASSERT_EQ(1, PIData::findDataTable(id, AddEntityAction::RENDERING_TABLE, &table));
  std::vector<long> columns;
  PIData::getDataTableColumns(table, &columns);
  QStringList names;
  for (long column : columns)
  {
    std::string name;
    PIData::getDataTableColumnName(table, column, &name);
    names << QString::fromStdString(name);
  }
  EXPECT_EQ((QStringList{"Azimuth", "Elevation", "Range", "Horizontal Uncertainty", "Vertical Uncertainty"}), names);
  UTILS::UnitType_t units = UTILS::UNITS_NONE;
  PIData::getDataTableColumnUnits(table, columns[2], &units);
  EXPECT_EQ(UTILS::UNITS_DISTANCE, units);
}
