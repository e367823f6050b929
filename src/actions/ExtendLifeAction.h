#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Extend Life": platforms that end before the scenario hold their last point to its end.
class ExtendLifeAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit ExtendLifeAction(QWidget* parent);

  /// Extends the kept selection after asking. @return 0
  int onCmdExtendEntities(PIObject* sender, void* data);

  static const int WEIGHT = 222;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private slots:
  void extendEntities_();
};

} // namespace QtSep
