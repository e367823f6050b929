#include "host/PIData.h"
#include "host/PIKELVOR.h"
#include "support/EntityTreeFixture.h"
#include "utils/QtCenterEntity.h"
#include "utils/SerializeTreeFilters.h"
#include "utils/TypeFilter.h"
#include "widgets/EntityNameFilter.h"
#include "widgets/EntityTreeComposite.h"
#include "widgets/SettingsImpl.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

namespace
{

class TreeComposite : public EntityTreeFixture
{
protected:
  void SetUp() override
  {
    EntityTreeFixture::SetUp();
    composite.setModel(&model);
  }

  void setNamePattern(const QString& pattern)
  {
    QMap<QString, QVariant> settings;
    settings[kelQt::EntityNameFilter::TEXT_KEY] = pattern;
    composite.setFilterSettings(settings);
  }

  QString namePattern() const
  {
    QMap<QString, QVariant> settings;
    composite.getFilterSettings(settings);
    return settings.value(kelQt::EntityNameFilter::TEXT_KEY).toString();
  }

  QStringList menuTexts(QMenu& menu) const
  {
    QStringList texts;
    for (QAction* action : menu.actions())
      texts << (action->isSeparator() ? QString("-") : action->text());
    return texts;
  }

  std::shared_ptr<kelQt::SettingsImpl> makeSettings() const
  {
    return std::make_shared<kelQt::SettingsImpl>(settingsDir.filePath("tree.ini"));
  }

  QTemporaryDir settingsDir;
  kelQt::EntityTreeComposite composite;
};

} // namespace

TEST_F(TreeComposite, CountLabelTellsShownOfAllOnlyWhileFiltered)
{
  auto* label = composite.findChild<QLabel*>("countLabel");
  EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() == "4"; }, 10000)) << label->text().toStdString();
  setNamePattern("Gate");
  // The gate shows with the beam and platform that host it.
  EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() == "3 of 4 Filtered Entity Names"; }, 10000))
    << label->text().toStdString();
}

TEST_F(TreeComposite, FilterConfigurationsAreKeptPerButtonAcrossSettingsFiles)
{
  auto* buttons = composite.findChild<QWidget*>("filterConfigWidget");
  EXPECT_TRUE(buttons->isHidden()) << "no buttons without settings";
  composite.setSettings(makeSettings());
  EXPECT_FALSE(buttons->isHidden());
  auto* blue = composite.findChild<QToolButton*>("f2Button");
  EXPECT_EQ("Loads the saved filter configuration.", blue->toolTip());
  EXPECT_FALSE(blue->icon().isNull()) << "the button's icon is in the resources";

  setNamePattern("Her");
  composite.saveFilterConfiguration(1, "herons");
  EXPECT_EQ("Loads the saved filter configuration: herons", blue->toolTip());
  EXPECT_EQ("Load herons", blue->text());

  // A tree reading the same file later gets the configuration back from disk.
  setNamePattern("");
  {
    kelQt::EntityTreeComposite again;
    again.setModel(&model);
    again.setSettings(makeSettings());
    EXPECT_EQ("Load herons", again.findChild<QToolButton*>("f2Button")->text());
    again.loadFilterConfiguration(1);
    QMap<QString, QVariant> settings;
    again.getFilterSettings(settings);
    EXPECT_EQ("Her", settings.value(kelQt::EntityNameFilter::TEXT_KEY).toString());
  }

  composite.loadFilterConfiguration(0);
  EXPECT_EQ("", namePattern()) << "a button with nothing stored changes nothing";
  blue->click();
  EXPECT_EQ("Her", namePattern()) << "a left click loads";

  composite.clearFilterConfiguration(1);
  EXPECT_EQ("Loads the saved filter configuration.", blue->toolTip());
  setNamePattern("Eag");
  composite.loadFilterConfiguration(1);
  EXPECT_EQ("Eag", namePattern());
}

TEST_F(TreeComposite, FilterConfigurationStreamsWhole)
{
  kelQt::EntityTreeComposite::FilterConfiguration out;
  out.description = "red ones";
  out.configuration["a"] = 7;
  out.configuration["b"] = QStringList{"x", "y"};
  QByteArray bytes;
  {
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QVariant::fromValue(out);
  }
  QDataStream stream(bytes);
  QVariant read;
  stream >> read;
  const auto in = read.value<kelQt::EntityTreeComposite::FilterConfiguration>();
  EXPECT_EQ(out.description, in.description);
  EXPECT_EQ(out.configuration, in.configuration);
  EXPECT_STREQ("kelQt::EntityTreeComposite::FilterConfiguration", read.typeName());
}

