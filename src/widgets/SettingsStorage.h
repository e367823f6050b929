#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

namespace kelQt
{

/**
 * @brief Where a SettingsImpl keeps its values: a file of its own, or a store the host offers.
 * A store that cannot list its names answers readAll with none and is asked name by name.
 */
class SettingsStorage
{
public:
  virtual ~SettingsStorage() = default;
  /// @return every value stored, for a store that can list them
  virtual QMap<QString, QVariant> readAll() const = 0;
  /// Reads one value. @return false when none is stored under name
  virtual bool read(const QString& name, QVariant& value) const = 0;
  virtual void write(const QString& name, const QVariant& value) = 0;
  virtual void erase(const QString& name) = 0;
  virtual void eraseAll() = 0;
  /// Makes what was written lasting.
  virtual void flush() = 0;
  /// @return the file the values persist in, empty for a store that has none
  virtual QString location() const = 0;
};

} // namespace kelQt
