#pragma once

#include <memory>
#include <string>
#include <vector>

class QSettings;

namespace kelvor
{

/// The host's registry of plug-in settings: keyed strings in one INI file per user. KELVOR
/// Lite's own settings live in the same file, apart from the plug-ins' keys.
class Registry
{
public:
  /// @param iniFile the file; read at once, written through on every change
  explicit Registry(const std::string& iniFile);
  ~Registry();

  void setValue(const std::string& key, const std::string& value);
  /// @return false, leaving value alone, when the key is absent.
  bool value(const std::string& key, std::string& value) const;
  void setStringVector(const std::string& key, const std::vector<std::string>& values);
  /// @return false, leaving values alone, when the key is absent.
  bool stringVector(const std::string& key, std::vector<std::string>& values) const;
  /// Sets one of KELVOR Lite's own settings; plug-ins cannot reach it.
  void setSetting(const std::string& key, const std::string& value);
  /// @return false, leaving value alone, when the setting was never made.
  bool setting(const std::string& key, std::string& value) const;
  /// @return the file the registry persists in.
  std::string fileName() const;

private:
  std::unique_ptr<QSettings> file_;
};

} // namespace kelvor
