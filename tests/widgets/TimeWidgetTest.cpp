#include "TimeTestSupport.h"

#include "widgets/MonthDayYearTexts.h"
#include "widgets/OrdinalTexts.h"
#include "widgets/SegmentedSpinBox.h"
#include "widgets/SegmentedTexts.h"
#include "widgets/TimeFormatContainer.h"
#include "widgets/TimeWidget.h"

#include "kelCore/TimeFormatterRegistry.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using kelCore::TimeFormat;
using kelCore::TimeStamp;
using namespace kelQt;
using timetest::date;
using timetest::FORMATS;
using timetest::ordinal;

namespace
{

QLineEdit* editOf(const QWidget* box) { return box->findChild<QLineEdit*>(); }

QColor textColor(const QWidget* box) { return editOf(box)->palette().color(QPalette::Text); }

TimeStamp editedStamp(const QSignalSpy& spy, int index) { return spy.at(index).at(0).value<TimeStamp>(); }

/// An ordinal box showing day 32 of 2024, 10:00, and a spy on its edits.
class SegmentedSpinBoxTest : public ::testing::Test
{
protected:
  explicit SegmentedSpinBoxTest()
    : box(std::make_unique<OrdinalTexts>()), edit(editOf(&box)), edited(&box, &SegmentedSpinBox::timeEdited)
  {
    box.setTimeStamp(start);
  }

  const TimeStamp start = ordinal(2024, 32, 10, 0, 0.0);
  SegmentedSpinBox box;
  QLineEdit* edit;
  QSignalSpy edited;
};

} // namespace

TEST(SegmentedSpinBox, ANewBoxShows1970ColourCodedAndWaitsHalfASecond)
{
  SegmentedSpinBox box(std::make_unique<MonthDayYearTexts>());
  EXPECT_EQ(TimeStamp(1970, 0.0), box.timeStamp());
  EXPECT_EQ("Jan 01 1970 00:00:00.000", editOf(&box)->text());
  EXPECT_TRUE(box.colorCode());
  EXPECT_EQ(500, box.applyInterval());
  EXPECT_EQ(175, box.minimumWidth());
}

TEST_F(SegmentedSpinBoxTest, StepsTheFieldUnderTheCursorAndKeepsItSelected)
{
  box.setTimeStamp(ordinal(2024, 32, 10, 59, 59.0));
  EXPECT_EQ("032 2024 10:59:59.000", edit->text());
  edit->setCursorPosition(13); // in the minutes
  box.stepBy(1);
  EXPECT_EQ("032 2024 11:00:59.000", edit->text()) << "the minutes carry into the hour";
  EXPECT_EQ(12, edit->selectionStart());
  EXPECT_EQ("00", edit->selectedText());

  QTest::keyClick(&box, Qt::Key_Up);
  EXPECT_EQ("032 2024 11:01:59.000", edit->text()) << "the arrow key steps the field still selected";
  EXPECT_EQ("01", edit->selectedText());
  QTest::keyClick(&box, Qt::Key_PageUp);
  EXPECT_EQ("032 2024 11:11:59.000", edit->text());

  edit->setCursorPosition(0);
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ("031 2024 11:11:59.000", edit->text());
  EXPECT_EQ("031", edit->selectedText());
  edit->setCursorPosition(3); // between the day and the blank: still the day
  box.stepBy(-31);
  EXPECT_EQ("365 2023 11:11:59.000", edit->text()) << "day 1 less one is the last day of the year before";

  EXPECT_EQ(0, box.value()) << "the integer value of the spin box is not used";
  EXPECT_EQ(0, edited.count()) << "steps too wait for the pause";
}

