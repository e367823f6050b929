#include "server/Registry.h"

#include <QSettings>
#include <QStringList>

namespace kelvor
{

namespace
{

// QSettings would read "/" in a key as a group separator; the registry's keys are flat.
QString flatKey(const std::string& key)
{
  QString k = QString::fromStdString(key);
  k.replace('\\', "\\\\");
  k.replace('/', "\\s");
  return "Registry/" + k;
}

QString settingKey(const std::string& key) { return "KelvorLite/" + QString::fromStdString(key); }

bool readText(const QSettings& file, const QString& key, std::string& value)
{
  if (!file.contains(key))
    return false;
  value = file.value(key).toString().toStdString();
  return true;
}

} // namespace

Registry::Registry(const std::string& iniFile)
  : file_(std::make_unique<QSettings>(QString::fromStdString(iniFile), QSettings::IniFormat))
{
}

Registry::~Registry() { file_->sync(); }

void Registry::setValue(const std::string& key, const std::string& value)
{
  file_->setValue(flatKey(key), QString::fromStdString(value));
}

bool Registry::value(const std::string& key, std::string& value) const { return readText(*file_, flatKey(key), value); }

void Registry::setStringVector(const std::string& key, const std::vector<std::string>& values)
{
  QStringList list;
  for (const std::string& v : values)
    list << QString::fromStdString(v);
  file_->setValue(flatKey(key), list);
}

bool Registry::stringVector(const std::string& key, std::vector<std::string>& values) const
{
  const QString k = flatKey(key);
  if (!file_->contains(k))
    return false;
  values.clear();
  for (const QString& v : file_->value(k).toStringList())
    values.push_back(v.toStdString());
  return true;
}

void Registry::setSetting(const std::string& key, const std::string& value)
{
  file_->setValue(settingKey(key), QString::fromStdString(value));
}

bool Registry::setting(const std::string& key, std::string& value) const
{
  return readText(*file_, settingKey(key), value);
}

std::string Registry::fileName() const { return file_->fileName().toStdString(); }

} // namespace kelvor
