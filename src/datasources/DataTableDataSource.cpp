#include "datasources/DataTableDataSource.h"

#include "datasources/RowRules.h"
#include "host/Blob.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "host/PIDataTables.h"
#include "kelCore/StringUtils.h"
#include "kelCore/TimeFormatterRegistry.h"
#include "units/UnitContextFormatter.h"
#include "widgets/GuardedDialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>

namespace QtSep
{

namespace
{

constexpr double TOLERANCE = 1e-6;
const char* const NULL_TEXT = "NULL";
/// Tables the host keeps for itself (track history, LOB styles) are not the user's to edit.
const char* const INTERNAL_PREFIX = "__Internal_";
const char* const BLANKS = " \n\r\t";

/// Runs f with a value of the C++ type a storage type holds; false for unknown and blob.
template <typename F>
bool withNumberType(UTILS::VariableType_t type, F f)
{
  switch (type)
  {
  case UTILS::VT_UINT8: f(std::uint8_t()); return true;
  case UTILS::VT_INT8: f(std::int8_t()); return true;
  case UTILS::VT_UINT16: f(std::uint16_t()); return true;
  case UTILS::VT_INT16: f(std::int16_t()); return true;
  case UTILS::VT_UINT32: f(std::uint32_t()); return true;
  case UTILS::VT_INT32: f(std::int32_t()); return true;
  case UTILS::VT_UINT64: f(std::uint64_t()); return true;
  case UTILS::VT_INT64: f(std::int64_t()); return true;
  case UTILS::VT_FLOAT: f(float()); return true;
  case UTILS::VT_DOUBLE: f(double()); return true;
  default: return false;
  }
}

/// @return whether a signed 64-bit number fits integer type T
template <typename T>
bool inIntegerRange(long long number)
{
  if constexpr (std::is_signed_v<T>)
    return number >= static_cast<long long>(std::numeric_limits<T>::min()) &&
           number <= static_cast<long long>(std::numeric_limits<T>::max());
  else
    return number >= 0 && static_cast<unsigned long long>(number) <= std::numeric_limits<T>::max();
}

bool isFloating(UTILS::VariableType_t type) { return type == UTILS::VT_FLOAT || type == UTILS::VT_DOUBLE; }

/// Reads "NaN", "Inf" and "-Inf" in any case, then numbers. @return false for text that is none
bool parseFloating(const std::string& text, double& out)
{
  if (kelCore::caseCompare(text, "NaN") == 0)
    out = std::numeric_limits<double>::quiet_NaN();
  else if (kelCore::caseCompare(text, "Inf") == 0)
    out = std::numeric_limits<double>::infinity();
  else if (kelCore::caseCompare(text, "-Inf") == 0)
    out = -std::numeric_limits<double>::infinity();
  else
    return kelCore::isValidNumber(text, out, true);
  return true;
}

/// Collects the rows of a table as the host walks them.
class RowCollector : public PIData::PerDataTableRowFunctor
{
public:
  explicit RowCollector(std::deque<PIData::DataTableRowT>& rows) : rows_(rows) {}
  bool operator()(const PIData::DataTableRowT& row) override
  {
    rows_.push_back(row);
    return true;
  }

private:
  std::deque<PIData::DataTableRowT>& rows_;
};

} // namespace

DataTableDataSource::DataTableDataSource(const kelCore::UnitContextFormatter& formatter, QObject* parent)
  : QObject(parent),
    formatter_(formatter),
    panel_(std::make_unique<QWidget>()),
    combo_(new QComboBox),
    delete_(new QPushButton(tr("Delete Data Table")))
{
  combo_->setObjectName("tableComboBox");
  combo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  delete_->setObjectName("deleteTablePushButton");
  auto* row = new QHBoxLayout(panel_.get());
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(combo_);
  row->addWidget(delete_);
  row->addStretch(1);
  connect(combo_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DataTableDataSource::selectTable_);
  connect(delete_, &QPushButton::clicked, this, &DataTableDataSource::deleteTable_);
  delete_->setEnabled(false);
}

DataTableDataSource::~DataTableDataSource() = default;

QWidget* DataTableDataSource::widget() { return panel_.get(); }

void DataTableDataSource::setUniqueId(unsigned long id, bool load)
{
  id_ = id;
  rows_.clear();
  columns_.clear();
  tableId_ = -1;
  {
    // The model resets around this call: the first table loads here, not through the combo.
    const QSignalBlocker quiet(combo_);
    combo_->clear();
    std::vector<long> tables;
    if (load && id != 0)
      PIData::getAllDataTableIDs(id, &tables);
    for (long table : tables)
    {
      const std::string name = PIData::getDataTableName(table);
      if (name.rfind(INTERNAL_PREFIX, 0) != 0)
        combo_->addItem(QString::fromStdString(name), QVariant::fromValue(static_cast<qlonglong>(table)));
    }
  }
  delete_->setEnabled(combo_->count() > 0);
  if (combo_->count() > 0)
    loadDataTable(static_cast<long>(combo_->itemData(0).toLongLong()));
  clearDirty_();
}

void DataTableDataSource::loadDataTable(long tableId)
{
  tableId_ = tableId;
  columns_ = {Column{0, "Time", UTILS::VT_DOUBLE, UTILS::UNITS_NONE}};
  rows_.clear();
  std::vector<long> ids;
  PIData::getDataTableColumns(tableId, &ids);
  for (long column : ids)
  {
    Column added{static_cast<unsigned long>(column), std::string(), UTILS::VT_UNKNOWN, UTILS::UNITS_NONE};
    PIData::getDataTableColumnName(tableId, column, &added.name);
    PIData::getDataTableColumnUnits(tableId, column, &added.units);
    PIData::getDataTableColumnStorageType(tableId, column, &added.type);
    columns_.push_back(added);
  }
  std::deque<PIData::DataTableRowT> read;
  RowCollector collector(read);
  PIData::forEachDataTableRow(tableId, 0.0, std::numeric_limits<double>::max(), &collector);
  for (PIData::DataTableRowT& row : read)
    rows_.emplace_back(row);
}

void DataTableDataSource::selectTable_(int index)
{
  if (index < 0)
    return;
  emit beginLayoutChanged();
  rows_.clear();
  loadDataTable(static_cast<long>(combo_->itemData(index).toLongLong()));
  emit endLayoutChanged();
}

void DataTableDataSource::deleteTable_()
{
  const int index = combo_->currentIndex();
  if (index < 0)
    return;
  kelQt::GuardedDialog<QMessageBox> question(QMessageBox::Question, tr("Delete Data Table"),
                                            tr("A data table delete cannot be undone.  Are you sure?"),
                                            QMessageBox::Yes | QMessageBox::No, panel_.get());
  if (question.exec() != QMessageBox::Yes)
    return;
  PIData::removeDataTable(static_cast<long>(combo_->itemData(index).toLongLong()));
  if (combo_->count() == 1)
  {
    // The last table went: nothing is shown any more.
    emit beginLayoutChanged();
    const QSignalBlocker quiet(combo_);
    combo_->removeItem(index);
    rows_.clear();
    columns_.clear();
    tableId_ = -1;
    emit endLayoutChanged();
  }
  else
    combo_->removeItem(index); // the next table shows through selectTable_
  delete_->setEnabled(combo_->count() > 0);
}

std::string DataTableDataSource::columnName(int column) const
{
  return column >= 0 && column < columnCount() ? columns_[column].name : std::string();
}

bool DataTableDataSource::isColumnEditable(int column) const
{
  if (column < 0 || column >= columnCount())
    return false;
  return columns_[column].type != UTILS::VT_UNKNOWN && columns_[column].type != UTILS::VT_BLOB;
}

std::string DataTableDataSource::cellDisplayString_(const PIData::DataTableRowT& row, unsigned long columnId,
                                                    UTILS::VariableType_t type) const
{
  const PIData::DataTableCell* cell = row.findCell(columnId);
  if (!cell)
    return NULL_TEXT;
  switch (type)
  {
  case UTILS::VT_UNKNOWN: return "Unknown";
  case UTILS::VT_STRING: {
    std::string text;
    cell->getValue(text);
    return text;
  }
  case UTILS::VT_BLOB: return "BLOB";
  default: break;
  }
  if (isFloating(type))
  {
    double value = 0.0;
    cell->getValue(value);
    if (std::isnan(value))
      return "NaN";
    if (std::isinf(value))
      return value > 0 ? "Infinity" : "-Infinity";
    return formatter_.formatDouble(value);
  }
  std::string text;
  withNumberType(type, [&](auto zero) {
    decltype(zero) value = zero;
    cell->getValue(value);
    std::ostringstream out;
    out << +value; // 8-bit types as numbers
    text = out.str();
  });
  return text;
}

QVariant DataTableDataSource::cellValue_(const PIData::DataTableRowT& row, unsigned long columnId,
                                         UTILS::VariableType_t type) const
{
  const PIData::DataTableCell* cell = row.findCell(columnId);
  if (!cell)
    return QVariant();
  if (type == UTILS::VT_STRING)
  {
    std::string text;
    cell->getValue(text);
    return QString::fromStdString(text);
  }
  if (type == UTILS::VT_BLOB)
  {
    UTILS::Blob bytes;
    cell->getValue(bytes);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
  }
  QVariant result;
  withNumberType(type, [&](auto zero) {
    decltype(zero) value = zero;
    cell->getValue(value);
    if constexpr (std::is_floating_point_v<decltype(zero)>)
      result = static_cast<double>(value);
    else if constexpr (std::is_signed_v<decltype(zero)>)
      result = static_cast<qlonglong>(value);
    else
      result = static_cast<qulonglong>(value);
  });
  return result;
}

QVariant DataTableDataSource::data(int row, int column, Role role) const
{
  if (!inRange_(row) || column < 0 || column >= columnCount())
    return QVariant();
  const PIData::DataTableRowT& edited = rows_[row].edited;
  if (column == 0)
    return role == Role::Raw ? QVariant(edited.time()) : QVariant(QString::fromStdString(formatter_.formatTime(edited.time())));
  const Column& layout = columns_[column];
  if (role == Role::Raw)
    return cellValue_(edited, layout.id, layout.type);
  return QString::fromStdString(cellDisplayString_(edited, layout.id, layout.type));
}

int DataTableDataSource::setData(int row, int column, const QVariant& value)
{
  if (!inRange_(row) || column < 0 || column >= columnCount())
    return 1;
  if (value.userType() != QMetaType::QString)
    return setTypedData_(rows_[row].edited, column, value);
  const std::string text = value.toString().toUtf8().toStdString();
  PIData::DataTableRowT& edited = rows_[row].edited;
  if (column == 0)
  {
    const int year = PIData::getReferenceYear();
    kelCore::TimeStamp stamp;
    if (kelCore::TimeFormatterRegistry().fromString(text, stamp, year) != 0)
      return 1;
    edited.setTime(stamp.secondsSinceRefYear(year).Double());
    setDirty_();
    return 0;
  }
  const Column& layout = columns_[column];
  if (text == NULL_TEXT)
  {
    if (edited.removeCell(layout.id))
      setDirty_();
    return 0;
  }
  if (setCell_(edited, layout, text) != 0)
    return 1;
  setDirty_();
  return 0;
}

int DataTableDataSource::setTypedData_(PIData::DataTableRowT& edited, int column, const QVariant& value)
{
  // A pasted cell: the value in its storage form, or null for an absent cell. Text, pasted or
  // typed, takes the text path.
  if (column == 0)
  {
    if (value.userType() != QMetaType::Double || !std::isfinite(value.toDouble()))
      return 1;
    edited.setTime(value.toDouble());
    setDirty_();
    return 0;
  }
  const Column& layout = columns_[column];
  int status = 1;
  if (value.isNull() && !value.isValid())
  {
    edited.removeCell(layout.id);
    status = 0;
  }
  else if (layout.type == UTILS::VT_BLOB && value.userType() == QMetaType::QByteArray)
  {
    const QByteArray bytes = value.toByteArray();
    status = PIData::DataTableRowT::setCellValueT(edited, layout.id, UTILS::Blob(bytes.begin(), bytes.end()));
  }
  else
    status = setTypedNumber_(edited, layout, value);
  if (status != 0)
    return 1;
  setDirty_();
  return 0;
}

int DataTableDataSource::setTypedNumber_(PIData::DataTableRowT& row, const Column& column, const QVariant& value)
{
  int status = 1;
  const int type = value.userType();
  withNumberType(column.type, [&](auto zero) {
    using T = decltype(zero);
    if constexpr (std::is_floating_point_v<T>)
    {
      // A value out of a float's range would not convert; it comes from no float cell.
      const double number = value.toDouble();
      if (type == QMetaType::Double &&
          (!std::isfinite(number) || std::fabs(number) <= static_cast<double>(std::numeric_limits<T>::max())))
        status = PIData::DataTableRowT::setCellValueT(row, column.id, static_cast<T>(number)) == 0 ? 0 : 1;
    }
    else if (type == QMetaType::LongLong)
    {
      const qlonglong number = value.toLongLong();
      if (inIntegerRange<T>(number))
        status = PIData::DataTableRowT::setCellValueT(row, column.id, static_cast<T>(number)) == 0 ? 0 : 1;
    }
    else if (type == QMetaType::ULongLong)
    {
      const qulonglong number = value.toULongLong();
      if (number <= static_cast<qulonglong>(std::numeric_limits<T>::max()))
        status = PIData::DataTableRowT::setCellValueT(row, column.id, static_cast<T>(number)) == 0 ? 0 : 1;
    }
  });
  return status;
}

int DataTableDataSource::setCell_(PIData::DataTableRowT& row, const Column& column, const std::string& text)
{
  if (column.type == UTILS::VT_STRING)
  {
    const std::size_t first = text.find_first_not_of(BLANKS);
    const std::string trimmed =
      first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
    return PIData::DataTableRowT::setCellValueT(row, column.id, trimmed) == 0 ? 0 : 1;
  }
  if (isFloating(column.type))
  {
    double number = 0.0;
    if (!parseFloating(text, number))
      return 1;
    if (column.type == UTILS::VT_FLOAT)
      return PIData::DataTableRowT::setCellValueT(row, column.id, static_cast<float>(number)) == 0 ? 0 : 1;
    return PIData::DataTableRowT::setCellValueT(row, column.id, number) == 0 ? 0 : 1;
  }
  int status = 1;
  withNumberType(column.type, [&](auto zero) {
    decltype(zero) number = zero;
    if (kelCore::isValidNumber(text, number, true))
      status = PIData::DataTableRowT::setCellValueT(row, column.id, number) == 0 ? 0 : 1;
  });
  return status;
}

bool DataTableDataSource::areCellsEqual_(const PIData::DataTableRowT& a, const PIData::DataTableRowT& b,
                                         const Column& column) const
{
  const PIData::DataTableCell* left = a.findCell(column.id);
  const PIData::DataTableCell* right = b.findCell(column.id);
  if (!left || !right)
    return !left && !right;
  if (column.type == UTILS::VT_STRING)
  {
    std::string x, y;
    left->getValue(x);
    right->getValue(y);
    return x == y;
  }
  if (column.type == UTILS::VT_BLOB)
  {
    UTILS::Blob x, y;
    left->getValue(x);
    right->getValue(y);
    return x == y;
  }
  if (isFloating(column.type))
  {
    double x = 0.0, y = 0.0;
    left->getValue(x);
    right->getValue(y);
    // NaN equals NaN here: a cell read as NaN and left alone is no edit.
    return (std::isnan(x) && std::isnan(y)) || x == y || std::fabs(x - y) < TOLERANCE;
  }
  bool equal = true;
  withNumberType(column.type, [&](auto zero) {
    decltype(zero) x = zero, y = zero;
    left->getValue(x);
    right->getValue(y);
    equal = x == y;
  });
  return equal;
}

bool DataTableDataSource::isDirty(int row, int column) const
{
  if (!inRange_(row) || column < 0 || column >= columnCount())
    return false;
  const Entry& entry = rows_[row];
  if (entry.added)
    return true;
  if (column == 0)
    return !(std::fabs(entry.asRead.time() - entry.edited.time()) < TOLERANCE);
  return !areCellsEqual_(entry.asRead, entry.edited, columns_[column]);
}

int DataTableDataSource::revert(int row, int column)
{
  if (!isDirty(row, column))
    return 1;
  Entry& entry = rows_[row];
  if (column == 0)
    entry.edited.setTime(entry.asRead.time());
  else
  {
    const unsigned long id = columns_[column].id;
    const PIData::DataTableCell* read = entry.asRead.findCell(id);
    entry.edited.setCell(id, read ? read->clone() : nullptr);
  }
  if (!hasDirtyCell_())
    clearDirty_();
  return 0;
}

void DataTableDataSource::deleteRows(const std::vector<int>& rows)
{
  setDirty_();
  std::vector<int> sorted(rows);
  std::sort(sorted.begin(), sorted.end());
  RowRules::deleteRows(rows_, sorted, [](const Entry&) {});
}

int DataTableDataSource::moveRow(int from, int to) { return RowRules::moveRow(rows_, from, to); }

int DataTableDataSource::getCopyDestination(int row) const { return RowRules::copyDestination(rows_, row); }

void DataTableDataSource::copyRow(int row, int destination)
{
  setDirty_();
  if (rows_.empty())
  {
    // A first row at the entity's earliest time, or its host's when it has no data yet.
    double time = PIData::getEarliestTime(id_);
    if (time < 0.0)
      time = PIData::getEarliestTime(PIData::getObjectHost(id_));
    rows_.emplace_back(PIData::DataTableRowT(std::max(0.0, time)), true);
    return;
  }
  const PIData::DataTableRowT& source = rows_[inRange_(row) ? row : rowCount() - 1].edited;
  rows_.insert(rows_.begin() + std::clamp(destination, 0, rowCount()), Entry(source, true));
}

void DataTableDataSource::commitChanges(bool)
{
  if (tableId_ == -1)
    return;
  const std::string name = PIData::getDataTableName(tableId_);
  PIData::removeDataTable(tableId_);
  std::vector<std::string> names;
  std::vector<UTILS::VariableType_t> types;
  std::vector<UTILS::UnitType_t> units;
  for (std::size_t i = 1; i < columns_.size(); ++i)
  {
    names.push_back(columns_[i].name);
    types.push_back(columns_[i].type);
    units.push_back(columns_[i].units);
  }
  long made = -1;
  PIData::addDataTable(id_, name, &names, &types, &made);
  PIData::setDataTableColumnUnits(made, &units);
  // The new table numbers its columns anew, in the same order.
  std::vector<long> ids;
  PIData::getDataTableColumns(made, &ids);
  for (const Entry& entry : rows_)
  {
    if (entry.edited.empty())
      continue;
    PIData::DataTableRowT row(entry.edited.time());
    for (std::size_t i = 1; i < columns_.size() && i - 1 < ids.size(); ++i)
    {
      if (const PIData::DataTableCell* cell = entry.edited.findCell(columns_[i].id))
        row.setCell(static_cast<unsigned long>(ids[i - 1]), cell->clone());
    }
    PIData::addDataTableRow(made, row);
  }
  clearDirty_();
  // The chooser holds the table under its new id.
  const int index = combo_->findData(QVariant::fromValue(static_cast<qlonglong>(tableId_)));
  if (index >= 0)
    combo_->setItemData(index, QVariant::fromValue(static_cast<qlonglong>(made)));
  loadDataTable(made);
}

} // namespace QtSep
