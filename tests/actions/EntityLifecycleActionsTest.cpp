#include "actions/DeleteAction.h"
#include "actions/DeleteScenarioAction.h"
#include "actions/ExtendLifeAction.h"
#include "actions/RenameAction.h"
#include "actions/ScenarioPropertiesDialog.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "store/StoreListener.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/ConfirmDialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QInputDialog>

using namespace QtSep;

namespace
{

/// Counts the store's reports of changed entity data.
class ChangeCounter : public kelvor::StoreListener
{
public:
  void entityAdded(UniqueID_t, int) override {}
  void entityRemoving(UniqueID_t id) override { removed.push_back(id); }
  void dataChanged(const std::set<UniqueID_t>&) override { ++changes; }
  void scenarioReset() override {}
  void scenarioClosing() override {}
  void referenceYearChanged() override {}
  void clockModeChanged() override {}
  void timeChanged() override {}
  int changes = 0;
  std::vector<UniqueID_t> removed;
};

class LifecycleActions : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    sample = createSampleEntities();
    store.setListener(&counter);
  }
  void TearDown() override
  {
    store.setListener(nullptr);
    ServerFixture::TearDown();
  }

  /// Offers the action the selection through the own menu. @return the entry's text, empty when not offered
  static QString offer(CommandAction& action, const std::vector<EntityInfo>& entities)
  {
    std::vector<MenuInfo*> items;
    action.menuRequested(entities, items);
    const QString text = items.empty() ? QString() : action.action()->text();
    for (MenuInfo* item : items)
      delete item;
    return text;
  }

  EntityInfo info(UniqueID_t id) const { return EntityInfo{id, PIData::getObjectType(id), ""}; }

  SampleEntities sample;
  ChangeCounter counter;
};

} // namespace

TEST_F(LifecycleActions, RenameWritesOnlyANewNameAndNeverALaser)
{
  RenameAction rename(nullptr);
  EXPECT_EQ("Rename...", offer(rename, {info(sample.beam)}));
  PIData::PILaserHeader laserHeader;
  const UniqueID_t laser = PIData::createLaser(sample.platform, &laserHeader, 0);
  EXPECT_EQ("", offer(rename, {info(laser)})) << "a laser header cannot be written";
  EXPECT_EQ("", offer(rename, {info(sample.beam), info(sample.gate)}));
  EXPECT_EQ("", offer(rename, {EntityInfo{0, PI_ALL_TYPES, ""}}));

  const int before = counter.changes;
  EXPECT_EQ(0, RenameAction::setName(sample.beam, PI_BEAM_TYPE, "Radar"));
  EXPECT_EQ(before, counter.changes) << "the same name is not written";
  EXPECT_EQ(0, RenameAction::setName(sample.gate, PI_GATE_TYPE, ""));
  PIData::PIGateHeader gate;
  PIData::getHeader(sample.gate, &gate);
  EXPECT_EQ("", gate.name) << "any name passes";

  offer(rename, {EntityInfo{sample.platform, PI_PLATFORM_TYPE, "Eagle"}});
  {
    WhenShown<QInputDialog> named([](QInputDialog& dialog) {
      EXPECT_EQ("Rename Entity", dialog.windowTitle());
      EXPECT_EQ("Eagle", dialog.textValue());
      dialog.setTextValue("Eagle Ü");
      dialog.accept();
    });
    rename.action()->trigger();
  }
  PIData::PIPlatformHeader platform;
  PIData::getHeader(sample.platform, &platform);
  EXPECT_EQ("Eagle \xC3\x9C", platform.name) << "written as UTF-8";
}

TEST_F(LifecycleActions, DeleteRemovesChildrenBeforeHostsAndStopsAskingWhenTold)
{
  DeleteAction remove(nullptr);
  EXPECT_EQ("", offer(remove, {EntityInfo{0, PI_ALL_TYPES, ""}})) << "not the scenario alone";
  EXPECT_EQ("Delete...", offer(remove, {info(sample.platform), info(sample.gate), info(sample.beam)}));

  {
    const auto confirmed =
      answerNext<UTILS::ConfirmDialog>(true, [](UTILS::ConfirmDialog& dialog) { dialog.checkBox()->setChecked(true); });
    remove.action()->trigger();
  }
  EXPECT_EQ((std::vector<UniqueID_t>{sample.gate, sample.beam, sample.platform}), counter.removed);
  EXPECT_EQ(PI_NONE_TYPE, PIData::getObjectType(sample.platform));

  PIData::PIPlatformHeader header;
  header.name = "Heron";
  const UniqueID_t heron = PIData::createPlatform(&header, nullptr);
  EXPECT_EQ("Delete", offer(remove, {info(heron)})) << "no question: no ellipsis";
  EXPECT_EQ(0, remove.onCmdDeleteEntities(nullptr, nullptr));
  EXPECT_EQ(PI_NONE_TYPE, PIData::getObjectType(heron)) << "the next delete runs at once";
}

TEST_F(LifecycleActions, ExtendLifeHoldsTheLastPointToTheScenarioEnd)
{
  ExtendLifeAction extend(nullptr);
  EXPECT_EQ("", offer(extend, {info(sample.platform), info(sample.beam)})) << "platforms only";
  PIData::PIPlatformHeader header;
  header.name = "Heron";
  const UniqueID_t heron = PIData::createPlatform(&header, nullptr);
  PIData::PIPlatformPoint point;
  point.position = {0.6, -2.0, 100.0};
  for (double t : {0.0, 50.0})
  {
    point.time = t;
    PIData::addDataPoint(heron, &point);
  }
  PIData::clockSetBegin(0.0);
  PIData::clockSetEnd(50.0);
  PURegistry::saveReg(ExtendLifeAction::CONFIRM_KEY, false);
  EXPECT_EQ("Extend Life", offer(extend, {info(sample.platform), info(heron)}));
  extend.action()->trigger();
  EXPECT_EQ(2u, PIData::getNumberDataPoints(sample.platform)) << "Eagle ended at 10";
  EXPECT_EQ(50.0, PIData::getLatestTime(sample.platform));
  PIData::PIPlatformPoint held;
  PIData::getDataPoint(sample.platform, 50.0, &held, PI_RETRIEVE_EXACT);
  EXPECT_EQ(0.6, held.position.x) << "the last position, held";
  EXPECT_EQ(2u, PIData::getNumberDataPoints(heron)) << "already reaching the end: no point added";
}

TEST_F(LifecycleActions, DeleteScenarioIsReplacingItAndCancelKeepsIt)
{
  DeleteScenarioAction replace(nullptr);
  EXPECT_EQ("", offer(replace, {info(sample.platform)}));
  EXPECT_EQ("Delete Scenario...", offer(replace, {EntityInfo{0, PI_ALL_TYPES, ""}}));
  {
    const auto cancelled = answerNextDialog(false);
    replace.action()->trigger();
  }
  EXPECT_EQ(PI_PLATFORM_TYPE, PIData::getObjectType(sample.platform)) << "cancelled: the scenario stays";

  offer(replace, {EntityInfo{0, PI_ALL_TYPES, ""}});
  std::vector<UniqueID_t> announced{99};
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>& ids) { announced = ids; });
  {
    const auto accepted = answerNextDialog(true);
    replace.action()->trigger();
  }
  EXPECT_EQ(std::vector<UniqueID_t>{0}, announced) << "the whole scenario changed";
  EXPECT_EQ(0u, store.entityCount()) << "a new, empty scenario";
}
