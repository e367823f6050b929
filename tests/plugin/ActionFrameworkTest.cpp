#include "host/CustomCallbackFunctor.h"
#include "host/PIData.h"
#include "host/PIKELVOR.h"
#include "host/PURegistry.h"
#include "plugin/ActionManager.h"
#include "plugin/ActionUtilities.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/ConfirmDialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>

using namespace QtSep;

namespace
{

// An action that records what it was asked and offers one item in each menu.
class RecordingAction : public Action
{
public:
  RecordingAction(int weight, std::string text) : weight_(weight), text_(std::move(text)), qaction_(text_.c_str()) {}
  int weight() const override { return weight_; }
  void menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>& entities, void* menu) override
  {
    seen = entities;
    PIKELVOR::addContextMenuItem(menu, text_, nullptr, weight_);
  }
  void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) override
  {
    seen = entities;
    items.push_back(new ActionInfo(&qaction_, weight_));
  }
  std::vector<EntityInfo> seen;

private:
  int weight_;
  std::string text_;
  QAction qaction_;
};

class ActionFramework : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    const SampleEntities made = createSampleEntities();
    platform = made.platform;
    beam = made.beam;
    gate = made.gate;
    manager.addDialogAction(low);
    manager.addDialogAction(high);
    manager.addDialogAction(tie);
    manager.setEnableDialogActions(true);
  }
  std::vector<std::string> ownMenu(const std::vector<unsigned long>& ids)
  {
    std::vector<MenuInfo*> items;
    manager.menuRequested(ids, items);
    std::vector<std::string> texts;
    for (MenuInfo* item : items)
    {
      if (auto* submenu = dynamic_cast<SubmenuInfo*>(item))
        texts.push_back(submenu->text());
      else
        texts.push_back(static_cast<ActionInfo*>(item)->action()->text().toStdString());
      delete item;
    }
    return texts;
  }

  UniqueID_t platform = 0, beam = 0, gate = 0;
  ActionManager manager{nullptr, nullptr};
  std::shared_ptr<RecordingAction> low = std::make_shared<RecordingAction>(230, "Low");
  std::shared_ptr<RecordingAction> high = std::make_shared<RecordingAction>(210, "High");
  std::shared_ptr<RecordingAction> tie = std::make_shared<RecordingAction>(230, "Tie");
};

TEST_F(ActionFramework, BothMenusAskEveryActionAndSortByWeight)
{
  EXPECT_EQ((std::vector<std::string>{"Make Stationary...", "High", "Rename...", "Delete...", "Extend Life...", "Decimate...",
                                      "Remove Duplicate Points...", "Velocity Filtering...", "Low", "Tie", "Calculate Ori / Vel...",
                                      "Export to GOG...", "Transform Platform...", "Copy Entity",
                                      "Add Entity"}),
            ownMenu({platform}))
      << "the manager's own actions sort among the others; equal weights keep their order";
  ASSERT_EQ(1u, low->seen.size());
  EXPECT_EQ((EntityInfo{platform, PI_PLATFORM_TYPE, "Eagle"}), low->seen[0]);
  ownMenu({});
  ASSERT_EQ(1u, low->seen.size());
  EXPECT_EQ(0u, low->seen[0].id) << "no selection stands for the scenario";
  EXPECT_EQ(PI_ALL_TYPES, low->seen[0].type) << "of every kind";
}

class ManagerCallback : public PIKELVOR::ContextMenuCallback
{
public:
  explicit ManagerCallback(ActionManager& manager) : manager_(manager) {}
  void menuRequested(PIKELVOR::WhatWasClicked, unsigned long, void*) override {}
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids,
                     const std::map<std::string, std::string>&, void* menu) override
  {
    manager_.menuRequested(what, ids, menu);
  }

private:
  ActionManager& manager_;
};

