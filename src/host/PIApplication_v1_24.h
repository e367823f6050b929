#pragma once

#include "host/PIApplication_v1_20.h"

namespace PIApp
{

/// Adds the CurveBench 10 question and configuration options saved as key and value.
class PIApplication_v1_24 : public PIApplication_v1_20
{
public:
  /// The options a plug-in saves, written into the host's list as key then value.
  class ConfigOptions
  {
  public:
    /// @param lines the host's list that receives the options
    explicit ConfigOptions(std::vector<std::string>& lines) : lines_(lines) {}
    /// Saves one option. @param key option name @param value option text
    void add(const std::string& key, const std::string& value)
    {
      lines_.push_back(key);
      lines_.push_back(value);
    }

  private:
    std::vector<std::string>& lines_;
  };

  using PIApplication_v1_20::saveConfigOptions;

  /// @return non-zero to load in CurveBench 10; what LoadInCurveBench() gives by default.
  virtual int LoadInCurveBench10();
  /// Saves the plug-in's options; nothing by default.
  virtual void saveConfigOptions(ConfigOptions& options);
  /// Forwards the legacy form to the ConfigOptions form.
  void saveConfigOptions(std::vector<std::string>* options) override;

  static int s_LoadInCurveBench10(void* object, PIFunctionParams_t* params);
};

} // namespace PIApp
