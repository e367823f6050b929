#include "widgets/SettingsGroup.h"
#include "widgets/SettingsImpl.h"

#include <QBuffer>
#include <QDataStream>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kelQt;

namespace
{

class Recorder : public Settings::Observer
{
public:
  void onSettingChange(const QString& name, const QVariant& value) override { changes.append({name, value}); }
  QList<QPair<QString, QVariant>> changes;
};

class SettingsStore : public ::testing::Test
{
protected:
  QString path() const { return dir.filePath("settings.ini"); }
  QTemporaryDir dir;
};

TEST_F(SettingsStore, ValuesPersistAndComeBackAsTheirMetadataSaysTheyWere)
{
  {
    SettingsImpl settings(path());
    settings.setValue("Private/ScenarioEditor/Count", 42);
    settings.setValue("Private/ScenarioEditor/Ratio", 0.25);
  }
  SettingsImpl reopened(path());
  EXPECT_TRUE(reopened.contains("Private/ScenarioEditor/Count"));
  const QVariant count = reopened.value("Private/ScenarioEditor/Count", Settings::MetaData::makeInteger(7));
  EXPECT_EQ(QMetaType::Int, count.userType()) << "an INI file gives text; the metadata gives the type back";
  EXPECT_EQ(42, count.toInt());
  EXPECT_EQ(0.25, reopened.value("Private/ScenarioEditor/Ratio").toDouble());
  EXPECT_EQ(path(), reopened.fileName());
}

TEST_F(SettingsStore, AnAbsentValueTakesItsDefaultAndResetsGoBackToIt)
{
  SettingsImpl settings(path());
  EXPECT_FALSE(settings.value("A").isValid());
  EXPECT_EQ(5, settings.value("A", Settings::MetaData::makeInteger(5, "tip", Settings::MetaData::ADVANCED, 0, 10)).toInt());
  EXPECT_TRUE(settings.contains("A"));
  Settings::MetaData stored;
  ASSERT_EQ(0, settings.metaData("A", stored));
  EXPECT_EQ("tip", stored.toolTip());
  EXPECT_EQ(10, stored.maxValue().toInt());
  EXPECT_EQ(1, settings.metaData("B", stored));

  settings.setValue("A", 9);
  settings.setValue("B", "kept");
  settings.resetDefaults();
  EXPECT_EQ(5, settings.value("A").toInt());
  EXPECT_EQ("kept", settings.value("B").toString()) << "no metadata, no default to go back to";
}

TEST_F(SettingsStore, ObserversHearEachChangeOnceExceptTheSkippedOne)
{
  SettingsImpl settings(path());
  auto everything = std::make_shared<Recorder>();
  auto one = std::make_shared<Recorder>();
  auto skipped = std::make_shared<Recorder>();
  settings.addObserver(everything);
  settings.addObserver("Speed", one);
  settings.addObserver("Speed", skipped);

  settings.setValue("Speed", 10);
  settings.setValue("Speed", 10);
  settings.setValue("Other", 1);
  settings.setValue("Speed", 12, skipped);
  EXPECT_EQ(3, everything->changes.size());
  EXPECT_EQ(2, one->changes.size());
  EXPECT_EQ(1, skipped->changes.size());

  EXPECT_EQ(0, settings.removeObserver("Speed", one));
  EXPECT_EQ(1, settings.removeObserver("Speed", one));
  settings.setValue("Speed", 13);
  EXPECT_EQ(2, one->changes.size());
}

TEST_F(SettingsStore, AMementoPutsValuesBack)
{
  SettingsImpl settings(path());
  settings.setValue("X", 1);
  auto memento = settings.createMemento();
  settings.setValue("X", 2);
  memento->restore(settings);
  EXPECT_EQ(1, settings.value("X").toInt());
}

TEST_F(SettingsStore, MetadataStreamsWithEveryField)
{
  auto metaData = Settings::MetaData::makeEnumeration(2, {{1, "One"}, {2, "Two"}}, "pick", Settings::MetaData::PRIVATE);
  metaData.addEnumeration(3, "Three");
  QByteArray bytes;
  {
    QDataStream out(&bytes, QIODevice::WriteOnly);
    metaData.serialize(out);
    Settings::MetaData::makeDouble(1.5, "d", Settings::MetaData::DEFAULT, 4, -2.0, 2.0).serialize(out);
  }
  QDataStream in(bytes);
  Settings::MetaData first, second;
  first.deserialize(in);
  second.deserialize(in);
  EXPECT_EQ(metaData, first);
  EXPECT_EQ(3, first.enumValues().size());
  EXPECT_EQ(4, second.numDecimals());
  EXPECT_EQ(-2.0, second.minValue().toDouble());
  EXPECT_NE(first, second);
  EXPECT_EQ("*.kls", Settings::MetaData::makeFilename("a.kls", "*.kls").filenameFilter());
}

TEST_F(SettingsStore, AGroupIsABranchSeenWithoutItsPath)
{
  SettingsImpl settings(path());
  settings.setValue("Outside", 1);
  auto group = std::make_shared<SettingsGroup>(&settings, "Private/ScenarioEditor/MakeStationary");
  group->setValue("Distance", 50.0);
  EXPECT_EQ(50.0, settings.value("Private/ScenarioEditor/MakeStationary/Distance").toDouble());
  EXPECT_EQ(QStringList{"Distance"}, group->allNames());

  auto named = std::make_shared<Recorder>();
  auto all = std::make_shared<Recorder>();
  group->addObserver("Distance", named);
  group->addObserver(all);
  settings.setValue("Private/ScenarioEditor/MakeStationary/Distance", 60.0);
  settings.setValue("Outside", 2);
  group->setValue("Time", 3.0);
  ASSERT_EQ(1, named->changes.size());
  EXPECT_EQ("Distance", named->changes[0].first);
  ASSERT_EQ(2, all->changes.size()) << "changes outside the branch are not the group's";
  EXPECT_EQ("Time", all->changes[1].first);

  group->setValue("Distance", 70.0, named);
  EXPECT_EQ(1, named->changes.size()) << "the skip works through the group";
  EXPECT_EQ(0, group->removeObserver(all));

  auto memento = group->createMemento();
  group->setValue("Distance", 1.0);
  memento->restore(*group);
  EXPECT_EQ(70.0, group->value("Distance").toDouble());

  group->clear();
  EXPECT_TRUE(group->allNames().isEmpty());
  EXPECT_EQ(2, settings.value("Outside").toInt()) << "clearing a group keeps the rest";
}

TEST_F(SettingsStore, ClearingAGroupTellsOnlyTheGroupsObservers)
{
  SettingsImpl settings(path());
  settings.setValue("Outside", 1);
  settings.setValue("Private/Other/Kept", "yes");
  auto group = std::make_shared<SettingsGroup>(&settings, "Private/ScenarioEditor");
  group->setValue("Gap", 12.0, Settings::MetaData::makeDouble(15.0));
  group->setValue("Name", "Hawk");
  auto inside = std::make_shared<Recorder>();
  auto outside = std::make_shared<Recorder>();
  group->addObserver("Gap", inside);
  settings.addObserver(outside);
  outside->changes.clear();

  group->clear();
  EXPECT_TRUE(group->allNames().isEmpty());
  EXPECT_EQ(QStringList({"Outside", "Private/Other/Kept"}), settings.allNames());
  ASSERT_EQ(1, inside->changes.size()) << "the group's own observer hears its value go";
  EXPECT_EQ("Gap", inside->changes[0].first);
  EXPECT_EQ(15.0, inside->changes[0].second.toDouble()) << "a cleared value reads as its default";
  EXPECT_EQ(15.0, group->value("Gap").toDouble());
  ASSERT_EQ(2, outside->changes.size()) << "the store's observer hears the two removals, nothing else";
  for (const auto& change : outside->changes)
    EXPECT_TRUE(change.first.startsWith("Private/ScenarioEditor/")) << change.first.toStdString();

  SettingsImpl reread(path());
  EXPECT_FALSE(reread.contains("Private/ScenarioEditor/Gap")) << "the file forgets them too";
  EXPECT_TRUE(reread.contains("Outside"));
}

TEST_F(SettingsStore, AGroupLetsGoOfAnObserverOnceItIsRemovedEverywhere)
{
  SettingsImpl settings(path());
  auto group = std::make_shared<SettingsGroup>(&settings, "Tab");
  auto observer = std::make_shared<Recorder>();
  std::weak_ptr<Recorder> watch = observer;
  group->addObserver("A", observer);
  group->addObserver("B", observer);
  EXPECT_EQ(0, group->removeObserver("A", observer));
  group->setValue("B", 2);
  EXPECT_EQ(1, observer->changes.size()) << "still registered for B";
  EXPECT_EQ(0, group->removeObserver("B", observer));
  EXPECT_EQ(1, group->removeObserver("B", observer)) << "nothing left to remove";
  observer.reset();
  EXPECT_TRUE(watch.expired()) << "the group keeps no wrapper, and so no observer, alive";
}

} // namespace
