#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <string>

namespace QtSep
{

/**
 * @brief Reads the fields of an entity payload: each a QVariant as a default-version, big-endian
 * QDataStream writes it (a 32-bit type id, an 8-bit null flag, the value).
 *
 * The payload comes from the clipboard or a drop, that is from any program, so nothing in it is
 * trusted: only the value types the payload uses are read (bool, int, unsigned int, 64-bit
 * integers, double, text, byte arrays and short lists of these), every count is checked against
 * the bytes that remain before anything is allocated, and lists are short and nest at most a
 * few levels deep.
 * A read that fails leaves the stream failed: every later read fails too, and error() says
 * what was wrong and at which byte.
 *
 * Reading allocates at most a few times the size of the field it reads, and costs linear time
 * in the payload.
 */
class PayloadStream
{
public:
  /// @param bytes the payload; the stream keeps a shallow copy of it
  explicit PayloadStream(const QByteArray& bytes);

  /// @return true when every byte has been read
  bool atEnd() const { return pos_ >= bytes_.size(); }
  /// @return true when a read has failed
  bool failed() const { return failed_; }
  /// @return what made the first failed read fail, with the byte offset; empty while none has
  const std::string& error() const { return error_; }

  /**
   * Reads one field of any supported type; a null cell gives an invalid QVariant.
   * @return false at the end of the payload, on a type the payload does not use, or on a field
   * cut short
   */
  bool read(QVariant& value);

  /// Reads a field that must be of this type. @return false for another type or a failed read
  bool readText(QString& value);
  /// Reads a text field into UTF-8.
  bool readUtf8(std::string& value);
  bool readInt(int& value);
  bool readBool(bool& value);
  bool readDouble(double& value);
  bool readUnsignedLong(unsigned long& value);

  /// Reads a text field and compares it with marker. @return true only for that exact text
  bool readMarker(const char* marker);

  /// The deepest nesting of lists read; the format itself uses one level.
  static constexpr int MOST_LIST_DEPTH = 4;
  /// The longest list read; the format's lists hold two forms of one cell.
  static constexpr int MOST_LIST_ITEMS = 16;

private:
  bool readValue_(QVariant& value, int depth);
  bool readTyped_(QVariant& value, int type, int depth);
  bool readList_(QVariant& value, int depth);
  bool readString_(QVariant& value);
  bool readBytes_(QVariant& value);
  /// Reads count bytes big-endian into an unsigned number.
  bool readNumber_(int count, std::uint64_t& number);
  bool readExpected_(int type, QVariant& value);
  /// Reads a field of the type, converted to T.
  template <typename T>
  bool readAs_(int type, T& value);
  /// Marks the stream failed with reason; always false, for `return fail_(...)`.
  bool fail_(const std::string& reason);
  qint64 remaining_() const { return bytes_.size() - pos_; }

  QByteArray bytes_;
  qint64 pos_ = 0;
  bool failed_ = false;
  std::string error_;
};

} // namespace QtSep
