#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/**
 * "Merge": the selected platforms become the first of them. Every other platform's data from
 * the first one's start on join it, children into their namesakes, and the others are removed.
 */
class MergeAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit MergeAction(QWidget* parent);

  /// Merges the kept selection after asking. @return 1
  int onCmdMerge(PIObject* sender, void* data);

  static const int WEIGHT = 215;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

protected:
  /// Two platforms or more, and nothing else.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;
};

} // namespace QtSep
