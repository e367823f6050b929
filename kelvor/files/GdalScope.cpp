#include "files/GdalScope.h"

#include <cpl_error.h>
#include <gdal.h>

#include <mutex>

namespace kelvor
{

GdalScope::GdalScope()
{
  static std::once_flag registered;
  std::call_once(registered, []() { GDALAllRegister(); });
  CPLPushErrorHandlerEx(
      [](CPLErr level, CPLErrorNum number, const char* message) { handle_(level, number, message); }, this);
}

GdalScope::~GdalScope()
{
  CPLPopErrorHandler();
}

std::string GdalScope::firstFailure(const std::string& fallback) const
{
  return failures_.empty() ? fallback : failures_.front();
}

void GdalScope::handle_(int level, int, const char* message)
{
  // Warnings (a field type a format lacks, an unknown XML element) leave the data whole.
  if (level < CE_Failure)
    return;
  auto* scope = static_cast<GdalScope*>(CPLGetErrorHandlerUserData());
  if (scope && scope->failures_.size() < 20)
    scope->failures_.push_back(message ? message : "unknown GDAL error");
}

} // namespace kelvor
