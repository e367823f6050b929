#include "widgets/SegmentedSpinBox.h"

#include "widgets/SegmentedEventFilter.h"
#include "widgets/SegmentedText.h"
#include "widgets/SegmentedTexts.h"

#include <QLineEdit>
#include <QTimer>

namespace kelQt
{

SegmentedSpinBox::SegmentedSpinBox(std::unique_ptr<SegmentedTexts> texts, QWidget* parent)
  : QSpinBox(parent), texts_(std::move(texts)), applyTimer_(new QTimer(this))
{
  Q_ASSERT(texts_);
  qRegisterMetaType<kelCore::TimeStamp>();
  // The integer value is unused; a range of one value keeps it from ever changing.
  setRange(0, 0);
  setMinimumWidth(175);
  applyTimer_->setObjectName("applyTimer");
  applyTimer_->setSingleShot(true);
  applyTimer_->setInterval(500);
  connect(applyTimer_, &QTimer::timeout, this, &SegmentedSpinBox::applyTimestamp_);

  auto* filter = new SegmentedEventFilter(this);
  // Keys reach the box, which hands them to its line edit by a direct call that passes no filter
  // of the edit; keys sent to the edit itself do pass it. Watching both sees every key.
  lineEdit()->installEventFilter(filter);
  installEventFilter(filter);
  connect(filter, &SegmentedEventFilter::keyPressed, this, &SegmentedSpinBox::holdApply_);
  connect(filter, &SegmentedEventFilter::characterTyped, this, &SegmentedSpinBox::prepareOverwrite_);
  connect(filter, &SegmentedEventFilter::applyRequested, this, &SegmentedSpinBox::applyTimestamp_);
  connect(lineEdit(), &QLineEdit::textEdited, this, &SegmentedSpinBox::readTypedText_);

  texts_->setTimeStamp(timeStamp_);
  refreshText_();
}

SegmentedSpinBox::~SegmentedSpinBox() = default;

void SegmentedSpinBox::setTimeStamp(const kelCore::TimeStamp& stamp)
{
  applyTimer_->stop();
  texts_->setTimeStamp(stamp);
  refreshText_();
  if (stamp == timeStamp_)
    return;
  timeStamp_ = stamp;
  emit timeChanged(stamp);
}

void SegmentedSpinBox::setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end)
{
  texts_->setTimeRange(referenceYear, start, end);
  refreshText_();
}

void SegmentedSpinBox::getEnforceLimits(bool& low, bool& high) const { texts_->getEnforceLimits(low, high); }

void SegmentedSpinBox::setEnforceLimits(bool low, bool high) { texts_->setEnforceLimits(low, high); }

void SegmentedSpinBox::setColorCode(bool on)
{
  colorCode_ = on;
  updateColor_();
}

TimeZone SegmentedSpinBox::timeZone() const { return texts_->timeZone(); }

void SegmentedSpinBox::setTimeZone(TimeZone zone)
{
  texts_->setTimeZone(zone);
  refreshText_();
}

int SegmentedSpinBox::precision() const { return texts_->precision(); }

void SegmentedSpinBox::setPrecision(int digits)
{
  texts_->setPrecision(digits);
  refreshText_();
}

int SegmentedSpinBox::applyInterval() const { return applyTimer_->interval(); }

void SegmentedSpinBox::setApplyInterval(int milliseconds) { applyTimer_->setInterval(milliseconds); }

void SegmentedSpinBox::stepBy(int steps)
{
  // The field under the cursor in the line as it stands, which may be an unfinished edit.
  QStringList tokens;
  if (!texts_->tokenize(lineEdit()->text(), tokens))
    return;
  const int index = texts_->locatePart(tokens, lineEdit()->cursorPosition());
  if (index < 0 || !texts_->segment(index).canStep())
    return;
  if (texts_->stepBy(index, steps))
  {
    lineEdit()->setText(texts_->text());
    updateColor_();
    queueApplyTimestamp_();
  }
  QSpinBox::stepBy(steps);
  // The base class selects everything; select the field again so the next step acts on it.
  lineEdit()->setSelection(texts_->getFirstCharacterLocation(index), texts_->segment(index).numberOfCharacters());
}

QValidator::State SegmentedSpinBox::validate(QString& text, int&) const { return texts_->validate(text); }

QString SegmentedSpinBox::textFromValue(int) const { return texts_->text(); }