TEST_F(SegmentedSpinBoxTest, AnEditIsAppliedOnlyAfterAPauseInTheKeys)
{
  // Long enough that a busy machine does not let the whole pause pass between two looks at it.
  const int interval = 1000;
  box.setApplyInterval(interval);
  EXPECT_EQ(interval, box.applyInterval());
  auto* timer = box.findChild<QTimer*>("applyTimer");
  ASSERT_NE(nullptr, timer);

  edit->setCursorPosition(9); // the start of the hour
  QTest::keyClicks(&box, "13");
  EXPECT_EQ("032 2024 13:00:00.000", edit->text()) << "typing in a full field overwrites it";
  EXPECT_EQ(0, edited.count());
  ASSERT_TRUE(timer->isActive());

  // Part of the pause passes; another key, even one that edits nothing, starts it again.
  ASSERT_TRUE(QTest::qWaitFor([&] { return timer->remainingTime() < interval * 3 / 4; }, 5000));
  EXPECT_EQ(0, edited.count());
  QTest::keyClick(&box, Qt::Key_Right);
  QElapsedTimer sinceLastKey;
  sinceLastKey.start();
  EXPECT_GT(timer->remainingTime(), interval * 3 / 4);

  ASSERT_TRUE(edited.wait(5000));
  EXPECT_GE(sinceLastKey.elapsed(), interval * 9 / 10) << "a coarse timer may fire up to 5 % early, no more";
  ASSERT_EQ(1, edited.count());
  EXPECT_EQ(ordinal(2024, 32, 13, 0, 0.0), editedStamp(edited, 0));
  EXPECT_EQ(ordinal(2024, 32, 13, 0, 0.0), box.timeStamp());
}

TEST_F(SegmentedSpinBoxTest, ReturnAndLosingTheFocusApplyAtOnce)
{
  box.setApplyInterval(60 * 60 * 1000);
  QSignalSpy changed(&box, &SegmentedSpinBox::timeChanged);
  edit->setCursorPosition(9);
  QTest::keyClicks(&box, "14");
  QTest::keyClick(&box, Qt::Key_Return);
  ASSERT_EQ(1, edited.count());
  EXPECT_EQ(ordinal(2024, 32, 14, 0, 0.0), editedStamp(edited, 0));
  EXPECT_EQ(1, changed.count());

  edit->setCursorPosition(9);
  QTest::keyClicks(&box, "15");
  QFocusEvent focusOut(QEvent::FocusOut, Qt::TabFocusReason);
  QApplication::sendEvent(&box, &focusOut);
  ASSERT_EQ(2, edited.count());
  EXPECT_EQ(ordinal(2024, 32, 15, 0, 0.0), editedStamp(edited, 1));

  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(2, edited.count()) << "nothing new to apply";
  box.setTimeStamp(start);
  EXPECT_EQ(2, edited.count()) << "a time set by the program is not an edit";
  EXPECT_EQ(3, changed.count());
}

TEST_F(SegmentedSpinBoxTest, TypingGoesOnAcrossTheSeparators)
{
  box.setApplyInterval(10);
  edit->setCursorPosition(0);
  // The separators typed are refused and skipped; each digit overwrites the next one.
  QTest::keyClicks(&box, "100 2025 08:30:45.125");
  EXPECT_EQ("100 2025 08:30:45.125", edit->text());
  ASSERT_TRUE(edited.wait(5000));
  EXPECT_EQ(ordinal(2025, 100, 8, 30, 45.125), box.timeStamp());

  SegmentedSpinBox months(std::make_unique<MonthDayYearTexts>());
  months.setApplyInterval(10);
  months.setTimeStamp(date(2024, 1, 31, 0, 0, 0.0));
  QSignalSpy monthEdited(&months, &SegmentedSpinBox::timeEdited);
  editOf(&months)->setCursorPosition(0);
  QTest::keyClicks(&months, "apr");
  ASSERT_EQ("apr 31 2024 00:00:00.000", editOf(&months)->text()) << "a month is retyped whole; April has no 31st";
  EXPECT_FALSE(months.findChild<QTimer*>("applyTimer")->isActive()) << "an unfinished date is not applied";
  editOf(&months)->setCursorPosition(4);
  QTest::keyClicks(&months, "30");
  ASSERT_TRUE(monthEdited.wait(5000));
  EXPECT_EQ(date(2024, 4, 30, 0, 0, 0.0), months.timeStamp());
}

