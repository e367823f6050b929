#include "host/PIData.h"
#include "merge/ManualMergeWidget.h"
#include "plugin/Action.h"
#include "plugin/ActionManager.h"
#include "plugin/ActionUtilities.h"
#include "plugin/MainDialog.h"
#include "plugin/MiscellaneousWidget.h"
#include "plugin/TabWidget.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "utils/EntityTreeModel.h"
#include "utils/QtCategoryFilter.h"
#include "widgets/EntityTreeComposite.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTabWidget>
#include <QTest>

#include <set>

namespace
{

/// A tab that records what the window hands it.
class ProbeTab : public QtSep::TabWidget
{
public:
  explicit ProbeTab(std::vector<std::string>& journal, const std::string& name, int consumeMouse = 0)
    : journal_(journal), name_(name), consumeMouse_(consumeMouse)
  {
  }

  void setTabActive(bool active) override { journal_.push_back(name_ + (active ? " active" : " inactive")); }
  void listenToEvents(PIApplicationEvents_t event, void*) override
  {
    journal_.push_back(name_ + " event " + std::to_string(event) + (treeHolds ? " tree holds " + std::to_string(treeHolds(watched)) : ""));
  }
  int handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override
  {
    journal_.push_back(name_ + " mouse");
    return consumeMouse_;
  }
  void applyUnitsChange() override { journal_.push_back(name_ + " units"); }
  bool dirty() const override { return dirty_; }

  bool dirty_ = false;
  std::function<bool(UniqueID_t)> treeHolds;
  UniqueID_t watched = 0;

private:
  std::vector<std::string>& journal_;
  std::string name_;
  int consumeMouse_;
};

/// An action of the editor's own menu only: an entry, a sub-menu and a rule, at chosen weights.
class ProbeAction : public QtSep::Action
{
public:
  int weight() const override { return 100; }
  void menuRequested(PIKELVOR::WhatWasClicked, const std::vector<QtSep::EntityInfo>&, void*) override {}
  void menuRequested(const std::vector<QtSep::EntityInfo>&, std::vector<QtSep::MenuInfo*>& items) override
  {
    items.push_back(new QtSep::ActionInfo(&late, 300));
    auto* submenu = new QtSep::SubmenuInfo("Group", 100);
    submenu->items().push_back(new QtSep::ActionInfo(&inner, 1));
    items.push_back(submenu);
    items.push_back(new QtSep::Separator(200));
  }
  QAction late{"Late", nullptr};
  QAction inner{"Inner", nullptr};
};

class EditorWindow : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    sample = createSampleEntities();
    dialog = std::make_unique<QtSep::MainDialog>(manager, nullptr);
  }
  void TearDown() override
  {
    dialog.reset();
    ServerFixture::TearDown();
  }

  /// Adds two probe tabs behind the built ones. @return the index of the first
  int addProbes(int firstConsumesMouse = 0)
  {
    first = new ProbeTab(journal, "first", firstConsumesMouse);
    second = new ProbeTab(journal, "second", 1);
    dialog->addTab(first, "First");
    dialog->addTab(second, "Second");
    return dialog->tabWidget().indexOf(first);
  }

  /// Switches to a tab, answering the question that follows with button.
  void switchAnswering(int index, QMessageBox::StandardButton button)
  {
    WhenShown<QMessageBox> answered([button](QMessageBox& box) {
      EXPECT_EQ("Unsaved Changes", box.windowTitle());
      EXPECT_EQ("Switching tabs will result in loss of unsaved changes.  Still switch tabs?", box.text());
      box.button(button)->click();
    });
    dialog->tabWidget().setCurrentIndex(index);
  }

  SampleEntities sample;
  QtSep::ActionManager manager{nullptr, nullptr};
  std::unique_ptr<QtSep::MainDialog> dialog;
  std::vector<std::string> journal;
  ProbeTab* first = nullptr;
  ProbeTab* second = nullptr;
};

} // namespace

