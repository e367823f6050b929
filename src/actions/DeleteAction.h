#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Delete": removes the selected entities, children before their hosts, after asking.
class DeleteAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit DeleteAction(QWidget* parent);

  /// Removes the kept selection after asking. @return 0
  int onCmdDeleteEntities(PIObject* sender, void* data);

  static const int WEIGHT = 220;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

protected:
  /// Any entities but the scenario alone.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private slots:
  void deleteEntities_();
};

} // namespace QtSep
