#include "host/PIData.h"
#include "support/ServerFixture.h"
#include "utils/CategoryManager.h"
#include "utils/CategoryMatchFilter.h"
#include "utils/QtCategoryFilter.h"
#include "utils/QtCategoryFilterWidget.h"

#include <QSignalSpy>
#include <QTreeWidget>

using namespace PUCategoryFilter;

TEST(CategoryMatch, EachCategoryFilteredOnDecidesByItsEntries)
{
  EXPECT_FALSE(CategoryDataMatch(nullptr, {}));
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
