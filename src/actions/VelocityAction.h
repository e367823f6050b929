#pragma once

#include "plugin/CommandAction.h"

#include <memory>

namespace QtSep
{

class SpeedFilter;
class VelocityDialog;

/// "Velocity Filtering...": removes the points of platforms whose speed lies outside chosen bounds.
class VelocityAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the dialog
  explicit VelocityAction(QWidget* parent);
  ~VelocityAction() override;

  /// Asks for the bounds and filters the kept selection. @return 1
  int onCmdVelocity(PIObject* sender, void* data);

  /// Filters platforms in place and adds the audit line to each. @return the platforms, for the change signal
  static std::vector<unsigned long> filterPlatforms(const std::vector<EntityInfo>& platforms, const SpeedFilter& filter);

  /// @return the filter the dialog describes: by calculated speed when asked, else by given speed, with its bounds in m/s
  static std::unique_ptr<SpeedFilter> getFilter_(const VelocityDialog& dialog);

  static const int WEIGHT = 230;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;
};

} // namespace QtSep
