#pragma once

#include <string>

namespace kelQt
{
class EntityTreeComposite;
}

namespace PluginUtils
{

/**
 * Keeps the filter settings of an entity tree in the host's settings, so that a tree opens
 * with the filters the user left it with.
 *
 * Under key + "/keys" lies the list of the filters' keys. Each value lies under key + "/" + its
 * key as its type name and text ("bool:true"); a list is marked "QStringList:" there and its
 * items lie under the same name with the ending "Vec".
 */
class SerializeTreeFilters
{
public:
  /// Writes the tree's filter settings under key, a path in the host's settings.
  static void saveToSettings(const kelQt::EntityTreeComposite& composite, const std::string& key);
  /// Reads what saveToSettings wrote under key and hands it to the tree's filters; nothing when none was written.
  static void restoreFromSettings(kelQt::EntityTreeComposite& composite, const std::string& key);
};

} // namespace PluginUtils
