#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/**
 * "Remove Duplicate Points" in the editor's own entity menu: reduces the right-clicked
 * entities and their children, or the whole scenario when the scenario was right-clicked,
 * after asking unless the user turned the question off.
 */
class RemoveDuplicatePointsAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit RemoveDuplicatePointsAction(QWidget* parent);

  static const int WEIGHT = 227;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

protected:
  /// Any selection.
  bool accepts_(const std::vector<EntityInfo>&) const override { return true; }
  int run_() override;
};

} // namespace QtSep