TEST(SegmentedSpinBox, TextPastedInEachFormatReadsBackToTheSameTime)
{
  const kelCore::TimeFormatterRegistry registry;
  const TimeStamp target = date(2024, 7, 4, 13, 5, 7.25);
  TimeWidget widget; // for a box of every format
  widget.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  for (const TimeFormat format : FORMATS)
  {
    widget.setTimeStamp(TimeStamp(2030, 1.0)); // an edit in one format reaches the others
    SegmentedSpinBox* box = widget.container(format)->widget();
    box->setApplyInterval(10);
    QSignalSpy edited(box, &SegmentedSpinBox::timeEdited);
    const QString text = QString::fromStdString(registry.toString(format, target, 2024, 3));
    editOf(box)->selectAll();
    editOf(box)->insert(text);
    ASSERT_EQ(text, editOf(box)->text());
    ASSERT_TRUE(edited.wait(5000)) << text.toStdString();
    EXPECT_EQ(target, box->timeStamp()) << text.toStdString();
  }
}

TEST_F(SegmentedSpinBoxTest, ColoursAndLimitsFollowTheRange)
{
  const QColor normal = textColor(&box);
  const TimeStamp rangeStart = ordinal(2024, 10, 0, 0, 0.0);
  const TimeStamp rangeEnd = ordinal(2024, 20, 0, 0, 0.0);
  box.setTimeRange(2024, rangeStart, rangeEnd);
  box.setEnforceLimits(false, true);
  box.setApplyInterval(10);

  box.setTimeStamp(ordinal(2024, 5, 0, 0, 0.0));
  EXPECT_EQ(QColor(Qt::red), textColor(&box)) << "before the start";
  EXPECT_EQ(ordinal(2024, 5, 0, 0, 0.0), box.timeStamp()) << "a time set by the program is not clamped";
  box.setColorCode(false);
  EXPECT_EQ(normal, textColor(&box));
  box.setColorCode(true);
  box.setTimeStamp(ordinal(2024, 15, 0, 0, 0.0));
  EXPECT_EQ(normal, textColor(&box));

  edit->setCursorPosition(0);
  QTest::keyClicks(&box, "030");
  EXPECT_EQ(QColor(Qt::red), textColor(&box)) << "marked while typing";
  ASSERT_TRUE(edited.wait(5000));
  EXPECT_EQ(rangeEnd, editedStamp(edited, 0)) << "the end is enforced";
  EXPECT_EQ("020 2024 00:00:00.000", edit->text());
  EXPECT_EQ(normal, textColor(&box));

  edit->setCursorPosition(0);
  QTest::keyClick(&box, Qt::Key_Up);
  EXPECT_EQ("020 2024 00:00:00.000", edit->text()) << "no step up at the enforced end";
  QTest::keyClick(&box, Qt::Key_Down);
  EXPECT_EQ("019 2024 00:00:00.000", edit->text());

  edit->setCursorPosition(0);
  QTest::keyClicks(&box, "001");
  ASSERT_TRUE(edited.wait(5000));
  EXPECT_EQ(ordinal(2024, 1, 0, 0, 0.0), box.timeStamp()) << "the start is not enforced";
  EXPECT_EQ(QColor(Qt::red), textColor(&box));
}

