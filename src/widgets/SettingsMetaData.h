#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

class QDataStream;

namespace kelQt
{

/// What a setting holds and how a user may set it: type, default, tool tip, level, limits.
class SettingsMetaData
{
public:
  /// Kinds of value.
  enum DataTypes
  {
    UNSPECIFIED = 0,
    BOOLEAN,
    INTEGER,
    DOUBLE,
    STRING,
    COLOR,
    FILENAME,
    DIRECTORY,
    FONT,
    HEX,
    POINT,
    SIZE,
    ENUMERATION,
    STRING_LIST,
    VARIANT_MAP
  };

  /// Who is meant to change the setting.
  enum DataLevel
  {
    DEFAULT = 0, ///< every user
    ADVANCED,    ///< users who know what it does
    PRIVATE,     ///< the program itself
    UNKNOWN
  };

  SettingsMetaData() = default;
  /// @param type kind of value @param defaultValue value before any is set @param toolTip help text @param level who changes it
  SettingsMetaData(DataTypes type, const QVariant& defaultValue, const QString& toolTip, DataLevel level);

  static SettingsMetaData makeBoolean(const QVariant& defaultValue, const QString& toolTip = QString(),
                                      DataLevel level = DEFAULT);
  /// @param filter file name filter of the chooser, as "Images (*.png)"
  static SettingsMetaData makeFilename(const QVariant& defaultValue, const QString& filter,
                                       const QString& toolTip = QString(), DataLevel level = DEFAULT);
  static SettingsMetaData makeDirectory(const QVariant& defaultValue, const QString& toolTip = QString(),
                                        DataLevel level = DEFAULT);
  static SettingsMetaData makeColor(const QVariant& defaultValue, const QString& toolTip = QString(),
                                    DataLevel level = DEFAULT);
  /// @param minValue least value @param maxValue greatest value
  static SettingsMetaData makeInteger(const QVariant& defaultValue, const QString& toolTip = QString(),
                                      DataLevel level = DEFAULT, int minValue = INT_MIN, int maxValue = INT_MAX);
  /// @param numDecimals decimals shown
  static SettingsMetaData makeDouble(const QVariant& defaultValue, const QString& toolTip = QString(),
                                     DataLevel level = DEFAULT, int numDecimals = 2, double minValue = -1e300,
                                     double maxValue = 1e300);
  /// @param enumValues number and text of each choice
  static SettingsMetaData makeEnumeration(const QVariant& defaultValue, const QMap<int, QString>& enumValues,
                                          const QString& toolTip = QString(), DataLevel level = DEFAULT);
  static SettingsMetaData makeFont(const QVariant& defaultValue, const QString& toolTip = QString(),
                                   DataLevel level = DEFAULT);
  static SettingsMetaData makeHex(const QVariant& defaultValue, const QString& toolTip = QString(),
                                  DataLevel level = DEFAULT, unsigned int minValue = 0, unsigned int maxValue = UINT_MAX);
  static SettingsMetaData makePoint(const QVariant& defaultValue, const QString& toolTip = QString(),
                                    DataLevel level = DEFAULT);
  static SettingsMetaData makeSize(const QVariant& defaultValue, const QString& toolTip = QString(),
                                   DataLevel level = DEFAULT);
  static SettingsMetaData makeString(const QVariant& defaultValue, const QString& toolTip = QString(),
                                     DataLevel level = DEFAULT);

  DataTypes type() const { return type_; }
  const QVariant& defaultValue() const { return defaultValue_; }
  const QString& toolTip() const { return toolTip_; }
  DataLevel level() const { return level_; }
  /// Least value; invalid when there is no limit.
  const QVariant& minValue() const { return minValue_; }
  /// Greatest value; invalid when there is no limit.
  const QVariant& maxValue() const { return maxValue_; }
  int numDecimals() const { return numDecimals_; }
  const QString& filenameFilter() const { return filenameFilter_; }
  const QMap<int, QString>& enumValues() const { return enumValues_; }
  /// Adds a choice to an enumeration. @param value its number @param text its text
  void addEnumeration(int value, const QString& text) { enumValues_[value] = text; }

  void setToolTip(const QString& toolTip) { toolTip_ = toolTip; }
  void setDefaultValue(const QVariant& value) { defaultValue_ = value; }

  /// Writes every field to out.
  void serialize(QDataStream& out) const;
  /// Reads every field from in, as serialize wrote them.
  void deserialize(QDataStream& in);

  bool operator==(const SettingsMetaData& o) const;
  bool operator!=(const SettingsMetaData& o) const { return !(*this == o); }

private:
  DataTypes type_ = UNSPECIFIED;
  QVariant defaultValue_;
  QString toolTip_;
  DataLevel level_ = UNKNOWN;
  QVariant minValue_;
  QVariant maxValue_;
  int numDecimals_ = 2;
  QString filenameFilter_;
  QMap<int, QString> enumValues_;
};

} // namespace kelQt
