#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Delete Scenario...": replaces the scenario by a new one; the user's cancel keeps it.
class DeleteScenarioAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the new scenario's dialog
  explicit DeleteScenarioAction(QWidget* parent);

  static const int WEIGHT = 265;

protected:
  /// The scenario alone.
  bool accepts_(const std::vector<EntityInfo>& entities) const override
  {
    return entities.size() == 1 && entities.front().id == 0;
  }
  int run_() override;
};

} // namespace QtSep
