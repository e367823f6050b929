#include "widgets/BoundBooleanSetting.h"
#include "widgets/BoundColorSetting.h"
#include "widgets/BoundDoubleSetting.h"
#include "widgets/BoundIntegerSetting.h"
#include "widgets/BoundStringListSetting.h"
#include "widgets/BoundStringSetting.h"
#include "widgets/BoundVariantMapSetting.h"
#include "widgets/ColorWidget.h"
#include "widgets/FileSelectorWidget.h"
#include "widgets/SettingsGroup.h"
#include "widgets/SettingsImpl.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kelQt;
using MetaData = Settings::MetaData;

namespace
{

class CountingObserver : public Settings::Observer
{
public:
  void onSettingChange(const QString&, const QVariant&) override { ++count; }
  int count = 0;
};

class BoundSettings : public ::testing::Test
{
protected:
  QTemporaryDir dir;
  SettingsImpl settings{dir.filePath("bound.ini")};
};

TEST_F(BoundSettings, SettingTheSameValueTwiceWritesAndEmitsOnce)
{
  BoundIntegerSetting setting(nullptr, settings, "Count", MetaData::makeInteger(1));
  auto store = std::make_shared<CountingObserver>();
  settings.addObserver("Count", store);
  QSignalSpy spy(&setting, &BoundIntegerSetting::valueChanged);
  setting.setValue(4);
  setting.setValue(4);
  EXPECT_EQ(1, spy.count());
  EXPECT_EQ(1, store->count);
  EXPECT_EQ(4, settings.value("Count").toInt());
}

TEST_F(BoundSettings, AValueWrittenElsewhereReachesTheWidgetWithoutALoop)
{
  BoundIntegerSetting setting(nullptr, settings, "Count", MetaData::makeInteger(1, "How many", MetaData::DEFAULT, 0, 100));
  QSpinBox spinBox;
  setting.bindTo(&spinBox);
  auto store = std::make_shared<CountingObserver>();
  settings.addObserver("Count", store);
  QSignalSpy settingSpy(&setting, &BoundIntegerSetting::valueChanged);
  QSignalSpy widgetSpy(&spinBox, QOverload<int>::of(&QSpinBox::valueChanged));

  settings.setValue("Count", 42);
  EXPECT_EQ(42, spinBox.value());
  EXPECT_EQ(1, settingSpy.count());
  EXPECT_EQ(1, widgetSpy.count());
  EXPECT_EQ(1, store->count) << "the widget did not write the value back";

  spinBox.setValue(7);
  EXPECT_EQ(7, settings.value("Count").toInt());
  EXPECT_EQ(7, setting.value());
  EXPECT_EQ("How many", spinBox.toolTip());
}

TEST_F(BoundSettings, LimitsComeAfterTheValueSoTheClampedValueIsWrittenBack)
{
  // Fresh widgets allow 0-99 only; the metadata's limits decide, not the widget's first range.
  settings.setValue("Level", 500);
  BoundIntegerSetting level(nullptr, settings, "Level", MetaData::makeInteger(5, "", MetaData::DEFAULT, 0, 200));
  QSpinBox clamped;
  level.bindTo(&clamped);
  EXPECT_EQ(200, clamped.value());
  EXPECT_EQ(200, settings.value("Level").toInt()) << "the clamped value is written back";
  EXPECT_EQ(200, level.value());

  settings.setValue("Height", 150);
  BoundIntegerSetting height(nullptr, settings, "Height", MetaData::makeInteger(5, "", MetaData::DEFAULT, 0, 200));
  QSpinBox spinBox;
  height.bindTo(&spinBox);
  EXPECT_EQ(150, spinBox.value()) << "a stored value inside the limits shows as it is";
  EXPECT_EQ(150, settings.value("Height").toInt());
  QSlider slider;
  height.bindTo(&slider);
  EXPECT_EQ(150, slider.value());

  settings.setValue("Gap", 150.5);
  BoundDoubleSetting gap(nullptr, settings, "Gap", MetaData::makeDouble(1.0, "", MetaData::DEFAULT, 1, 0.0, 500.0));
  QDoubleSpinBox doubleBox;
  gap.bindTo(&doubleBox);
  EXPECT_DOUBLE_EQ(150.5, doubleBox.value());
  EXPECT_DOUBLE_EQ(150.5, settings.value("Gap").toDouble());

  // Without populateLimits the widget's own range holds; widget and store still agree.
  QSlider narrow;
  BoundIntegerSetting unlimited(nullptr, settings, "Slide", MetaData::makeInteger(150));
  unlimited.bindTo(&narrow, true, false);
  EXPECT_EQ(99, narrow.value());
  EXPECT_EQ(99, settings.value("Slide").toInt());
}

TEST_F(BoundSettings, AComboShowsTheEnumerationAndBindsItsNumbers)
{
  BoundIntegerSetting setting(nullptr, settings, "Mode",
                              MetaData::makeEnumeration(20, {{10, "Ten"}, {20, "Twenty"}, {30, "Thirty"}}));
  QComboBox combo;
  setting.bindTo(&combo);
  ASSERT_EQ(3, combo.count());
  EXPECT_EQ("Twenty", combo.currentText());
  combo.setCurrentIndex(2);
  EXPECT_EQ(30, settings.value("Mode").toInt());
  settings.setValue("Mode", 10);
  EXPECT_EQ("Ten", combo.currentText());
}

TEST_F(BoundSettings, BooleansFollowButtonsAndActions)
{
  BoundBooleanSetting setting(nullptr, settings, "ConfirmDelete", MetaData::makeBoolean(true, "Ask first"));
  QCheckBox box;
  QAction action(nullptr);
  setting.bindTo(&box);
  setting.bindTo(&action);
  EXPECT_TRUE(box.isChecked());
  EXPECT_TRUE(action.isChecked());
  box.setChecked(false);
  EXPECT_FALSE(action.isChecked());
  EXPECT_FALSE(settings.value("ConfirmDelete").toBool());
  EXPECT_EQ("Ask first", action.toolTip());
}

TEST_F(BoundSettings, DoublesTakeTheirDecimalsBeforeTheirValue)
{
  settings.setValue("Ratio", 0.125);
  BoundDoubleSetting setting(nullptr, settings, "Ratio", MetaData::makeDouble(1.0, "", MetaData::DEFAULT, 3, 0.0, 1.0));
  QDoubleSpinBox spinBox;
  setting.bindTo(&spinBox);
  EXPECT_EQ(3, spinBox.decimals());
  EXPECT_DOUBLE_EQ(0.125, spinBox.value());
  EXPECT_DOUBLE_EQ(0.125, settings.value("Ratio").toDouble()) << "no rounding written back";
  EXPECT_DOUBLE_EQ(1.0, spinBox.maximum());
}

TEST_F(BoundSettings, TextsColoursAndFileNames)
{
  BoundStringSetting text(nullptr, settings, "Name", MetaData::makeString("alpha"));
  QLineEdit edit;
  text.bindTo(&edit);
  EXPECT_EQ("alpha", edit.text());
  settings.setValue("Name", "beta");
  EXPECT_EQ("beta", edit.text());

  BoundStringSetting file(nullptr, settings, "File", MetaData::makeFilename("demo.kls", "*.kls"));
  FileSelectorWidget selector;
  file.bindTo(&selector);
  selector.setFilename("other.kls");
  EXPECT_EQ("other.kls", settings.value("File").toString());

  BoundColorSetting colour(nullptr, settings, "Colour", MetaData::makeColor(QColor(Qt::red)));
  ColorWidget swatch;
  colour.bindTo(&swatch);
  EXPECT_EQ(QColor(Qt::red), swatch.color());
  swatch.setColor(Qt::blue);
  EXPECT_EQ(QColor(Qt::blue), settings.value("Colour").value<QColor>());
}

TEST_F(BoundSettings, ListsAndMapsPersist)
{
  {
    BoundStringListSetting list(nullptr, settings, "Recent");
    list.setValue({"a.kls", "b.kls"});
    BoundVariantMapSetting map(nullptr, settings, "Columns");
    map.setValue({{"Time", 80}, {"Lat", 120}});
  }
  SettingsImpl reopened(dir.filePath("bound.ini"));
  BoundStringListSetting list(nullptr, reopened, "Recent");
  BoundVariantMapSetting map(nullptr, reopened, "Columns");
  EXPECT_EQ((QStringList{"a.kls", "b.kls"}), list.value());
  EXPECT_EQ(120, map.value().value("Lat").toInt());
}

TEST_F(BoundSettings, ASettingBoundThroughAGroupAndDeletedStopsListening)
{
  SettingsGroup group(&settings, "Private/ScenarioEditor");
  auto* setting = new BoundIntegerSetting(nullptr, group, "Window", MetaData::makeInteger(3));
  QSignalSpy spy(setting, &BoundIntegerSetting::valueChanged);
  settings.setValue("Private/ScenarioEditor/Window", 8);
  EXPECT_EQ(8, setting->value());
  EXPECT_EQ(1, spy.count());
  delete setting;
  settings.setValue("Private/ScenarioEditor/Window", 9); // would reach a deleted object if still observed
  EXPECT_EQ(9, group.value("Window").toInt());
}

} // namespace