TEST_F(EditorWindow, IsAHiddenDockOfTreeAndTabs)
{
  EXPECT_EQ("Qt Scenario Editor", dialog->windowTitle());
  EXPECT_EQ("ScenarioEditorMainDialog", dialog->objectName());
  EXPECT_TRUE(dialog->isHidden());
  EXPECT_EQ((QStringList{"Auto Merge", "Manual Merge", "Make Stationary", "Point Editor", "Miscellaneous"}), QtSep::MainDialog::tabTitles());
  EXPECT_EQ(0, dialog->currentTabIndex());
  EXPECT_TRUE(dialog->entityTreeModel().indexOf(sample.gate).isValid()) << "the tree reads the scenario at once";
  EXPECT_EQ(0, dialog->startManualMerge({sample.platform}));
  EXPECT_EQ("Manual Merge", dialog->tabWidget().tabText(dialog->tabWidget().currentIndex()));
  auto* merge = dynamic_cast<QtSep::ManualMergeWidget*>(dialog->tab("Manual Merge"));
  ASSERT_NE(nullptr, merge);
  EXPECT_EQ(std::vector<UniqueID_t>{sample.platform}, merge->platformIds()) << "the ids are listed at once";
  // Until Detect has run the merge tab's list is stale, so leaving it asks first.
  WhenShown<QMessageBox> leave([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
  EXPECT_EQ(0, dialog->startPointEdit({sample.platform}));
  EXPECT_EQ("Point Editor", dialog->tabWidget().tabText(dialog->tabWidget().currentIndex()));
  EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->entityTreeComposite().selectedItems() == QList<unsigned long>{sample.platform}; }, 10000));
}

TEST_F(EditorWindow, SwitchingTabsAsksOnlyWhenTheOldTabHasUnsavedEdits)
{
  const int firstIndex = addProbes();
  QTabWidget& tabs = dialog->tabWidget();
  tabs.setCurrentIndex(firstIndex);
  EXPECT_EQ(firstIndex, dialog->currentTabIndex()) << "a clean tab asks nothing";
  journal.clear();

  first->dirty_ = true;
  switchAnswering(firstIndex + 1, QMessageBox::No);
  EXPECT_EQ(firstIndex, tabs.currentIndex()) << "a refused switch puts the old tab back";
  EXPECT_EQ(firstIndex, dialog->currentTabIndex());
  EXPECT_TRUE(journal.empty()) << "no tab was told anything";

  switchAnswering(firstIndex + 1, QMessageBox::Yes);
  EXPECT_EQ(firstIndex + 1, dialog->currentTabIndex());
  EXPECT_EQ((std::vector<std::string>{"first inactive", "second active"}), journal);
}

TEST_F(EditorWindow, TabsSeeRemovalsAndResetsBeforeTheTreeAndOtherEventsAfter)
{
  addProbes();
  PluginUtils::EntityTreeModel& tree = dialog->entityTreeModel();
  first->treeHolds = [&tree](UniqueID_t id) { return tree.indexOf(id).isValid(); };
  first->watched = sample.gate;

  std::uint64_t gate = sample.gate;
  dialog->listenToEvents(PI_EVENT_ENTITY_REMOVED, &gate);
  EXPECT_EQ("first event 4 tree holds 1", journal.at(0));
  EXPECT_FALSE(tree.indexOf(sample.gate).isValid()) << "the tree drops it after the tabs";

  journal.clear();
  PIData::removeEntity(sample.gate, false);
  dialog->listenToEvents(PI_EVENT_SCENARIO_RESET, nullptr);
  EXPECT_EQ("first event 3 tree holds 0", journal.at(0));

  // A reset leaves the tree rebuilt; the gate, now gone from the store, stays out. A platform
  // added now reaches the tree before the tabs hear of it.
  journal.clear();
  first->watched = sample.beam;
  std::uint64_t beam = sample.beam;
  dialog->listenToEvents(PI_EVENT_BEAM_ADDED, &beam);
  EXPECT_EQ((std::vector<std::string>{"first event 6 tree holds 1", "second event 6"}), journal);
}

