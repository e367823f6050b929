#include "plugin/ActionUtilities.h"

#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIKELVOR.h"
#include "host/PURegistry.h"
#include "host/ServiceClient.h"
#include "host/SignalInterface.h"
#include "utils/ConfirmDialog.h"
#include "widgets/GuardedDialog.h"

namespace QtSep
{

namespace
{

template <typename Header>
bool headerName(unsigned long id, std::string& name)
{
  Header header;
  if (PIData::getHeader(id, &header) != 0)
    return false;
  name = header.name;
  return true;
}

} // namespace

int verifyAction(const QString& title, const QString& text, const std::string& key, QWidget* parent)
{
  if (!PURegistry::loadReg(true, key))
    return 0;
  kelQt::GuardedDialog<UTILS::ConfirmDialog> dialog(text, "Do not ask again", parent);
  dialog->setWindowTitle(title);
  if (dialog.exec() != QDialog::Accepted)
    return 1;
  if (dialog->isChecked())
    PURegistry::saveReg(key, false);
  return 0;
}

std::string addEllipsisIfConfirm(const std::string& text, const std::string& key)
{
  return PURegistry::loadReg(true, key) ? text + "..." : text;
}

PIScenarioObjectType_t getEntityType(unsigned long id) { return PIData::getObjectType(id); }

bool readEntityHeaderName(unsigned long id, PIScenarioObjectType_t type, std::string& name)
{
  switch (type)
  {
  case PI_PLATFORM_TYPE: return headerName<PIData::PIPlatformHeader>(id, name);
  case PI_BEAM_TYPE: return headerName<PIData::PIBeamHeader>(id, name);
  case PI_GATE_TYPE: return headerName<PIData::PIGateHeader>(id, name);
  case PI_LASER_TYPE: return headerName<PIData::PILaserHeader>(id, name);
  case PI_LOB_GROUP_TYPE: return headerName<PIData::PILobHeader>(id, name);
  case PI_PROJECTOR_TYPE: return headerName<PIData::PIProjectorHeader>(id, name);
  case PI_CUSTOM_RENDERING_TYPE: return headerName<PIData::PICustomRenderingHeader>(id, name);
  default: return false;
  }
}

std::string getEntityHeaderName(unsigned long id)
{
  std::string name;
  readEntityHeaderName(id, getEntityType(id), name);
  return name;
}

std::string getEntityName(unsigned long id)
{
  if (getEntityType(id) == PI_PLATFORM_TYPE && PIKELVOR::getUseAlias(id))
  {
    const std::string alias = PIData::getObjectAlias(id);
    if (!alias.empty())
      return alias;
  }
  return getEntityHeaderName(id);
}

std::string getEntityHostName(unsigned long id)
{
  const UniqueID_t host = PIData::getObjectHost(id);
  return getEntityName(host ? static_cast<unsigned long>(host) : id);
}

double getPlatformLatestTime(unsigned long id)
{
  UniqueID_t current = id;
  while (current && getEntityType(static_cast<unsigned long>(current)) != PI_PLATFORM_TYPE)
    current = PIData::getObjectHost(current);
  return current ? PIData::getLatestTime(current) : 0.0;
}

void fireChangeCallback(const std::vector<unsigned long>& ids)
{
  PICommon::BasicClient<PluginClient::Interfaces::SignalInterface> client;
  if (!client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME))
    return;
  client.serviceInterface()->sendSignal(PluginClient::Interfaces::SignalInterface::ENTITY_DATA_MODIFIED,
                                        std::vector<UniqueID_t>(ids.begin(), ids.end()));
  client.unbind();
}

void fireChangeCallback(unsigned long id) { fireChangeCallback(std::vector<unsigned long>{id}); }

} // namespace QtSep