TEST_F(TreeComposite, ContextMenuOffersCopyCentringExternalActionsAndTreeOptions)
{
  QMenu* plain = composite.createContextMenu(nullptr);
  EXPECT_EQ(QStringList{"&Copy"}, menuTexts(*plain));
  delete plain;

  QAction external("Mine", nullptr);
  composite.addExternalAction(&external);
  composite.setShowCenterInMenu(true);
  composite.setShowTreeOptionsInMenu(true);
  composite.setUseCenterAction(false, "Scenario selected");
  qRegisterMetaType<QMenu*>();
  QSignalSpy requested(&composite, &kelQt::EntityTreeComposite::rightClickMenuRequested);
  std::unique_ptr<QMenu> menu(composite.createContextMenu(nullptr));
  EXPECT_EQ((QStringList{"&Copy", "Center On Selection (Scenario selected)", "-", "Mine", "-", "Expand All",
                         "Collapse All", "Toggle Tree View"}),
            menuTexts(*menu));
  ASSERT_EQ(1, requested.count()) << "the owner is asked before the menu shows";
  EXPECT_EQ(menu.get(), requested.at(0).at(0).value<QMenu*>());

  composite.removeExternalActions();
  composite.setUseCenterAction(true);
  menu.reset(composite.createContextMenu(nullptr));
  EXPECT_EQ("Center On Selection", menu->actions().at(1)->text());
  EXPECT_FALSE(menuTexts(*menu).contains("Mine"));
}

TEST_F(TreeComposite, CopyPutsSelectedNamesOnTheClipboardOnePerLine)
{
  composite.setSelected(QList<unsigned long>{sample.platform, other});
  std::unique_ptr<QMenu> menu(composite.createContextMenu(nullptr));
  menu->actions().front()->trigger();
  QStringList names = QApplication::clipboard()->text().split('\n');
  names.sort();
  EXPECT_EQ((QStringList{"Eagle", "Heron"}), names);
}

TEST_F(TreeComposite, TreeFiltersSurviveInTheHostSettings)
{
  composite.addEntityFilter(new PluginUtils::TypeFilter(PI_PLATFORM_TYPE | PI_BEAM_TYPE));
  setNamePattern("^R");
  QMap<QString, QVariant> saved;
  composite.getFilterSettings(saved);
  PluginUtils::SerializeTreeFilters::saveToSettings(composite, "Test/Tree");

  kelQt::EntityTreeComposite again;
  again.setModel(&model);
  again.addEntityFilter(new PluginUtils::TypeFilter(0xFFFF));
  PluginUtils::SerializeTreeFilters::restoreFromSettings(again, "Test/Other");
  QMap<QString, QVariant> untouched;
  again.getFilterSettings(untouched);
  EXPECT_EQ("", untouched.value(kelQt::EntityNameFilter::TEXT_KEY).toString()) << "nothing stored, nothing changed";

  PluginUtils::SerializeTreeFilters::restoreFromSettings(again, "Test/Tree");
  QMap<QString, QVariant> restored;
  again.getFilterSettings(restored);
  ASSERT_EQ(saved.keys(), restored.keys());
  for (const QString& key : saved.keys())
    EXPECT_EQ(saved[key].toString(), restored[key].toString()) << key.toStdString();
  EXPECT_EQ(saved.value(PluginUtils::TypeFilter::TYPES_KEY).toUInt(),
            restored.value(PluginUtils::TypeFilter::TYPES_KEY).toUInt());
}

TEST_F(TreeComposite, CentringNeedsOneDrawnEntityAliveAtTheViewTime)
{
  PluginUtils::QtCenterEntity center(composite);
  EXPECT_EQ("No entities selected", center.centerRefusal({}));
  EXPECT_EQ("Scenario selected", center.centerRefusal({0}));
  PIData::clockSetBegin(0.0);
  PIData::clockSetEnd(100.0);
  PIData::clockSetTime(10.0, 0.0);
  EXPECT_EQ("", center.centerRefusal({sample.platform}));
  EXPECT_EQ("", center.centerRefusal({other})) << "a platform without points is static";
  PIData::clockSetTime(50.0, 0.0);
  EXPECT_TRUE(center.centerRefusal({sample.platform}).startsWith("Time "));

  PIData::clockSetTime(10.0, 0.0);
  PIKELVOR::setPrefDrawFlag(sample.platform, false, true);
  EXPECT_EQ("Inactive entity selected", center.centerRefusal({other, sample.platform}));

  // The menu's centring follows the selection.
  QSignalSpy selected(&composite, &kelQt::EntityTreeComposite::itemsSelected);
  composite.setSelected(sample.platform);
  ASSERT_TRUE(selected.wait(10000));
  std::unique_ptr<QMenu> menu(composite.createContextMenu(nullptr));
  QAction* centring = menu->actions().at(1);
  EXPECT_EQ("Center On Selection (Inactive entity selected)", centring->text());
  EXPECT_FALSE(centring->isEnabled());

  emit composite.centerOnEntityRequested(sample.platform);
  ASSERT_FALSE(services.notifications.empty());
  EXPECT_EQ("Cannot center on inactive entity.", services.notifications.back().first);
  EXPECT_EQ(0u, services.tether.second);

  PIKELVOR::setPrefDrawFlag(sample.platform, true, true);
  emit composite.centerOnSelectionRequested({other, sample.platform});
  EXPECT_EQ(other, services.tether.second) << "the camera follows the first of the selection";
}
