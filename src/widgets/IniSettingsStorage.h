#pragma once

#include "widgets/SettingsStorage.h"

#include <memory>

class QSettings;

namespace kelQt
{

/// Settings kept in an INI file through QSettings.
class IniSettingsStorage : public SettingsStorage
{
public:
  /// @param iniFileName the file the values persist in
  explicit IniSettingsStorage(const QString& iniFileName);
  ~IniSettingsStorage() override;

  QMap<QString, QVariant> readAll() const override;
  bool read(const QString& name, QVariant& value) const override;
  void write(const QString& name, const QVariant& value) override;
  void erase(const QString& name) override;
  void eraseAll() override;
  void flush() override;
  QString location() const override;

private:
  std::unique_ptr<QSettings> file_;
};

} // namespace kelQt
