#include "host/PIData.h"
#include "support/ServerFixture.h"
#include "utils/CategoryManager.h"
#include "utils/CategoryMatchFilter.h"
#include "utils/QtCategoryFilter.h"
#include "utils/QtCategoryFilterWidget.h"

#include <QSignalSpy>
#include <QTreeWidget>

#include <set>

using namespace PUCategoryFilter;

TEST(CategoryMatch, EachCategoryFilteredOnDecidesByItsEntries)
{
  mCategoryValuesCheck checks;
  EXPECT_TRUE(CategoryDataMatch(&checks, {{0, 1}})) << "no checks, no constraint";

  checks[0].checked = true;
  checks[0].values = {{1, true}, {2, false}};
  EXPECT_TRUE(CategoryDataMatch(&checks, {{0, 1}}));
  EXPECT_FALSE(CategoryDataMatch(&checks, {{0, 2}}));
  EXPECT_FALSE(CategoryDataMatch(&checks, {{0, 7}})) << "an unlisted value with no unlisted entry";
  EXPECT_FALSE(CategoryDataMatch(&checks, {})) << "no value and no no-value entry";
  InsertUnlistedAndNoValueItems(checks, true, false);
  EXPECT_TRUE(CategoryDataMatch(&checks, {{0, 7}})) << "a value that came later is judged by the unlisted entry";
  EXPECT_FALSE(CategoryDataMatch(&checks, {}));
  checks[0].values[NO_VALUE] = true;
  EXPECT_TRUE(CategoryDataMatch(&checks, {}));

  checks[0].checked = false;
  EXPECT_TRUE(CategoryDataMatch(&checks, {{0, 2}})) << "a category not filtered on constrains nothing";
  checks[RESERVED_CATEGORY].checked = true;
  checks[RESERVED_CATEGORY].values = {{0, false}};
  EXPECT_TRUE(CategoryDataMatch(&checks, {{RESERVED_CATEGORY, 0}})) << "the reserved category is skipped";
}

TEST(CategoryMatch, ChecksSurviveTheirTextAndNumberNamesAnew)
{
  CategoryManager manager;
  ASSERT_EQ(1u, manager.categories().size());
  EXPECT_EQ("Platform Type", manager.getCategoryNameString(0));
  EXPECT_EQ("Contact", manager.getCategoryValueString(0, 13));
  EXPECT_EQ("Unlisted Value", manager.getCategoryValueString(0, 14));

  CategoryMatchFilter filter(manager, true);
  filter.checkValue("Side", "Red", true);
  filter.checkValue("Side", "Blue", false);
  filter.checkReserved("Side", NO_VALUE, false);
  const std::string text = filter.saveToString();

  CategoryManager other;
  CategoryMatchFilter again(other, true);
  again.loadFromString(text);
  EXPECT_EQ(text, again.saveToString());
  EXPECT_TRUE(again.doesCategoryMatch({{"Side", "Red"}}));
  EXPECT_FALSE(again.doesCategoryMatch({{"Side", "Blue"}}));
  EXPECT_TRUE(again.doesCategoryMatch({{"Side", "Green"}})) << "unlisted entries start checked";
  EXPECT_FALSE(again.doesCategoryMatch({})) << "no value unchecked";
}

namespace
{

class CategoryFiltering : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    red = platform("Red One", "Red");
    blue = platform("Blue One", "Blue");
    bare = platform("Bare", "");
    PIData::PIBeamHeader beamHeader;
    blueBeam = PIData::createBeam(blue, &beamHeader, nullptr, true);
  }

  UniqueID_t platform(const std::string& name, const std::string& side)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    if (!side.empty())
    {
      PIData::PICategoryDataPoint item{-1.0, "Side", side};
      PIData::addCategoryData(id, &item);
    }
    return id;
  }

  UniqueID_t red = 0, blue = 0, bare = 0, blueBeam = 0;
};

} // namespace

TEST_F(CategoryFiltering, UncheckedValuesHidePlatformsWithTheirChildren)
{
  PluginUtils::QtCategoryFilter filter(true, true);
  EXPECT_TRUE(filter.acceptEntity(blue)) << "nothing checked off yet";
  filter.matchFilter().checkValue("Side", "Blue", false);
  EXPECT_FALSE(filter.acceptEntity(blue));
  EXPECT_FALSE(filter.acceptEntity(blueBeam)) << "a child goes with its platform";
  EXPECT_TRUE(filter.acceptEntity(red));
  EXPECT_TRUE(filter.acceptEntity(bare)) << "its no-value entry is checked";

  QMap<QString, QVariant> settings;
  filter.getFilterSettings(settings);
  PluginUtils::QtCategoryFilter restored(true, true);
  QSignalSpy updated(&restored, &kelQt::EntityFilter::filterUpdated);
  restored.setFilterSettings(settings);
  EXPECT_EQ(1, updated.count());
  EXPECT_FALSE(restored.acceptEntity(blue));
  EXPECT_TRUE(restored.acceptEntity(red));
}

