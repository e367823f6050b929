#include "datasources/CategoryDataSource.h"
#include "datasources/EntityDataModel.h"
#include "datasources/FilterWidget.h"
#include "datasources/GenericDataSource.h"
#include "datasources/KeySortFilter.h"
#include "datasources/PointEditorWidget.h"
#include "host/PIData.h"
#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "support/WhenShown.h"
#include "ui_PointEditorWidget.h"
#include "units/UnitContextAdapter.h"
#include "units/UnitContextFormatter.h"
#include "utils/EntityTreeModel.h"
#include "widgets/EntityTreeComposite.h"

#include <QComboBox>
#include <QMessageBox>
#include <QTest>

using namespace QtSep;

namespace
{

/// A platform with category and generic data, and the two sources over the real server.
class KeyValueData : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    PIData::initializeScenario();
    PIData::PIPlatformHeader header;
    header.name = "Hawk";
    PIData::PIPlatformPoint point;
    point.time = 0.0;
    point.position = {0.5, -2.0, 100.0};
    hawk = PIData::createPlatform(&header, &point);
    for (const auto& [time, name, value] : std::vector<std::tuple<double, const char*, const char*>>{
           {-1.0, "Side", "Blue"}, {10.0, "Class", "Tanker"}, {20.0, "Side", "Red"}})
    {
      const PIData::PICategoryDataPoint item{time, name, value};
      PIData::addCategoryData(hawk, &item);
    }
    for (const auto& [time, tag, value, expiration] : std::vector<std::tuple<double, const char*, const char*, double>>{
           {5.0, "Callsign", "HAWK1", -1.0}, {15.0, "Note", "low fuel", 30.0}})
    {
      PIData::PIGenericDataPoint item;
      item.time = time;
      item.tag = tag;
      item.value = value;
      item.expiration = expiration;
      PIData::createGenericData(hawk, &item);
    }
  }

  std::vector<PIData::PICategoryDataPoint> categories() const
  {
    std::vector<PIData::PICategoryDataPoint> items;
    PIData::retrieveAllCategoryData(hawk, &items);
    return items;
  }

  std::vector<PIData::PIGenericDataPoint> generic() const
  {
    std::vector<PIData::PIGenericDataPoint> items;
    PIData::getDataPoints(hawk, &items);
    return items;
  }

  UniqueID_t hawk = 0;
  kelCore::UnitContextAdapter units;
  kelCore::UnitContextFormatter formatter{units};
};

} // namespace

TEST_F(KeyValueData, CategoriesListTheirKeysAndTheFilterShowsOneKeyAtATime)
{
  CategoryDataSource source(formatter);
  EntityDataModel model;
  KeySortFilter filtered;
  ModelChecker checked(&filtered);
  filtered.setSourceModel(&model);
  QObject::connect(&source.filterWidget(), &FilterWidget::currentKeyChanged, &filtered, &KeySortFilter::setKey);
  model.setDataSource(&source);
  model.setUniqueId(hawk);
  ASSERT_EQ(3, model.rowCount());
  EXPECT_EQ("Category", source.columnName(1));
  EXPECT_EQ("Static", model.index(0, 0).data().toString()) << "a static item shows as such";
  QComboBox& keys = *source.filterWidget().comboBox();
  EXPECT_EQ(4, keys.count()) << "All, a rule, Class, Side";

  source.filterWidget().setCurrentKey("Side");
  EXPECT_EQ(2, filtered.rowCount()) << "only the rows of Side show";
  ASSERT_TRUE(filtered.setData(filtered.index(1, 2), "Green"));
  // Rename the only Class row: its key leaves the list.
  ASSERT_TRUE(model.setData(model.index(1, 1), "Role"));
  EXPECT_EQ(-1, keys.findText("Class"));
  EXPECT_NE(-1, keys.findText("Role"));
  EXPECT_EQ("Side", source.filterWidget().currentKey()) << "the key shown is still listed";

  model.commitChanges();
  const auto stored = categories();
  ASSERT_EQ(3u, stored.size()) << "rows hidden by the filter are committed all the same";
  EXPECT_EQ("Role", stored[1].name);
  EXPECT_EQ("Green", stored[2].value);
  EXPECT_EQ(-1.0, stored[0].time);
}

