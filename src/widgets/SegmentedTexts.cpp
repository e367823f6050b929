#include "widgets/SegmentedTexts.h"

#include "widgets/NumberText.h"
#include "widgets/SeparatorText.h"

#include <algorithm>

namespace kelQt
{

SegmentedTexts::SegmentedTexts(kelCore::TimeFormat format)
  // Until an owner sets a range, it spans every year the calendar fields can show.
  : format_(format), start_(1, 0.0), end_(10000, 0.0)
{
}

SegmentedTexts::~SegmentedTexts() = default;

QString SegmentedTexts::text() const
{
  QString line;
  for (const auto& segment : segments_)
    line += segment->text();
  return line;
}

int SegmentedTexts::locatePart(const QStringList& tokens, int position) const
{
  int start = 0;
  int separator = -1;
  for (int index = 0; index < segmentCount() && index < tokens.size(); ++index)
  {
    const int end = start + tokens[index].size();
    if (position >= start && position <= end)
    {
      if (segments_[index]->canStep())
        return index;
      if (separator < 0 && position < end)
        separator = index;
    }
    start = end;
  }
  return separator;
}

int SegmentedTexts::getFirstCharacterLocation(const QStringList& tokens, int index)
{
  int start = 0;
  for (int before = 0; before < index && before < tokens.size(); ++before)
    start += tokens[before].size();
  return start;
}

bool SegmentedTexts::stepBy(int index, int steps)
{
  if (index < 0 || index >= segmentCount() || steps == 0 || !segments_[index]->canStep())
    return false;
  if (!stepSegment_(index, steps))
    return false;
  edited_ = true;
  const kelCore::TimeStamp stepped = timeStamp();
  const kelCore::TimeStamp bounded = limited(stepped);
  if (bounded != stepped)
    setTimeStamp(bounded);
  return true;
}

bool SegmentedTexts::stepSegment_(int index, int steps) { return segments_[index]->stepBy(steps); }

kelCore::TimeStamp SegmentedTexts::timeStamp() const
{
  if (!edited_)
    return stamp_;
  kelCore::TimeStamp shown;
  return combine_(tokens_(), shown) ? shown : stamp_;
}

void SegmentedTexts::setTimeStamp(const kelCore::TimeStamp& stamp)
{
  stamp_ = stamp;
  edited_ = false;
  split_(stamp);
}

QValidator::State SegmentedTexts::validate(const QString& text) const
{
  QStringList tokens;
  if (!tokenize(text, tokens))
    return QValidator::Invalid;
  QValidator::State state = QValidator::Acceptable;
  for (int index = 0; index < segmentCount(); ++index)
  {
    const QValidator::State field = segments_[index]->check(tokens[index]);
    if (field == QValidator::Invalid)
      return QValidator::Invalid;
    state = std::min(state, field);
  }
  kelCore::TimeStamp ignored;
  if (state == QValidator::Acceptable && !combine_(tokens, ignored))
    return QValidator::Intermediate;
  return state;
}

bool SegmentedTexts::setText(const QString& text)
{
  if (validate(text) != QValidator::Acceptable)
    return false;
  if (text == this->text())
    return true; // the exact stamp behind an unchanged text stays
  QStringList tokens;
  tokenize(text, tokens);
  for (int index = 0; index < segmentCount(); ++index)
    segments_[index]->setText(tokens[index]);
  edited_ = true;
  return true;
}

void SegmentedTexts::setTimeRange(int referenceYear, const kelCore::TimeStamp& start, const kelCore::TimeStamp& end)
{
  const kelCore::TimeStamp now = timeStamp();
  const bool yearChanged = referenceYear != referenceYear_;
  referenceYear_ = referenceYear;
  start_ = start;
  end_ = end;
  if (yearChanged)
    redisplay_(now);
}

void SegmentedTexts::getEnforceLimits(bool& low, bool& high) const
{
  low = enforceLow_;
  high = enforceHigh_;
}

void SegmentedTexts::setEnforceLimits(bool low, bool high)
{
  enforceLow_ = low;
  enforceHigh_ = high;
}

bool SegmentedTexts::inRange(const kelCore::TimeStamp& stamp) const { return start_ <= stamp && stamp <= end_; }

kelCore::TimeStamp SegmentedTexts::limited(const kelCore::TimeStamp& stamp) const
{
  if (enforceLow_ && stamp < start_)
    return start_;
  if (enforceHigh_ && stamp > end_)
    return end_;
  return stamp;
}

void SegmentedTexts::setPrecision(int digits)
{
  digits = std::clamp(digits, 0, 9);
  if (digits == precision_)
    return;
  const kelCore::TimeStamp now = timeStamp(); // read with the old fraction field
  precision_ = digits;
  segments_.clear();
  addSegments_();
  redisplay_(now);
}

void SegmentedTexts::setTimeZone(TimeZone zone)
{
  if (zone == timeZone_)
    return;
  const kelCore::TimeStamp now = timeStamp();
  timeZone_ = zone;
  redisplay_(now);
}

void SegmentedTexts::buildSegments()
{
  const kelCore::TimeStamp now = timeStamp();
  segments_.clear();
  addSegments_();
  redisplay_(now);
}

int SegmentedTexts::addSeparator_(const QString& text)
{
  segments_.push_back(std::make_unique<SeparatorText>(text));
  return segmentCount() - 1;
}

int SegmentedTexts::addNumber_(int width, long long minimum, long long maximum, int carryInto)
{
  return addSegment_(std::make_unique<NumberText>(width, minimum, maximum), carryInto);
}

int SegmentedTexts::addSegment_(std::unique_ptr<NumberText> field, int carryInto)
{
  if (carryInto >= 0)
    field->setNextSegment(segments_[carryInto].get());
  segments_.push_back(std::move(field));
  return segmentCount() - 1;
}

void SegmentedTexts::link_(int from, int into) { segments_[from]->setNextSegment(segments_[into].get()); }

int SegmentedTexts::addSexagesimal_(int carryInto)
{
  addSeparator_(QStringLiteral(":"));
  return addNumber_(2, 0, 59, carryInto);
}

int SegmentedTexts::addFraction_(int carryInto)
{
  if (precision_ == 0)
    return -1;
  addSeparator_(QStringLiteral("."));
  return addSegment_(
      std::make_unique<NumberText>(precision_, 0, precisionScale_() - 1, NumberText::Padding::TRAILING_ZEROS),
      carryInto);
}

NumberText& SegmentedTexts::number_(int index) const
{
  Q_ASSERT(dynamic_cast<NumberText*>(segments_[index].get()) != nullptr);
  return static_cast<NumberText&>(*segments_[index]);
}

double SegmentedTexts::fractionSeconds_(const QStringList& tokens, int fractionIndex) const
{
  if (fractionIndex < 0)
    return 0.0;
  return static_cast<double>(number_(fractionIndex).valueOf(tokens[fractionIndex])) / precisionScale_();
}

long long SegmentedTexts::precisionScale_() const
{
  long long scale = 1;
  for (int digit = 0; digit < precision_; ++digit)
    scale *= 10;
  return scale;
}

QStringList SegmentedTexts::tokens_() const
{
  QStringList tokens;
  for (const auto& segment : segments_)
    tokens << segment->text();
  return tokens;
}

bool SegmentedTexts::tokenize(const QString& text, QStringList& tokens) const
{
  tokens.clear();
  int at = 0;
  for (const auto& segment : segments_)
  {
    const int length = segment->scan(text, at);
    if (length < 0)
      return false;
    tokens << text.mid(at, length);
    at += length;
  }
  return at == text.size();
}

void SegmentedTexts::redisplay_(const kelCore::TimeStamp& now)
{
  const bool edited = edited_;
  setTimeStamp(now);
  edited_ = edited;
}

} // namespace kelQt