TEST_F(CategoryFiltering, TheEditorIsATreeOfCheckBoxes)
{
  PluginUtils::QtCategoryFilter filter(true, true);
  std::unique_ptr<QWidget> editor(filter.widget(nullptr));
  auto* tree = editor->findChild<QTreeWidget*>("CategoryFilterTree");
  ASSERT_NE(nullptr, tree);
  QTreeWidgetItem* root = tree->topLevelItem(0);
  EXPECT_EQ("All Categories", root->text(0));
  ASSERT_EQ(1, root->childCount()) << "the scenario's categories only";
  QTreeWidgetItem* side = root->child(0);
  EXPECT_EQ("Side", side->text(0));
  QStringList values;
  for (int i = 0; i < side->childCount(); ++i)
    values << side->child(i)->text(0);
  EXPECT_EQ((QStringList{"Red", "Blue", "Unlisted Value", "No Value"}), values);

  QSignalSpy updated(&filter, &kelQt::EntityFilter::filterUpdated);
  side->child(1)->setCheckState(0, Qt::Unchecked);
  EXPECT_EQ(1, updated.count());
  EXPECT_FALSE(filter.acceptEntity(blue));
  side = tree->topLevelItem(0)->child(0);
  EXPECT_EQ(Qt::Unchecked, side->checkState(0)) << "not every value of Side is checked now";

  tree->topLevelItem(0)->setCheckState(0, Qt::Checked);
  EXPECT_TRUE(filter.acceptEntity(blue)) << "all categories checked again";
}

TEST_F(CategoryFiltering, AClickChangesTheChecksInPlace)
{
  // Qt is still inside the clicked item's change when the filter hears of it: the items must
  // stay, or Qt goes on with a deleted one.
  PluginUtils::QtCategoryFilter filter(true, true);
  std::unique_ptr<QWidget> editor(filter.widget(nullptr));
  auto* tree = editor->findChild<QTreeWidget*>("CategoryFilterTree");
  QTreeWidgetItem* root = tree->topLevelItem(0);
  QTreeWidgetItem* side = root->child(0);
  QTreeWidgetItem* blueItem = side->child(1);
  blueItem->setCheckState(0, Qt::Unchecked);
  EXPECT_EQ(root, tree->topLevelItem(0));
  EXPECT_EQ(blueItem, tree->topLevelItem(0)->child(0)->child(1)) << "the clicked item is the same item";
  EXPECT_EQ(Qt::Unchecked, side->checkState(0));
  EXPECT_EQ(Qt::Unchecked, root->checkState(0));
  EXPECT_EQ(Qt::Checked, side->child(0)->checkState(0));

  side->setCheckState(0, Qt::Checked);
  EXPECT_EQ(Qt::Checked, blueItem->checkState(0)) << "checking a category checks its values";
  EXPECT_EQ(Qt::Checked, root->checkState(0));
  EXPECT_TRUE(filter.acceptEntity(blue));
}

TEST_F(CategoryFiltering, TheListsFollowTheScenario)
{
  PluginUtils::QtCategoryFilter filter(true, true);
  filter.matchFilter().checkValue("Side", "Blue", false);
  std::unique_ptr<QWidget> editor(filter.widget(nullptr));
  auto* tree = editor->findChild<QTreeWidget*>("CategoryFilterTree");
  const auto valuesOf = [tree](int category) {
    QStringList texts;
    QTreeWidgetItem* item = tree->topLevelItem(0)->child(category);
    for (int i = 0; item && i < item->childCount(); ++i)
      texts << item->child(i)->text(0);
    return texts;
  };

  // New data on a platform, announced as the host announces it.
  PIData::PICategoryDataPoint green{10.0, "Side", "Green"};
  PIData::addCategoryData(bare, &green);
  PIData::PICategoryDataPoint threat{-1.0, "Threat", "High"};
  PIData::addCategoryData(bare, &threat);
  QSignalSpy updated(&filter, &kelQt::EntityFilter::filterUpdated);
  std::set<UniqueID_t> changed{bare};
  filter.listenToEvents(PI_EVENT_ENTITY_DATA_CHANGED, &changed);
  ASSERT_EQ(2, tree->topLevelItem(0)->childCount()) << "the open editor shows the new category";
  EXPECT_EQ((QStringList{"Red", "Blue", "Green", "Unlisted Value", "No Value"}), valuesOf(0));
  EXPECT_EQ(Qt::Unchecked, tree->topLevelItem(0)->child(0)->child(1)->checkState(0)) << "Blue stays unchecked";
  EXPECT_GE(updated.count(), 1) << "values in force may have changed: the tree filters again";

  // Another scenario altogether: the lists are read anew, the checks kept by their text (so a
  // value the checks name stays listed after it left the scenario).
  PIData::deleteScenario();
  PIData::initializeScenario();
  const UniqueID_t again = platform("Blue Two", "Blue");
  platform("Amber One", "Amber");
  filter.listenToEvents(PI_EVENT_SCENARIO_RESET, nullptr);
  ASSERT_EQ(1, tree->topLevelItem(0)->childCount());
  EXPECT_EQ((QStringList{"Blue", "Amber", "Red", "Unlisted Value", "No Value"}), valuesOf(0));
  EXPECT_FALSE(filter.acceptEntity(again)) << "Blue is still filtered out after the renumbering";
}

TEST_F(CategoryFiltering, UnexpectedStatesAreWrittenToTheNotifications)
{
  services.notifications.clear();
  EXPECT_FALSE(CategoryDataMatch(nullptr, {}));
  CategoryManager manager;
  CategoryMatchFilter filter(manager, true);
  filter.checkCategory("", true);
  filter.checkCategory("Nothing Like It", true);
  std::vector<std::string> lines;
  for (const auto& [text, severity] : services.notifications)
    lines.push_back(text);
  EXPECT_EQ((std::vector<std::string>{"ERROR:  Unexpected NULL\n", "ERROR:  Unexpected empty string.\n",
                                      "ERROR:  Unexpected failure to find item\n"}),
            lines);
}
