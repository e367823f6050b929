#pragma once

#include "widgets/SettingsStorage.h"

namespace PluginUtils
{

/**
 * @brief Settings of the plug-in's tabs kept in the host's registry, as text under their full
 * names. The registry cannot list its names, so values are read one by one when first wanted;
 * the metadata of each setting gives the text back its type.
 */
class RegistrySettingsStorage : public kelQt::SettingsStorage
{
public:
  QMap<QString, QVariant> readAll() const override { return {}; }
  bool read(const QString& name, QVariant& value) const override;
  void write(const QString& name, const QVariant& value) override;
  void erase(const QString& name) override;
  void eraseAll() override {}
  void flush() override {}
  QString location() const override { return QString(); }
};

} // namespace PluginUtils