TEST(TimeWidget, AFormatSwitchKeepsTheTime)
{
  const kelCore::TimeFormatterRegistry registry;
  TimeWidget widget;
  EXPECT_EQ(TimeFormat::ORDINAL, widget.timeFormat());
  EXPECT_EQ(TimeStamp(1970, 0.0), widget.timeStamp());
  widget.setTimeRange(2024, TimeStamp(1, 0.0), TimeStamp(9999, 0.0));
  const TimeStamp stamp = date(2024, 2, 29, 13, 5, 7.25);
  widget.setTimeStamp(stamp);
  for (const TimeFormat format : FORMATS)
  {
    widget.setTimeFormat(format);
    EXPECT_EQ(format, widget.timeFormat());
    EXPECT_EQ(stamp, widget.timeStamp());
    EXPECT_EQ(registry.toString(format, stamp, 2024, 3),
              editOf(widget.container(format)->widget())->text().toStdString());
  }
  widget.setTimeFormat(TimeFormat::DTG);
  EXPECT_EQ(TimeFormat::MONTHDAY, widget.timeFormat()) << "a format not offered changes nothing";

  // An edit still waiting for its pause goes with the switch.
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
  widget.setTimeFormat(TimeFormat::SECONDS);
  SegmentedSpinBox* seconds = widget.container(TimeFormat::SECONDS)->widget();
  seconds->setApplyInterval(60 * 60 * 1000);
  QSignalSpy edited(&widget, &TimeWidget::timeEdited);
  editOf(seconds)->end(false);
  QTest::keyClick(seconds, Qt::Key_Up);
  widget.setTimeFormat(TimeFormat::ORDINAL);
  ASSERT_EQ(1, edited.count());
  EXPECT_EQ(stamp + 0.001, widget.timeStamp());
  EXPECT_EQ("060 2024 13:05:07.251", editOf(widget.container(TimeFormat::ORDINAL)->widget())->text());
}

TEST(TimeWidget, EverySetterAndEditReachesEveryFormat)
{
  TimeWidget widget;
  QSignalSpy rangeChanged(&widget, &TimeWidget::timeRangeChanged);
  QSignalSpy changed(&widget, &TimeWidget::timeChanged);
  QSignalSpy edited(&widget, &TimeWidget::timeEdited);
  const TimeStamp rangeStart = ordinal(2021, 1, 0, 0, 0.0);
  const TimeStamp rangeEnd = ordinal(2021, 2, 0, 0, 0.0);
  widget.setPrecision(1);
  widget.setTimeZone(TimeZone::LOCAL);
  widget.setEnforceLimits(false, true);
  widget.setColorCodeText(false);
  widget.setTimeRange(2020, rangeStart, rangeEnd);
  widget.setTimeRange(2020, rangeStart, rangeEnd);
  EXPECT_EQ(1, rangeChanged.count()) << "the same range again is no change";
  widget.setScenarioReferenceYear(2021);
  EXPECT_EQ(2, rangeChanged.count());
  widget.setTimeStamp(rangeStart);
  widget.setTimeStamp(rangeStart);
  EXPECT_EQ(1, changed.count());

  for (const TimeFormat format : FORMATS)
  {
    const TimeFormatContainer* container = widget.container(format);
    const SegmentedTexts& texts = container->widget()->texts();
    EXPECT_EQ(1, container->precision());
    EXPECT_EQ(TimeZone::LOCAL, container->timeZone());
    bool low = true, high = false;
    container->getEnforceLimits(low, high);
    EXPECT_FALSE(low);
    EXPECT_TRUE(high);
    EXPECT_FALSE(container->colorCode());
    EXPECT_EQ(2021, texts.referenceYear());
    EXPECT_EQ(rangeStart, texts.timeRangeStart()) << "the reference year alone changed";
    EXPECT_EQ(rangeEnd, texts.timeRangeEnd());
    EXPECT_EQ(rangeStart, container->timeStamp());
  }
  widget.setTimeZone(TimeZone::UTC);
  EXPECT_EQ("0.0", editOf(widget.container(TimeFormat::SECONDS)->widget())->text());

  SegmentedSpinBox* ordinalBox = widget.container(TimeFormat::ORDINAL)->widget();
  editOf(ordinalBox)->setCursorPosition(0);
  QTest::keyClick(ordinalBox, Qt::Key_Up);
  QTest::keyClick(ordinalBox, Qt::Key_Return);
  ASSERT_EQ(1, edited.count());
  EXPECT_EQ(2, changed.count());
  const TimeStamp nextDay = ordinal(2021, 2, 0, 0, 0.0);
  EXPECT_EQ(nextDay, editedStamp(edited, 0));
  for (const TimeFormat format : FORMATS)
    EXPECT_EQ(nextDay, widget.container(format)->timeStamp());
  EXPECT_EQ("86400.0", editOf(widget.container(TimeFormat::SECONDS)->widget())->text());
  EXPECT_EQ(nextDay, widget.property("timeStamp").value<TimeStamp>());

  widget.setProperty("timeFormat", QVariant::fromValue(TimeFormat::HOURS));
  EXPECT_EQ(TimeFormat::HOURS, widget.timeFormat());
  widget.setTimeEnabled(false);
  EXPECT_FALSE(widget.container(TimeFormat::HOURS)->widget()->isEnabled());
  EXPECT_FALSE(widget.timeEnabled());
}