TEST_F(KeyValueData, RenamingTheShownKeysLastRowFallsBackToAllAndEveryRowMayGo)
{
  GenericDataSource source(formatter);
  EntityDataModel model;
  model.setDataSource(&source);
  model.setUniqueId(hawk);
  EXPECT_EQ("Tag", source.columnName(1));
  EXPECT_EQ("Data", source.columnName(2));
  source.filterWidget().setCurrentKey("Note");
  ASSERT_TRUE(model.setData(model.index(1, 1), "Remark"));
  EXPECT_EQ("", source.filterWidget().currentKey()) << "Note is gone: All";
  EXPECT_TRUE(source.isDirty(1, 1));
  EXPECT_FALSE(source.isDirty(1, 2));

  model.deleteRows({0, 1});
  EXPECT_EQ(0, model.rowCount()) << "unlike a platform's points, the last item may go";
  EXPECT_TRUE(source.isValid());
  model.copyRow(-1);
  ASSERT_EQ(1, model.rowCount()) << "a first item on an empty table";
  ASSERT_TRUE(model.setData(model.index(0, 1), "Callsign"));
  ASSERT_TRUE(model.setData(model.index(0, 2), "HAWK2"));
  model.commitChanges();
  const auto stored = generic();
  ASSERT_EQ(1u, stored.size());
  EXPECT_EQ("HAWK2", stored[0].value);
}

TEST_F(KeyValueData, GenericDataKeepTheirExpirationsThroughAnEdit)
{
  GenericDataSource source(formatter);
  EntityDataModel model;
  model.setDataSource(&source);
  model.setUniqueId(hawk);
  ASSERT_TRUE(model.setData(model.index(0, 2), "HAWK9"));
  ASSERT_TRUE(model.setData(model.index(1, 0), "16"));
  EXPECT_FALSE(model.setData(model.index(1, 0), "static")) << "an edited time cannot be static";
  model.commitChanges();
  const auto stored = generic();
  ASSERT_EQ(2u, stored.size());
  EXPECT_EQ("HAWK9", stored[0].value);
  EXPECT_EQ(16.0, stored[1].time);
  EXPECT_EQ(30.0, stored[1].expiration) << "the lifetime stays";
  EXPECT_EQ(-1.0, stored[0].expiration);
}

TEST_F(KeyValueData, SwitchingTypeWithUnsavedEditsAsksAndNoKeepsTheTable)
{
  PluginUtils::EntityTreeModel tree;
  tree.forceRefresh();
  kelQt::EntityTreeComposite composite;
  composite.setModel(&tree);
  PointEditorWidget tab(composite);
  tab.setTabActive(true);
  composite.setSelected(hawk);
  ASSERT_TRUE(QTest::qWaitFor([&] { return tab.uniqueId() == hawk; }, 10000));
  QComboBox& types = *tab.ui().typeComboBox;
  ASSERT_EQ((QStringList{"Point Data", "Category Data", "Generic Data"}),
            (QStringList{types.itemText(0), types.itemText(1), types.itemText(2)}));
  types.setCurrentIndex(1);
  emit types.activated(1);
  EXPECT_EQ(PointEditorWidget::CATEGORY_DATA, tab.editType());
  EXPECT_EQ(hawk, tab.uniqueId()) << "the same entity, another type";
  QAbstractItemModel& shown = *tab.ui().treeView->model();
  ASSERT_EQ(3, shown.rowCount());
  ASSERT_TRUE(shown.setData(shown.index(0, 2), "Purple"));

  {
    WhenShown<QMessageBox> no([](QMessageBox& box) {
      EXPECT_EQ("Switching types will result in loss of unsaved changes.  Still switch type?", box.text());
      box.button(QMessageBox::No)->click();
    });
    types.setCurrentIndex(2);
    emit types.activated(2);
  }
  EXPECT_EQ(PointEditorWidget::CATEGORY_DATA, tab.editType());
  EXPECT_EQ(1, types.currentIndex()) << "the chooser goes back";
  EXPECT_TRUE(tab.dirty()) << "the table keeps its edits";
  {
    WhenShown<QMessageBox> yes([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    types.setCurrentIndex(2);
    emit types.activated(2);
  }
  EXPECT_EQ(PointEditorWidget::GENERIC_DATA, tab.editType());
  EXPECT_EQ(2, shown.rowCount()) << "the generic data of the same platform";
  EXPECT_EQ("Blue", categories()[0].value) << "the abandoned edit never reached the store";
}
