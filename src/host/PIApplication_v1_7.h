#pragma once

#include "host/PIApplication_v1_4.h"

/// Adds the descriptive texts the host shows about a plug-in; all empty by default.
class PIApplication_v1_7 : public PIApplication_v1_4
{
public:
  /// @return what the plug-in does
  virtual std::string Description() const;
  /// @return who made it
  virtual std::string Author() const;
  /// @return its version text
  virtual std::string Version() const;
  /// @return where to learn more
  virtual std::string URL() const;
  /// @return whom to contact
  virtual std::string ContactInfo() const;

  static int s_Description(void* object, PIFunctionParams_t* params);
  static int s_Author(void* object, PIFunctionParams_t* params);
  static int s_Version(void* object, PIFunctionParams_t* params);
  static int s_URL(void* object, PIFunctionParams_t* params);
  static int s_ContactInfo(void* object, PIFunctionParams_t* params);
};
