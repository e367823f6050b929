#include "host/PIData.h"
#include "support/EntityTreeFixture.h"
#include "widgets/EntityNameFilter.h"
#include "widgets/EntityProxyModel.h"
#include "widgets/EntityTreeWidget.h"
#include "widgets/SettingsImpl.h"

#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

namespace
{

class EntityTreeView : public EntityTreeFixture
{
protected:
  void SetUp() override
  {
    EntityTreeFixture::SetUp();
    tree.setModel(&model);
  }

  QTreeView view;
  kelQt::EntityTreeWidget tree{&view};
};

} // namespace

TEST_F(EntityTreeView, SelectionChangesWithinTheBatchTimeGiveOneReport)
{
  QSignalSpy selected(&tree, &kelQt::EntityTreeWidget::itemsSelected);
  for (int i = 0; i < 10; ++i)
    tree.setSelected({i % 2 ? sample.platform : other});
  EXPECT_EQ(0, selected.count());
  ASSERT_TRUE(selected.wait(10000));
  ASSERT_EQ(1, selected.count());
  EXPECT_EQ(QList<unsigned long>{sample.platform}, selected.at(0).at(0).value<QList<unsigned long>>());

  tree.setSelected({other, sample.platform, 9999});
  ASSERT_TRUE(selected.wait(10000));
  ASSERT_EQ(2, selected.count());
  EXPECT_EQ(2, tree.selectedItems().size()) << "an id not shown is passed over";
}

TEST_F(EntityTreeView, CountsShownAndAllEntitiesAfterFiltering)
{
  QSignalSpy counted(&tree, &kelQt::EntityTreeWidget::numFilteredItemsChanged);
  auto* names = new kelQt::EntityNameFilter(&model);
  tree.addEntityFilter(names);
  names->setRegExp("Her", Qt::CaseInsensitive, QRegExp::RegExp);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !counted.isEmpty() && counted.last().at(0).toInt() == 1; }, 10000));
  EXPECT_EQ(1, counted.last().at(0).toInt());
  EXPECT_EQ(4, counted.last().at(1).toInt());
}

TEST_F(EntityTreeView, TheTreeOrListChoiceIsKeptInSettings)
{
  QTemporaryDir settingsDir;
  auto settings = std::make_shared<kelQt::SettingsImpl>(settingsDir.filePath("tree.ini"));
  tree.setSettings(settings);
  EXPECT_TRUE(tree.isTreeView()) << "a tree at first";
  QSignalSpy changed(&tree, &kelQt::EntityTreeWidget::treeViewChanged);
  tree.toggleTreeView(false);
  EXPECT_EQ(1, changed.count());
  EXPECT_EQ(4, model.rowCount()) << "every entity at the top";

  PluginUtils::EntityTreeModel otherModel;
  QTreeView otherView;
  kelQt::EntityTreeWidget again(&otherView);
  again.setModel(&otherModel);
  again.setSettings(settings);
  EXPECT_FALSE(again.isTreeView());
}
