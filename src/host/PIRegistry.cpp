#include "host/PIRegistry.h"

#include "host/PICommon.h"

namespace PIGUI
{

void PIRegistry::setValue(const std::string& key, const std::string& value) { PICommon::setSettingsValueStr(key, value); }

std::string PIRegistry::getValue(const std::string& key) { return PICommon::getSettingsValueStr(key); }

} // namespace PIGUI
