#include "exchange/PayloadStream.h"

#include <QVariantList>

#include <cstring>

namespace QtSep
{

namespace
{

// QMetaType ids of the value types a payload carries; the stream's own numbering.
constexpr int TYPE_INVALID = 0;
constexpr int TYPE_BOOL = 1;
constexpr int TYPE_INT = 2;
constexpr int TYPE_UINT = 3;
constexpr int TYPE_LONGLONG = 4;
constexpr int TYPE_ULONGLONG = 5;
constexpr int TYPE_DOUBLE = 6;
constexpr int TYPE_LIST = 9;
constexpr int TYPE_STRING = 10;
constexpr int TYPE_BYTES = 12;

// A null text or byte array is written with this count in place of a length.
constexpr std::uint32_t NULL_COUNT = 0xFFFFFFFFu;
// The smallest field, a null cell: a type id and the null flag.
constexpr qint64 SMALLEST_FIELD = 5;

std::string typeName(int type)
{
  switch (type)
  {
  case TYPE_BOOL: return "a truth value";
  case TYPE_INT: return "a whole number";
  case TYPE_ULONGLONG: return "an id";
  case TYPE_DOUBLE: return "a number";
  case TYPE_STRING: return "a text";
  default: return "type " + std::to_string(type);
  }
}

} // namespace

PayloadStream::PayloadStream(const QByteArray& bytes) : bytes_(bytes) {}

bool PayloadStream::fail_(const std::string& reason)
{
  if (!failed_)
  {
    failed_ = true;
    error_ = reason + " at byte " + std::to_string(pos_);
  }
  return false;
}

bool PayloadStream::readNumber_(int count, std::uint64_t& number)
{
  if (remaining_() < count)
    return fail_("the payload ends inside a field");
  number = 0;
  const auto* data = reinterpret_cast<const unsigned char*>(bytes_.constData()) + pos_;
  for (int i = 0; i < count; ++i)
    number = (number << 8) | data[i];
  pos_ += count;
  return true;
}

bool PayloadStream::read(QVariant& value)
{
  if (failed_)
    return false;
  if (atEnd())
    return fail_("the payload ends where a field should follow");
  return readValue_(value, 0);
}

bool PayloadStream::readValue_(QVariant& value, int depth)
{
  std::uint64_t type = 0;
  std::uint64_t nullFlag = 0;
  if (!readNumber_(4, type) || !readNumber_(1, nullFlag))
    return false;
  if (nullFlag > 1)
    return fail_("a field's null flag is " + std::to_string(nullFlag));
  if (type == TYPE_INVALID)
  {
    value = QVariant();
    return true;
  }
  return readTyped_(value, static_cast<int>(type), depth);
}

bool PayloadStream::readTyped_(QVariant& value, int type, int depth)
{
  std::uint64_t number = 0;
  switch (type)
  {
  case TYPE_BOOL:
    if (!readNumber_(1, number))
      return false;
    value = QVariant(number != 0);
    return true;
  case TYPE_INT:
    if (!readNumber_(4, number))
      return false;
    value = QVariant(static_cast<int>(static_cast<std::int32_t>(static_cast<std::uint32_t>(number))));
    return true;
  case TYPE_UINT:
    if (!readNumber_(4, number))
      return false;
    value = QVariant(static_cast<unsigned int>(number));
    return true;
  case TYPE_LONGLONG:
    if (!readNumber_(8, number))
      return false;
    value = QVariant(static_cast<qlonglong>(number));
    return true;
  case TYPE_ULONGLONG:
    if (!readNumber_(8, number))
      return false;
    value = QVariant(static_cast<qulonglong>(number));
    return true;
  case TYPE_DOUBLE:
  {
    if (!readNumber_(8, number))
      return false;
    double real = 0.0;
    std::memcpy(&real, &number, sizeof real);
    value = QVariant(real);
    return true;
  }
  case TYPE_LIST: return readList_(value, depth);
  case TYPE_STRING: return readString_(value);
  case TYPE_BYTES: return readBytes_(value);
  default: return fail_("a field of type " + std::to_string(type) + ", which no payload holds");
  }
}

bool PayloadStream::readList_(QVariant& value, int depth)
{
  if (depth >= MOST_LIST_DEPTH)
    return fail_("lists nested too deep");
  std::uint64_t count = 0;
  if (!readNumber_(4, count))
    return false;
  // Each element takes at least a null cell's bytes: a count beyond that is a lie.
  if (static_cast<qint64>(count) > remaining_() / SMALLEST_FIELD)
    return fail_("a list of " + std::to_string(count) + " items in fewer bytes");
  if (count > MOST_LIST_ITEMS)
    return fail_("a list of " + std::to_string(count) + " items, where cells hold two");
  QVariantList items;
  items.reserve(static_cast<int>(count));
  for (std::uint64_t i = 0; i < count; ++i)
  {
    QVariant item;
    if (!readValue_(item, depth + 1))
      return false;
    items.push_back(item);
  }
  value = items;
  return true;
}

bool PayloadStream::readString_(QVariant& value)
{
  std::uint64_t count = 0;
  if (!readNumber_(4, count))
    return false;
  if (count == NULL_COUNT)
  {
    value = QVariant(QString(""));
    return true;
  }
  if (count % 2 != 0)
    return fail_("a text of an odd number of bytes");
  if (static_cast<qint64>(count) > remaining_())
    return fail_("a text of " + std::to_string(count) + " bytes where fewer remain");
  const int units = static_cast<int>(count / 2);
  QString text(units, Qt::Uninitialized);
  const auto* data = reinterpret_cast<const unsigned char*>(bytes_.constData()) + pos_;
  for (int i = 0; i < units; ++i)
    text[i] = QChar(static_cast<ushort>((data[2 * i] << 8) | data[2 * i + 1]));
  pos_ += static_cast<qint64>(count);
  value = QVariant(text);
  return true;
}

bool PayloadStream::readBytes_(QVariant& value)
{
  std::uint64_t count = 0;
  if (!readNumber_(4, count))
    return false;
  if (count == NULL_COUNT)
  {
    value = QVariant(QByteArray());
    return true;
  }
  if (static_cast<qint64>(count) > remaining_())
    return fail_("a byte array of " + std::to_string(count) + " bytes where fewer remain");
  value = QVariant(bytes_.mid(static_cast<int>(pos_), static_cast<int>(count)));
  pos_ += static_cast<qint64>(count);
  return true;
}

bool PayloadStream::readExpected_(int type, QVariant& value)
{
  if (!read(value))
    return false;
  if (value.userType() != type)
    return fail_("expected " + typeName(type) + ", found " +
                 (value.isValid() ? typeName(value.userType()) : std::string("an empty cell")));
  return true;
}

template <typename T>
bool PayloadStream::readAs_(int type, T& value)
{
  QVariant field;
  if (!readExpected_(type, field))
    return false;
  value = qvariant_cast<T>(field);
  return true;
}

bool PayloadStream::readText(QString& value) { return readAs_(TYPE_STRING, value); }

bool PayloadStream::readUtf8(std::string& value)
{
  QString text;
  if (!readText(text))
    return false;
  value = text.toUtf8().toStdString();
  return true;
}

bool PayloadStream::readInt(int& value) { return readAs_(TYPE_INT, value); }

bool PayloadStream::readBool(bool& value) { return readAs_(TYPE_BOOL, value); }

bool PayloadStream::readDouble(double& value) { return readAs_(TYPE_DOUBLE, value); }

bool PayloadStream::readUnsignedLong(unsigned long& value)
{
  qulonglong id = 0;
  if (!readAs_(TYPE_ULONGLONG, id))
    return false;
  value = static_cast<unsigned long>(id);
  return true;
}

bool PayloadStream::readMarker(const char* marker)
{
  QString text;
  if (!readText(text))
    return false;
  if (text != QLatin1String(marker))
    return fail_("expected \"" + std::string(marker) + "\", found \"" + text.left(64).toStdString() + "\"");
  return true;
}

} // namespace QtSep
