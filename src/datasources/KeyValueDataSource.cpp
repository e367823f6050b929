#include "datasources/KeyValueDataSource.h"

#include "datasources/FilterWidget.h"
#include "datasources/RowRules.h"
#include "host/PIDataClock.h"
#include "units/UnitContextFormatter.h"

#include <algorithm>
#include <cmath>

namespace QtSep
{

namespace
{

constexpr double TOLERANCE = 1e-6;
const char* const NEW_VALUE = "Value";

} // namespace

KeyValueDataSource::KeyValueDataSource(const kelCore::UnitContextFormatter& formatter, const char* keyTitle,
                                       const char* valueTitle, const char* newKey, QObject* parent)
  : QObject(parent),
    formatter_(formatter),
    keyTitle_(keyTitle),
    valueTitle_(valueTitle),
    newKey_(newKey),
    filter_(std::make_unique<FilterWidget>())
{
}

KeyValueDataSource::~KeyValueDataSource() = default;

QWidget* KeyValueDataSource::widget() { return filter_.get(); }

void KeyValueDataSource::setUniqueId(unsigned long id, bool load)
{
  rows_.clear();
  const QString shown = filter_->currentKey();
  filter_->clear();
  if (load && id != 0)
  {
    for (const Item& item : readItems_(id))
    {
      rows_.emplace_back(item);
      filter_->addKey(item.key, false);
    }
  }
  // The keys show at once, with the key shown before where the entity still has it.
  filter_->showKeys();
  filter_->setCurrentKey(shown);
  id_ = id;
  dirty_ = false;
}

QVariant KeyValueDataSource::data(int row, int column, Role role) const
{
  if (!inRange_(row))
    return QVariant();
  const Item& item = rows_[row].edited;
  switch (column)
  {
  case TIME: return role == Role::Raw ? QVariant(item.time) : QVariant(QString::fromStdString(formatter_.formatTime(item.time)));
  case KEY: return QString::fromStdString(item.key);
  case VALUE: return QString::fromStdString(item.value);
  default: return QVariant();
  }
}

std::string KeyValueDataSource::columnName(int column) const
{
  switch (column)
  {
  case TIME: return "Time";
  case KEY: return keyTitle_;
  case VALUE: return valueTitle_;
  default: return std::string();
  }
}

bool KeyValueDataSource::isDirty(int row, int column) const
{
  if (!inRange_(row))
    return false;
  const Item& read = rows_[row].asRead;
  const Item& edited = rows_[row].edited;
  switch (column)
  {
  case TIME: return !(std::fabs(read.time - edited.time) < TOLERANCE);
  case KEY: return read.key != edited.key;
  case VALUE: return read.value != edited.value;
  default: return false;
  }
}

int KeyValueDataSource::setData(int row, int column, const QVariant& value)
{
  if (!inRange_(row) || column < TIME || column > VALUE)
    return 1;
  Item& edited = rows_[row].edited;
  if (column == TIME)
  {
    // A pasted time is as stored, where a static item has -1; typed text cannot be static.
    if (value.userType() == QMetaType::Double)
      return setTime_(value, true, edited.time, dirty_);
    return value.userType() == QMetaType::QString ? setTime_(value.toString().toUtf8().toStdString(), false, edited.time, dirty_)
                                                  : 1;
  }
  if (value.userType() != QMetaType::QString)
    return 1;
  const std::string text = value.toString().toUtf8().toStdString();
  if (column == KEY)
  {
    filter_->removeKey(edited.key);
    edited.key = text;
    filter_->addKey(text, true);
  }
  else
    edited.value = text;
  dirty_ = true;
  return 0;
}

int KeyValueDataSource::revert(int row, int column)
{
  if (!isDirty(row, column))
    return 1;
  Entry& entry = rows_[row];
  switch (column)
  {
  case TIME: entry.edited.time = entry.asRead.time; break;
  case KEY:
    filter_->removeKey(entry.edited.key);
    entry.edited.key = entry.asRead.key;
    filter_->addKey(entry.edited.key, true);
    break;
  default: entry.edited.value = entry.asRead.value; break;
  }
  // Added and deleted rows leave no dirty cell, as for platform points.
  if (!hasDirtyCell_())
    dirty_ = false;
  return 0;
}

void KeyValueDataSource::deleteRows(const std::vector<int>& rows)
{
  if (RowRules::deleteRows(rows_, rows, [this](const Entry& entry) { filter_->removeKey(entry.edited.key); }))
    dirty_ = true;
}

int KeyValueDataSource::moveRow(int from, int to) { return RowRules::moveRow(rows_, from, to); }

int KeyValueDataSource::getCopyDestination(int row) const { return RowRules::copyDestination(rows_, row); }

void KeyValueDataSource::copyRow(int row, int destination)
{
  dirty_ = true;
  if (rows_.empty())
  {
    // A first item: at the clock's time, under the key shown or a plain one.
    Item first;
    first.time = PIData::clockGetTime();
    first.key = filter_->currentKey().isEmpty() ? newKey_ : filter_->currentKey().toUtf8().toStdString();
    first.value = NEW_VALUE;
    rows_.emplace_back(first, true);
    filter_->addKey(first.key, true);
    return;
  }
  const Item& source = rows_[inRange_(row) ? row : rowCount() - 1].edited;
  rows_.insert(rows_.begin() + std::clamp(destination, 0, rowCount()), Entry(source, true));
  filter_->addKey(source.key, true);
}

void KeyValueDataSource::commitChanges(bool refresh)
{
  if (id_ == 0)
    return;
  std::vector<Item> items;
  items.reserve(rows_.size());
  for (const Entry& entry : rows_)
    items.push_back(entry.edited);
  writeItems_(id_, items);
  if (refresh)
    setUniqueId(id_, true);
}

} // namespace QtSep
