#include "actions/RenameAction.h"

#include "host/PIDataEntities.h"
#include "plugin/ActionUtilities.h"

#include <QInputDialog>

namespace QtSep
{

namespace
{

template <typename Header>
int rename(UniqueID_t id, const std::string& name)
{
  Header header;
  if (PIData::getHeader(id, &header) != 0)
    return 1;
  if (header.name == name)
    return 0;
  header.name = name;
  return PIData::updateHeader(id, &header);
}

} // namespace

RenameAction::RenameAction(QWidget* parent) : CommandAction(parent, "Rename...", std::string(), WEIGHT, false) {}

bool RenameAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return entities.size() == 1 && entities.front().id != 0 && entities.front().type != PI_LASER_TYPE;
}

int RenameAction::run_()
{
  const EntityInfo& entity = selection().front();
  bool accepted = false;
  const QString name = QInputDialog::getText(parentWidget(), "Rename Entity", "New Name:", QLineEdit::Normal,
                                             QString::fromStdString(entity.name), &accepted);
  if (!accepted)
    return 0;
  setName(entity.id, entity.type, name.toUtf8().toStdString());
  fireChangeCallback(entity.id);
  return 0;
}

int RenameAction::setName(UniqueID_t id, PIScenarioObjectType_t type, const std::string& name)
{
  switch (type)
  {
  case PI_PLATFORM_TYPE: return rename<PIData::PIPlatformHeader>(id, name);
  case PI_BEAM_TYPE: return rename<PIData::PIBeamHeader>(id, name);
  case PI_GATE_TYPE: return rename<PIData::PIGateHeader>(id, name);
  case PI_LOB_GROUP_TYPE: return rename<PIData::PILobHeader>(id, name);
  case PI_PROJECTOR_TYPE: return rename<PIData::PIProjectorHeader>(id, name);
  case PI_CUSTOM_RENDERING_TYPE: return rename<PIData::PICustomRenderingHeader>(id, name);
  default: return 1;
  }
}

} // namespace QtSep