TEST(TimeWidget, TheRightClickMenuOffersTheFormatsAndColourCoding)
{
  TimeWidget widget;
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));

  // Right-clicks in the box; the menu is inspected and one item picked while it is open.
  const auto rightClick = [&](const QString& pick) {
    QStringList items;
    QTimer inspector;
    inspector.setSingleShot(true);
    QObject::connect(&inspector, &QTimer::timeout, [&] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (menu == nullptr)
        return;
      for (QAction* action : menu->actions())
        items << action->text() + (action->isChecked() ? "*" : "");
      for (QAction* action : menu->actions())
        if (action->text() == pick)
          action->trigger();
      menu->close();
    });
    inspector.start(0);
    QLineEdit* edit = editOf(widget.container(widget.timeFormat())->widget());
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), edit->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(edit, &event);
    return items;
  };

  EXPECT_EQ(QStringList({"Seconds", "Minutes", "Hours", "Ordinal*", "Month Day Year", "", "&Color Code Text*"}),
            rightClick("Minutes"));
  EXPECT_EQ(TimeFormat::MINUTES, widget.timeFormat());
  EXPECT_EQ(QStringList({"Seconds", "Minutes*", "Hours", "Ordinal", "Month Day Year", "", "&Color Code Text*"}),
            rightClick("&Color Code Text"));
  EXPECT_FALSE(widget.colorCodeText());
  for (const TimeFormat format : FORMATS)
    EXPECT_FALSE(widget.container(format)->colorCode());
  EXPECT_EQ(QStringList({"Seconds", "Minutes*", "Hours", "Ordinal", "Month Day Year", "", "&Color Code Text"}),
            rightClick(QString()));
}

TEST(TimeWidget, LabelAndToolTips)
{
  TimeWidget widget;
  auto* label = widget.findChild<QLabel*>("timeLabel");
  ASSERT_NE(nullptr, label);
  EXPECT_FALSE(label->isVisibleTo(&widget)) << "no label, no room taken";
  widget.setLabel("Start Time:");
  widget.setLabelToolTip("When the slice begins");
  EXPECT_TRUE(label->isVisibleTo(&widget));
  EXPECT_EQ("Start Time:", widget.label());
  EXPECT_EQ("When the slice begins", label->toolTip());

  for (const TimeFormat format : FORMATS)
  {
    const TimeFormatContainer* container = widget.container(format);
    EXPECT_TRUE(container->toolTipText().startsWith("<strong>"));
    EXPECT_EQ(container->toolTipText(), container->widget()->toolTip());
  }
  widget.disableControlToolTips();
  for (const TimeFormat format : FORMATS)
    EXPECT_TRUE(widget.container(format)->widget()->toolTip().isEmpty());
}

// Closing a shown widget hides its boxes only after ~TimeWidget has run; a box applying its
// waiting edit then must not reach the widget's members, already destroyed.
TEST(TimeWidget, ClosingWithAnEditWaitingIsSafe)
{
  auto widget = std::make_unique<TimeWidget>();
  widget->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
  SegmentedSpinBox* box = widget->container(widget->timeFormat())->widget();
  box->setApplyInterval(60 * 60 * 1000);
  QSignalSpy boxEdited(box, &SegmentedSpinBox::timeEdited);
  editOf(box)->setCursorPosition(0);
  QTest::keyClick(box, Qt::Key_Up);
  ASSERT_TRUE(box->findChild<QTimer*>("applyTimer")->isActive());
  widget.reset();
  EXPECT_EQ(1, boxEdited.count()) << "the edit was applied on the way out";
}
