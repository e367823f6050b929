#pragma once

#include "host/UniqueID.h"
#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Rename...": gives one entity a new name. A laser, whose header cannot be written, is not offered.
class RenameAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the name dialog
  explicit RenameAction(QWidget* parent);

  /**
   * Writes a new name into the entity's header; nothing when the name is unchanged. Any name
   * passes, empty and duplicate ones included.
   * @return 0 when the name is written or already so; 1 when the header cannot be read or written
   */
  static int setName(UniqueID_t id, PIScenarioObjectType_t type, const std::string& name);

  static const int WEIGHT = 217;

protected:
  /// Exactly one entity, not the scenario and not a laser.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;
};

} // namespace QtSep
