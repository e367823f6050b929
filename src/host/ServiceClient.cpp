#include "host/ServiceClient.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PICommon
{

ServiceClient::~ServiceClient() { unbind(); }

bool ServiceClient::bind(const std::string& name)
{
  unbind();
  auto r = PIRequest::catchAll(PISelector::SERVICE_BIND);
  r.strings = {name};
  r.pointers = {static_cast<BindingClient*>(this)};
  handle(PISF_SERVICE, &r);
  return service_ != nullptr;
}

void ServiceClient::unbind()
{
  if (!service_)
    return;
  auto r = PIRequest::catchAll(PISelector::SERVICE_UNBIND);
  r.pointers = {static_cast<BindingClient*>(this)};
  handle(PISF_SERVICE, &r);
  service_ = nullptr;
}

} // namespace PICommon