TEST_F(EditorWindow, MouseGoesToTabsInOrderUntilOneTakesIt)
{
  addProbes();
  PIGUI::PIMouseEvent event{};
  EXPECT_EQ(1, dialog->handleMouseEvent(PIGUI::PIMouseEventType_t(0), event));
  EXPECT_EQ((std::vector<std::string>{"first mouse", "second mouse"}), journal);

  std::vector<std::string> onlyFirst;
  dialog->addTab(new ProbeTab(onlyFirst, "third"), "Third");
  journal.clear();
  first->dirty_ = false;
  EXPECT_EQ(1, dialog->handleMouseEvent(PIGUI::PIMouseEventType_t(0), event));
  EXPECT_TRUE(onlyFirst.empty()) << "the walk ends at the tab that took the event";
}

TEST_F(EditorWindow, NewUnitsReachEveryTab)
{
  addProbes();
  auto* miscellaneous = dialog->findChild<QtSep::MiscellaneousWidget*>();
  ASSERT_NE(nullptr, miscellaneous);
  emit miscellaneous->unitsChanged();
  EXPECT_EQ((std::vector<std::string>{"first units", "second units"}), journal);
}

TEST_F(EditorWindow, TreeMenuLeadsWithTheActionsSortedByWeight)
{
  manager.addDialogAction(std::make_shared<ProbeAction>());
  std::unique_ptr<QMenu> menu(dialog->entityTreeComposite().createContextMenu(nullptr));
  QStringList texts;
  for (QAction* action : menu->actions())
    texts << (action->isSeparator() ? "-" : action->text());
  EXPECT_EQ("Group|-|Remove Duplicate Points...|Add Entity|Delete Scenario...|Late|-|&Copy",
            texts.mid(0, 8).join('|').toStdString())
      << "no selection stands for the scenario";
  ASSERT_NE(nullptr, menu->actions().at(0)->menu());
  EXPECT_EQ("Inner", menu->actions().at(0)->menu()->actions().at(0)->text());

  PIData::clockSetMode(PI_CLOCK_LIVE, -1.0);
  menu.reset(dialog->entityTreeComposite().createContextMenu(nullptr));
  EXPECT_EQ("&Copy", menu->actions().at(0)->text()) << "no actions while the clock is live";
}

TEST_F(EditorWindow, ChangesReportedByActionsRefreshTheTree)
{
  PIData::PIPlatformHeader header;
  ASSERT_EQ(0, PIData::getHeader(sample.platform, &header));
  header.name = "Osprey";
  ASSERT_EQ(0, PIData::updateHeader(sample.platform, &header));
  QtSep::fireChangeCallback(sample.platform);
  const QModelIndex row = dialog->entityTreeModel().indexOf(sample.platform);
  EXPECT_EQ("Osprey", row.data().toString());
}

TEST_F(EditorWindow, TheTreesCategoryFilterFollowsTheEvents)
{
  PIData::PICategoryDataPoint side{-1.0, "Side", "Red"};
  PIData::addCategoryData(sample.platform, &side);
  std::set<UniqueID_t> changed{sample.platform};
  dialog->listenToEvents(PI_EVENT_ENTITY_DATA_CHANGED, &changed);
  const CategoryManager& lists = dialog->categoryFilter().manager().categoryManager();
  const int category = lists.findCategory("Side");
  ASSERT_GE(category, 0) << "new category data reach the filter's lists";
  EXPECT_GE(lists.categories().at(category).findValue("Red"), 0);
}

TEST_F(EditorWindow, AnAddedEntityIsSelectedOnceItsRowExists)
{
  PIData::PIPlatformHeader header;
  header.name = "Newcomer";
  const UniqueID_t added = PIData::createPlatform(&header, nullptr);
  dialog->listenToEvents(PI_EVENT_PLATFORM_ADDED, const_cast<UniqueID_t*>(&added));
  emit manager.entityAdded(added); // as Add Entity does, before the tree's batch adds the row
  EXPECT_FALSE(dialog->entityTreeModel().indexOf(added).isValid()) << "the row comes with the batch";
  EXPECT_TRUE(QTest::qWaitFor(
    [&] { return dialog->entityTreeComposite().selectedItems() == QList<unsigned long>{added}; }, 10000));
}