TEST_F(ActionFramework, TheHostsMenuGetsTheItemsAndAClosingRuleOnlyWhenTheClockIsAtRest)
{
  ManagerCallback callback(manager);
  PIKELVOR::registerContextMenuCallback(&callback);
  auto menu = server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {platform, beam});
  std::vector<std::string> order;
  for (const auto* entry : menu->sorted())
    order.push_back(entry->kind == kelvor::ContextMenu::Entry::SEPARATOR ? "---" : entry->text);
  EXPECT_EQ((std::vector<std::string>{"---", "High", "Delete...", "Low", "Tie"}), order)
      << "the rule sits at weight 205; of the manager's own actions only Delete takes a beam with a platform";
  EXPECT_EQ(2u, high->seen.size());

  manager.setEnableDialogActions(false);
  auto withoutDialogs = server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {platform});
  EXPECT_EQ(nullptr, withoutDialogs->findItem("High")) << "disabled dialog actions offer nothing";
  EXPECT_NE(nullptr, withoutDialogs->findItem("Delete...")) << "the manager's own actions still do";

  PIData::clockSetMode(PI_CLOCK_LIVE, -1.0);
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {platform})->entries().empty());
  EXPECT_TRUE(ownMenu({platform}).empty()) << "a live clock offers no menu at all";
  PIData::clockSetMode(PI_CLOCK_STEPPED, -1.0);
  EXPECT_FALSE(ownMenu({platform}).empty());
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_VIEW, {platform})->entries().empty())
      << "the manager answers list clicks only";
  PIKELVOR::removeContextMenuCallback(&callback);
}

TEST_F(ActionFramework, NamesHostsAndTheirPlatformsTime)
{
  EXPECT_EQ("Radar", getEntityName(beam));
  EXPECT_EQ("", getEntityName(9999));
  EXPECT_EQ("Radar", getEntityHostName(gate));
  EXPECT_EQ("Eagle", getEntityHostName(platform)) << "a platform names itself";
  EXPECT_EQ(10.0, getPlatformLatestTime(gate)) << "walks up to the platform";
  EXPECT_EQ(0.0, getPlatformLatestTime(9999));
  store.editEntity(platform)->alias = "Callsign 7";
  store.editEntity(platform)->useAlias = true;
  EXPECT_EQ("Callsign 7", getEntityName(platform)) << "a platform that shows its alias is named by it";
}

TEST_F(ActionFramework, ChangesReachTheHostThroughItsSignalService)
{
  std::vector<UniqueID_t> heard;
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>& ids) { heard = ids; });
  fireChangeCallback(std::vector<unsigned long>{platform, beam});
  EXPECT_EQ((std::vector<UniqueID_t>{platform, beam}), heard);
  fireChangeCallback(gate);
  EXPECT_EQ(std::vector<UniqueID_t>{gate}, heard);
}

TEST_F(ActionFramework, AuditEntriesAreNumberedAtTheStartOfTheEntitysLife)
{
  Action::addAudit(platform, "Decimated by time");
  Action::addAudit(platform, "Removed duplicates");
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(platform, &items);
  ASSERT_EQ(2u, items.size());
  EXPECT_EQ("Qt Scenario Editor 1", items[0].tag);
  EXPECT_EQ("Qt Scenario Editor 2", items[1].tag);
  EXPECT_EQ(10.0, items[1].time);
  EXPECT_EQ(-1.0, items[1].expiration);

  PIData::flushEntityData(beam, PIData::FLUSH_ALL);
  Action::addAudit(beam, "Emptied");
  PIData::getDataPoints(beam, &items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ(10.0, items[0].time) << "an entity without data takes the scenario's earliest time";
}

TEST_F(ActionFramework, AskingFirstAndNotAskingAgain)
{
  EXPECT_EQ("Delete...", addEllipsisIfConfirm("Delete", "ConfirmDelete"));
  // Asks, answering the question with the check box set as given.
  auto ask = [](bool accept, bool check) {
    const auto answered = answerNext<UTILS::ConfirmDialog>(
      accept, [check](UTILS::ConfirmDialog& dialog) { dialog.checkBox()->setChecked(check); });
    return verifyAction("Delete", "Delete it?", "ConfirmDelete", nullptr);
  };
  EXPECT_EQ(1, ask(false, true));
  EXPECT_TRUE(PURegistry::loadReg(true, "ConfirmDelete")) << "cancelled: the check box is not saved";
  EXPECT_EQ(0, ask(true, false));
  EXPECT_TRUE(PURegistry::loadReg(true, "ConfirmDelete"));
  EXPECT_EQ(0, ask(true, true));
  EXPECT_FALSE(PURegistry::loadReg(true, "ConfirmDelete"));
  EXPECT_EQ(0, verifyAction("Delete", "Delete it?", "ConfirmDelete", nullptr)) << "no longer asks";
  EXPECT_EQ("Delete", addEllipsisIfConfirm("Delete", "ConfirmDelete")) << "a command that will not ask has no ellipsis";
}

} // namespace
