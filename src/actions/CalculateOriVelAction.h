#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Calculate Ori / Vel...": recalculates the orientation and velocity of platform points from their positions.
class CalculateOriVelAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the dialog
  explicit CalculateOriVelAction(QWidget* parent);

  /// Asks for the method and recalculates the kept selection. @return 1
  int onCmdCalculateOriVel(PIObject* sender, void* data);

  /**
   * Recalculates each platform, auditing successes and notifying failures.
   * @param lagrangian true for the Lagrangian method, false for the delta method
   * @param points the Lagrangian window, in points
   * @return the platforms that failed, in order
   */
  static std::vector<unsigned long> calculate(const std::vector<EntityInfo>& platforms, bool lagrangian, bool orientation, bool velocity,
                        unsigned int points);

  static const int WEIGHT = 235;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;
};

} // namespace QtSep
