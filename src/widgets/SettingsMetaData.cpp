#include "widgets/SettingsMetaData.h"

#include <QDataStream>

namespace kelQt
{

SettingsMetaData::SettingsMetaData(DataTypes type, const QVariant& defaultValue, const QString& toolTip, DataLevel level)
  : type_(type), defaultValue_(defaultValue), toolTip_(toolTip), level_(level)
{
}

SettingsMetaData SettingsMetaData::makeBoolean(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(BOOLEAN, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeFilename(const QVariant& d, const QString& filter, const QString& tip,
                                                DataLevel level)
{
  SettingsMetaData m(FILENAME, d, tip, level);
  m.filenameFilter_ = filter;
  return m;
}

SettingsMetaData SettingsMetaData::makeDirectory(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(DIRECTORY, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeColor(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(COLOR, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeInteger(const QVariant& d, const QString& tip, DataLevel level, int minValue,
                                               int maxValue)
{
  SettingsMetaData m(INTEGER, d, tip, level);
  m.minValue_ = minValue;
  m.maxValue_ = maxValue;
  return m;
}

SettingsMetaData SettingsMetaData::makeDouble(const QVariant& d, const QString& tip, DataLevel level, int numDecimals,
                                              double minValue, double maxValue)
{
  SettingsMetaData m(DOUBLE, d, tip, level);
  m.numDecimals_ = numDecimals;
  m.minValue_ = minValue;
  m.maxValue_ = maxValue;
  return m;
}

SettingsMetaData SettingsMetaData::makeEnumeration(const QVariant& d, const QMap<int, QString>& enumValues,
                                                   const QString& tip, DataLevel level)
{
  SettingsMetaData m(ENUMERATION, d, tip, level);
  m.enumValues_ = enumValues;
  return m;
}

SettingsMetaData SettingsMetaData::makeFont(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(FONT, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeHex(const QVariant& d, const QString& tip, DataLevel level,
                                           unsigned int minValue, unsigned int maxValue)
{
  SettingsMetaData m(HEX, d, tip, level);
  m.minValue_ = minValue;
  m.maxValue_ = maxValue;
  return m;
}

SettingsMetaData SettingsMetaData::makePoint(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(POINT, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeSize(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(SIZE, d, tip, level);
}

SettingsMetaData SettingsMetaData::makeString(const QVariant& d, const QString& tip, DataLevel level)
{
  return SettingsMetaData(STRING, d, tip, level);
}

void SettingsMetaData::serialize(QDataStream& out) const
{
  out << static_cast<qint32>(type_) << defaultValue_ << toolTip_ << static_cast<qint32>(level_) << minValue_
      << maxValue_ << static_cast<qint32>(numDecimals_) << filenameFilter_ << enumValues_;
}

void SettingsMetaData::deserialize(QDataStream& in)
{
  qint32 type = 0, level = 0, decimals = 0;
  in >> type >> defaultValue_ >> toolTip_ >> level >> minValue_ >> maxValue_ >> decimals >> filenameFilter_ >>
      enumValues_;
  type_ = static_cast<DataTypes>(type);
  level_ = static_cast<DataLevel>(level);
  numDecimals_ = decimals;
}

bool SettingsMetaData::operator==(const SettingsMetaData& o) const
{
  return type_ == o.type_ && defaultValue_ == o.defaultValue_ && toolTip_ == o.toolTip_ && level_ == o.level_ &&
         minValue_ == o.minValue_ && maxValue_ == o.maxValue_ && numDecimals_ == o.numDecimals_ &&
         filenameFilter_ == o.filenameFilter_ && enumValues_ == o.enumValues_;
}

} // namespace kelQt
