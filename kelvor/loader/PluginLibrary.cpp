#include "loader/PluginLibrary.h"

#include <dlfcn.h>

namespace kelvor
{

PluginLibrary::PluginLibrary(std::string path) : path_(std::move(path)) {}

PluginLibrary::~PluginLibrary()
{
  close();
  if (library_)
    dlclose(library_);
}

int PluginLibrary::hostCompilerVersion()
{
#if defined(__clang__)
  return __clang_major__ * 100 + __clang_minor__ * 10 + __clang_patchlevel__;
#else
  return __GNUC__ * 100 + __GNUC_MINOR__ * 10 + __GNUC_PATCHLEVEL__;
#endif
}

template <typename T>
T PluginLibrary::symbol_(const char* name)
{
  return library_ ? reinterpret_cast<T>(dlsym(library_, name)) : nullptr;
}

bool PluginLibrary::admit(std::string& reason)
{
  library_ = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library_)
  {
    const char* error = dlerror();
    reason = std::string("cannot be loaded: ") + (error ? error : "unknown error");
    return false;
  }
  auto bitWidth = symbol_<int (*)()>("SPI_GetBitWidth");
  auto compiler = symbol_<int (*)()>("SPI_GetCompilerVersion");
  auto debugMode = symbol_<int (*)()>("SPI_IsDebugMode");
  auto versionInfo = symbol_<double (*)()>("SPI_VersionInfo");
  auto versionEx = symbol_<int (*)(int)>("SPI_VersionInfoEx");
  auto minimum = symbol_<int (*)()>("SPI_MinimumVersion");
  const bool complete = bitWidth && compiler && debugMode && versionInfo && versionEx && minimum &&
                        symbol_<void*>("SPI_InitializeFunctionMap") && symbol_<void*>("SPI_PluginDispatchFunction") &&
                        symbol_<void*>("SPI_CleanUpPlugin");
  if (!complete)
  {
    reason = "is not a plug-in: it lacks the SPI_ functions";
    return false;
  }
  const int width = bitWidth();
  if (width != static_cast<int>(sizeof(void*) * 8))
  {
    reason = "was built for " + std::to_string(width) + "-bit hosts; this host is " +
             std::to_string(sizeof(void*) * 8) + "-bit";
    return false;
  }
  const int pluginCompiler = compiler();
  if (pluginCompiler != hostCompilerVersion())
  {
    reason = "was built with compiler version " + std::to_string(pluginCompiler) + "; this host needs " +
             std::to_string(hostCompilerVersion()) + " for a matching standard library";
    return false;
  }
  debugMode();
  versionInfo();
  for (int part = 0; part < 3; ++part)
    versionParts_[part] = versionEx(part);
  const int needed = minimum();
  if (needed > HOST_API_VERSION)
  {
    reason = "needs host API " + std::to_string(needed / 10000) + "." + std::to_string(needed / 100 % 100) + "." +
             std::to_string(needed % 100) + "; this host offers 1.29.0";
    return false;
  }
  return true;
}

void PluginLibrary::initialize(PISupportFunctionMap* map)
{
  if (auto init = symbol_<void (*)(PISupportFunctionMap*, void*)>("SPI_InitializeFunctionMap"))
  {
    init(map, identity());
    initialized_ = true;
  }
}

int PluginLibrary::send(PIClientFunctions_t message, PIFunctionParams_t& params)
{
  auto dispatch = symbol_<int (*)(int, PIFunctionParams_t*)>("SPI_PluginDispatchFunction");
  return initialized_ && !closed_ && dispatch ? dispatch(message, &params) : 0;
}

void PluginLibrary::close()
{
  if (!initialized_ || closed_)
    return;
  PIFunctionParams_t params;
  send(PICF_CLOSE, params);
  closed_ = true;
  if (auto cleanUp = symbol_<void (*)()>("SPI_CleanUpPlugin"))
    cleanUp();
}

std::string PluginLibrary::apiVersion() const
{
  return std::to_string(versionParts_[0]) + "." + std::to_string(versionParts_[1]) + "." +
         std::to_string(versionParts_[2]);
}

} // namespace kelvor
