#include "widgets/IniSettingsStorage.h"

#include <QSettings>

namespace kelQt
{

IniSettingsStorage::IniSettingsStorage(const QString& iniFileName)
  : file_(std::make_unique<QSettings>(iniFileName, QSettings::IniFormat))
{
}

IniSettingsStorage::~IniSettingsStorage() { file_->sync(); }

QMap<QString, QVariant> IniSettingsStorage::readAll() const
{
  QMap<QString, QVariant> values;
  for (const QString& key : file_->allKeys())
    values[key] = file_->value(key);
  return values;
}

bool IniSettingsStorage::read(const QString& name, QVariant& value) const
{
  if (!file_->contains(name))
    return false;
  value = file_->value(name);
  return true;
}

void IniSettingsStorage::write(const QString& name, const QVariant& value) { file_->setValue(name, value); }

void IniSettingsStorage::erase(const QString& name) { file_->remove(name); }

void IniSettingsStorage::eraseAll()
{
  file_->clear();
  file_->sync();
}

void IniSettingsStorage::flush() { file_->sync(); }

QString IniSettingsStorage::location() const { return file_->fileName(); }

} // namespace kelQt
