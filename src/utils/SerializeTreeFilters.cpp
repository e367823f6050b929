#include "utils/SerializeTreeFilters.h"

#include "host/PICommon.h"
#include "widgets/EntityTreeComposite.h"

#include <QStringList>

namespace PluginUtils
{

namespace
{

const QString LIST_TYPE = "QStringList";

std::string valueKey(const std::string& key, const QString& name)
{
  return key + "/" + name.toStdString();
}

std::vector<std::string> toStdStrings(const QStringList& texts)
{
  std::vector<std::string> out;
  out.reserve(texts.size());
  for (const QString& text : texts)
    out.push_back(text.toStdString());
  return out;
}

QStringList toQStrings(const std::vector<std::string>& texts)
{
  QStringList out;
  for (const std::string& text : texts)
    out << QString::fromStdString(text);
  return out;
}

/// @return the stored text of a value as its type name and text; invalid values as an empty text.
QString encodeScalar(const QVariant& value)
{
  return QString("%1:%2").arg(value.typeName() ? value.typeName() : "QString", value.toString());
}

/// @return the value of a text of encodeScalar; invalid for a type that cannot be read back.
QVariant decodeScalar(const QString& text)
{
  const int colon = text.indexOf(':');
  if (colon < 0)
    return QVariant();
  const int type = QMetaType::type(text.left(colon).toLatin1().constData());
  QVariant value(text.mid(colon + 1));
  if (type == QMetaType::UnknownType || !value.convert(type))
    return QVariant();
  return value;
}

} // namespace

void SerializeTreeFilters::saveToSettings(const kelQt::EntityTreeComposite& composite, const std::string& key)
{
  QMap<QString, QVariant> settings;
  composite.getFilterSettings(settings);
  for (auto it = settings.cbegin(); it != settings.cend(); ++it)
  {
    const std::string name = valueKey(key, it.key());
    if (it.value().type() == QVariant::StringList || it.value().type() == QVariant::List)
    {
      PICommon::setSettingsValueStr(name, (LIST_TYPE + ":").toStdString());
      PICommon::setSettingsValueStringVec(name + "Vec", toStdStrings(it.value().toStringList()));
    }
    else
      PICommon::setSettingsValueStr(name, encodeScalar(it.value()).toStdString());
  }
  PICommon::setSettingsValueStringVec(key + "/keys", toStdStrings(settings.keys()));
}

void SerializeTreeFilters::restoreFromSettings(kelQt::EntityTreeComposite& composite, const std::string& key)
{
  const QStringList names = toQStrings(PICommon::getSettingsValueStringVec(key + "/keys"));
  if (names.isEmpty())
    return;
  QMap<QString, QVariant> settings;
  for (const QString& name : names)
  {
    const std::string stored = valueKey(key, name);
    const QString text = QString::fromStdString(PICommon::getSettingsValueStr(stored));
    if (text == LIST_TYPE + ":")
      settings[name] = toQStrings(PICommon::getSettingsValueStringVec(stored + "Vec"));
    else if (const QVariant value = decodeScalar(text); value.isValid())
      settings[name] = value;
  }
  composite.setFilterSettings(settings);
}

} // namespace PluginUtils
