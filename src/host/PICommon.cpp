#include "host/PICommon.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PICommon
{

namespace
{

void application(int selector)
{
  auto r = PIRequest::catchAll(selector);
  handle(PISF_APPLICATION, &r);
}

void notifyRequest(int selector, const std::string& text, int level)
{
  auto r = PIRequest::catchAll(selector, {level});
  r.strings = {text};
  handle(PISF_NOTIFY, &r);
}

} // namespace

int getApplicationId()
{
  auto r = PIRequest::catchAll(PISelector::APPLICATION_ID);
  handle(PISF_APPLICATION, &r);
  return static_cast<int>(r.integerAt(1));
}

void beginWaitCursor() { application(PISelector::APPLICATION_BEGIN_WAIT_CURSOR); }
void endWaitCursor() { application(PISelector::APPLICATION_END_WAIT_CURSOR); }

void notify(const std::string& text, NotifySeverity severity) { notifyRequest(PISelector::NOTIFY_LINE, text, severity); }

void showToastNotification(const std::string& text, ToastDuration duration)
{
  notifyRequest(PISelector::NOTIFY_TOAST, text, duration);
}

void* getMainWindow()
{
  auto r = PIRequest::catchAll(PISelector::APPLICATION_MAIN_WINDOW);
  handle(PISF_APPLICATION, &r);
  return r.pointerAt(0);
}

void setSettingsValueStr(const std::string& key, const std::string& value)
{
  auto r = PIRequest::catchAll(PISelector::REGISTRY_SET_VALUE);
  r.strings = {key, value};
  handle(PISF_REGISTRY, &r);
}

// Reads preset "not found" in the status slot, so that a call without a host gives the fallback.
std::string getSettingsValueStr(const std::string& key, const std::string& fallback)
{
  std::string value;
  auto r = PIRequest::catchAll(PISelector::REGISTRY_GET_VALUE);
  r.integers[1] = 1;
  r.strings = {key};
  r.pointers = {&value};
  return PIRequest::send(PISF_REGISTRY, r) == 0 ? value : fallback;
}

void setSettingsValueStringVec(const std::string& key, const std::vector<std::string>& values)
{
  auto r = PIRequest::catchAll(PISelector::REGISTRY_SET_STRING_VECTOR);
  r.strings = {key};
  r.strings.insert(r.strings.end(), values.begin(), values.end());
  handle(PISF_REGISTRY, &r);
}

std::vector<std::string> getSettingsValueStringVec(const std::string& key, const std::vector<std::string>& fallback)
{
  std::vector<std::string> values;
  auto r = PIRequest::catchAll(PISelector::REGISTRY_GET_STRING_VECTOR);
  r.integers[1] = 1;
  r.strings = {key};
  r.pointers = {&values};
  return PIRequest::send(PISF_REGISTRY, r) == 0 ? values : fallback;
}

} // namespace PICommon