int SegmentedSpinBox::valueFromText(const QString&) const { return 0; }

QAbstractSpinBox::StepEnabled SegmentedSpinBox::stepEnabled() const
{
  if (isReadOnly())
    return StepNone;
  StepEnabled enabled = StepUpEnabled | StepDownEnabled;
  bool low = false;
  bool high = false;
  texts_->getEnforceLimits(low, high);
  const kelCore::TimeStamp shown = texts_->timeStamp();
  if (high && shown >= texts_->timeRangeEnd())
    enabled &= ~StepUpEnabled;
  if (low && shown <= texts_->timeRangeStart())
    enabled &= ~StepDownEnabled;
  return enabled;
}

void SegmentedSpinBox::focusOutEvent(QFocusEvent* event)
{
  QSpinBox::focusOutEvent(event);
  applyTimestamp_();
}

bool SegmentedSpinBox::event(QEvent* event)
{
  // A box that is hidden, as when its owner shows another format, hands on its edit now
  // rather than from out of sight later.
  if (event->type() == QEvent::Hide && applyTimer_->isActive())
    applyTimestamp_();
  return QSpinBox::event(event);
}

void SegmentedSpinBox::queueApplyTimestamp_() { applyTimer_->start(); }

void SegmentedSpinBox::holdApply_()
{
  if (applyTimer_->isActive())
    applyTimer_->start();
}

void SegmentedSpinBox::applyTimestamp_()
{
  applyTimer_->stop();
  const kelCore::TimeStamp shown = texts_->timeStamp();
  const kelCore::TimeStamp applied = texts_->limited(shown);
  if (applied != shown)
  {
    texts_->setTimeStamp(applied);
    refreshText_();
  }
  updateColor_();
  if (applied == timeStamp_)
    return;
  timeStamp_ = applied;
  emit timeEdited(applied);
  emit timeChanged(applied);
}

void SegmentedSpinBox::readTypedText_(const QString& text)
{
  if (!texts_->setText(text))
    return;
  updateColor_();
  queueApplyTimestamp_();
}

void SegmentedSpinBox::prepareOverwrite_(const QString& typed)
{
  QLineEdit* edit = lineEdit();
  const QString line = edit->text();
  const auto fits = [&](int from, int length) {
    QString candidate = line;
    candidate.replace(from, length, typed);
    return texts_->validate(candidate) != QValidator::Invalid;
  };
  int position = edit->cursorPosition();
  QStringList tokens;
  // The line is read as it stands, which may be an unfinished edit that the fields do not show.
  if (edit->hasSelectedText() || fits(position, 0) || !texts_->tokenize(line, tokens))
    return;
  int index = texts_->locatePart(tokens, position);
  if (index < 0)
    return;
  if (position == SegmentedTexts::getFirstCharacterLocation(tokens, index) + tokens[index].size())
  {
    // Past the end of a full field, typing goes on in the next one.
    do
      ++index;
    while (index < texts_->segmentCount() && !texts_->segment(index).canStep());
    if (index >= texts_->segmentCount())
      return;
    position = SegmentedTexts::getFirstCharacterLocation(tokens, index);
  }
  // Overwrite one character; where that cannot fit (a month name), retype the whole field.
  const int start = SegmentedTexts::getFirstCharacterLocation(tokens, index);
  if (fits(position, 1))
    edit->setSelection(position, 1);
  else if (fits(start, tokens[index].size()))
    edit->setSelection(start, tokens[index].size());
}

void SegmentedSpinBox::refreshText_()
{
  QLineEdit* edit = lineEdit();
  const QString text = texts_->text();
  if (edit->text() != text)
  {
    const int cursor = edit->cursorPosition();
    const int selectionStart = edit->selectionStart();
    const int selectionLength = edit->selectedText().size();
    edit->setText(text);
    if (selectionStart >= 0)
      edit->setSelection(selectionStart, selectionLength);
    else
      edit->setCursorPosition(std::min(cursor, static_cast<int>(text.size())));
  }
  updateColor_();
}

void SegmentedSpinBox::updateColor_()
{
  QPalette palette = lineEdit()->palette();
  const bool outside = colorCode_ && !texts_->inRange(texts_->timeStamp());
  palette.setColor(QPalette::Text, outside ? QColor(Qt::red) : this->palette().color(QPalette::Text));
  lineEdit()->setPalette(palette);
}

} // namespace kelQt
