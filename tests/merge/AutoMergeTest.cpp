#include "actions/MergeAction.h"
#include "host/PIData.h"
#include "host/PURegistry.h"
#include "merge/AutoMerge.h"
#include "merge/AutomaticMergeWidget.h"
#include "merge/MergeInfo.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/ConfirmDialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>

using QtSep::AutoMerge;

namespace
{

class AutomaticMerge : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
  }

  static UniqueID_t platform(const std::string& name, UniqueID_t originalId, const std::vector<double>& times)
  {
    return createTrack(name, originalId, times);
  }

  /// Runs a step and reads, then closes, the message box it shows. @return its text
  template <typename Step>
  static QString messageOf(Step step)
  {
    QString seen;
    WhenShown<QMessageBox> shown([&seen](QMessageBox& box) {
      EXPECT_EQ("Merge Error", box.windowTitle());
      seen = box.text();
      box.accept();
    });
    step();
    return seen;
  }

  template <typename T>
  T* child(QWidget& widget, const char* name)
  {
    return widget.findChild<T*>(name);
  }
};

} // namespace

TEST_F(AutomaticMerge, CandidatesShareTheNameExactlyAndOptionallyTheOriginalIdEarliestFirst)
{
  const UniqueID_t late = platform("Hawk", 3, {100, 200});
  const UniqueID_t early = platform("Hawk", 3, {10, 50});
  const UniqueID_t otherId = platform("Hawk", 4, {60});
  platform("hawk", 3, {70});
  AutoMerge autoMerge;
  std::vector<UniqueID_t> ids;
  EXPECT_TRUE(autoMerge.possibleMergeCandidates(late, true, ids));
  EXPECT_EQ((std::vector<UniqueID_t>{early, late}), ids);
  ids.clear();
  EXPECT_TRUE(autoMerge.possibleMergeCandidates(late, false, ids));
  EXPECT_EQ((std::vector<UniqueID_t>{early, otherId, late}), ids) << "names differing in case do not match";
  ids.clear();
  EXPECT_FALSE(autoMerge.possibleMergeCandidates(9999, false, ids));

  EXPECT_FALSE(autoMerge.merge({early}));
  ASSERT_TRUE(autoMerge.merge({early, otherId, late}));
  EXPECT_EQ(5u, PIData::getNumberDataPoints(early)) << "the earliest gathers the others' points";
  EXPECT_EQ(2u, PIData::getNumberDataPoints(late)) << "and they stay until the caller removes them";
}

TEST_F(AutomaticMerge, TheTabListsGroupsForReviewAndMergesOnlyTheTickedOnes)
{
  QtSep::AutomaticMergeWidget tab;
  platform("Solo", 1, {0});
  EXPECT_EQ("Insufficient platforms", messageOf([&] { child<QPushButton>(tab, "detectPushButton")->click(); }));

  platform("Other", 2, {0});
  EXPECT_EQ("No matches", messageOf([&] { child<QPushButton>(tab, "detectPushButton")->click(); }));

  const UniqueID_t viper = platform("Viper", 5, {0, 10});
  const UniqueID_t viperLate = platform("Viper", 5, {20});
  const UniqueID_t eagle = platform("Eagle", 7, {0});
  const UniqueID_t eagleLate = platform("Eagle", 8, {30});
  child<QCheckBox>(tab, "compareCheckBox")->setChecked(false);
  child<QPushButton>(tab, "detectPushButton")->click();
  auto* tree = child<QTreeWidget>(tab, "treeWidget");
  ASSERT_EQ(2, tree->topLevelItemCount());
  EXPECT_EQ("Eagle", tree->topLevelItem(0)->text(0)) << "sorted by name";
  EXPECT_EQ("2", tree->topLevelItem(0)->text(2));
  EXPECT_TRUE(tree->isColumnHidden(1)) << "original IDs were not compared";
  EXPECT_TRUE(tab.dirty());
  EXPECT_TRUE(child<QPushButton>(tab, "acceptPushButton")->isEnabled());

  tree->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
  child<QPushButton>(tab, "acceptPushButton")->click();
  EXPECT_EQ(PI_NONE_TYPE, PIData::getObjectType(viperLate)) << "the later Viper merged and went";
  EXPECT_EQ(3u, PIData::getNumberDataPoints(viper));
  EXPECT_EQ(PI_PLATFORM_TYPE, PIData::getObjectType(eagleLate)) << "the unticked group is left alone";
  EXPECT_EQ(1u, PIData::getNumberDataPoints(eagle));
  EXPECT_FALSE(tab.dirty());
  EXPECT_FALSE(child<QPushButton>(tab, "acceptPushButton")->isEnabled());
}

TEST_F(AutomaticMerge, RemovingAListedPlatformClearsTheReview)
{
  QtSep::AutomaticMergeWidget tab;
  const UniqueID_t first = platform("Viper", 5, {0});
  platform("Viper", 5, {20});
  const UniqueID_t unrelated = platform("Tanker", 9, {0});
  child<QPushButton>(tab, "detectPushButton")->click();
  ASSERT_TRUE(tab.dirty());

  std::uint64_t removed = unrelated;
  tab.listenToEvents(PI_EVENT_ENTITY_REMOVED, &removed);
  EXPECT_TRUE(tab.dirty()) << "an unrelated platform changes nothing";

  removed = first;
  EXPECT_EQ("A platform that was part of the automatic merge was deleted, clearing merge list.",
            messageOf([&] { tab.listenToEvents(PI_EVENT_ENTITY_REMOVED, &removed); }));
  EXPECT_FALSE(tab.dirty());
}

TEST_F(AutomaticMerge, TheMergeCommandKeepsTheFirstSelectedAndRemovesTheRest)
{
  const UniqueID_t first = platform("Lead", 1, {0, 10});
  const UniqueID_t second = platform("Wing", 2, {20});
  QtSep::MergeAction action(nullptr);
  std::vector<QtSep::MenuInfo*> items;
  action.menuRequested({QtSep::EntityInfo{first, PI_PLATFORM_TYPE, "Lead"}}, items);
  EXPECT_TRUE(items.empty()) << "one platform cannot merge";

  const std::vector<QtSep::EntityInfo> both = {QtSep::EntityInfo{first, PI_PLATFORM_TYPE, "Lead"},
                                               QtSep::EntityInfo{second, PI_PLATFORM_TYPE, "Wing"}};
  action.menuRequested(both, items);
  ASSERT_EQ(1u, items.size());
  EXPECT_EQ(215, items[0]->weight());
  EXPECT_EQ("Merge...", action.action()->text());
  delete items[0];

  {
    const auto declined = answerNext<UTILS::ConfirmDialog>(false);
    EXPECT_EQ(1, action.onCmdMerge(nullptr, nullptr));
  }
  EXPECT_EQ(PI_PLATFORM_TYPE, PIData::getObjectType(second)) << "declined";

  PURegistry::saveReg(QtSep::MergeAction::CONFIRM_KEY, false);
  items.clear();
  action.menuRequested(both, items);
  EXPECT_EQ("Merge", action.action()->text());
  delete items[0];
  std::vector<UniqueID_t> announced;
  server.signalService().setReceiver([&](auto, const std::vector<UniqueID_t>& ids) { announced = ids; });
  action.action()->trigger();
  EXPECT_EQ(std::vector<UniqueID_t>{first}, announced) << "the platform that gathered the others";
  EXPECT_EQ(PI_NONE_TYPE, PIData::getObjectType(second));
  EXPECT_EQ(3u, PIData::getNumberDataPoints(first));
}
