#include "utils/RegistrySettingsStorage.h"

#include "host/PURegistry.h"

namespace PluginUtils
{

namespace
{

/// Text no setting holds: the registry answers it for a name it does not have.
const char* const ABSENT = "\x01" "absent";

} // namespace

bool RegistrySettingsStorage::read(const QString& name, QVariant& value) const
{
  const std::string text = PURegistry::loadReg(ABSENT, name.toStdString());
  if (text == ABSENT)
    return false;
  value = QString::fromStdString(text);
  return true;
}

void RegistrySettingsStorage::write(const QString& name, const QVariant& value)
{
  PURegistry::saveReg(name.toStdString(), value.toString().toStdString());
}

void RegistrySettingsStorage::erase(const QString& name)
{
  // The registry cannot forget a name: the marker of no value stands in its place.
  PURegistry::saveReg(name.toStdString(), std::string(ABSENT));
}

} // namespace PluginUtils
