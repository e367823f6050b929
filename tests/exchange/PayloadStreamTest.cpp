// The payload's field reader against what Qt's own stream writes, and against lies in counts.
#include "exchange/PayloadStream.h"

#include <QDataStream>
#include <QVariantList>

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using QtSep::PayloadStream;

namespace
{

QByteArray written(const QVariantList& fields)
{
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  for (const QVariant& field : fields)
    out << field;
  return bytes;
}

} // namespace

TEST(PayloadStream, ReadsEveryValueTypeAsQtWritesIt)
{
  const QVariantList fields{QVariant(true),
                            QVariant(-123456),
                            QVariant(4000000000u),
                            QVariant(qlonglong(-9000000000LL)),
                            QVariant(qulonglong(18000000000000000000ULL)),
                            QVariant(-0.1),
                            QVariant(std::numeric_limits<double>::infinity()),
                            QVariant(QString::fromUtf8("Faucon p\xC3\xA8lerin \xF0\x9F\x9B\xA9")),
                            QVariant(QString::fromUtf8("")),
                            QVariant(QByteArray("\x00\x01\xFF", 3)),
                            QVariant(QVariantList{QString("Target"), QVariant(qulonglong(7))}),
                            QVariant()};
  PayloadStream in(written(fields));
  for (const QVariant& expected : fields)
  {
    QVariant field;
    ASSERT_TRUE(in.read(field)) << in.error();
    EXPECT_EQ(expected.userType(), field.userType());
    EXPECT_EQ(expected, field);
  }
  EXPECT_TRUE(in.atEnd());
  QVariant beyond;
  EXPECT_FALSE(in.read(beyond));
  EXPECT_NE(std::string::npos, in.error().find("ends"));
}

TEST(PayloadStream, TypedReadsRefuseOtherTypesAndAFailureSticks)
{
  PayloadStream in(written({QVariant(5), QString("Definition End"), QVariant(1.5)}));
  double number = 0.0;
  EXPECT_FALSE(in.readDouble(number));
  EXPECT_NE(std::string::npos, in.error().find("expected a number, found a whole number"));
  // Once failed, nothing more is read, also what would be right.
  EXPECT_FALSE(in.readMarker("Definition End"));
  EXPECT_TRUE(in.failed());

  PayloadStream marker(written({QString("Definition en")}));
  EXPECT_FALSE(marker.readMarker("Definition End"));
  // A null text reads as an empty one.
  PayloadStream null(written({QVariant(QString())}));
  QString text("x");
  EXPECT_TRUE(null.readText(text));
  EXPECT_TRUE(text.isEmpty());
}

TEST(PayloadStream, CountsBeyondTheBytesAndDeepNestingAreRefusedBeforeAnythingIsAllocated)
{
  const auto refused = [](const QByteArray& bytes, const char* why) {
    PayloadStream in(bytes);
    QVariant field;
    EXPECT_FALSE(in.read(field)) << why;
    EXPECT_NE(std::string::npos, in.error().find(why)) << in.error();
  };
  refused(QByteArray::fromHex("0000000900ffffffff"), "items in fewer bytes");
  refused(QByteArray::fromHex("0000000a00fffffffe"), "where fewer remain");
  refused(QByteArray::fromHex("0000000a000000000300"), "odd number");
  refused(QByteArray::fromHex("0000000c007fffffff"), "where fewer remain");
  refused(QByteArray::fromHex("0000004000"), "type 64");
  refused(QByteArray::fromHex("0000000900" "00000011" + QByteArray(17 * 5, '\0').toHex()), "where cells hold two");
  refused(QByteArray::fromHex("0000000102"), "null flag");
  refused(QByteArray::fromHex("00000006000000"), "ends inside a field");
  QVariant nested = QVariant(1);
  for (int depth = 0; depth <= PayloadStream::MOST_LIST_DEPTH; ++depth)
    nested = QVariantList{nested};
  refused(written({nested}), "nested too deep");
}
