#pragma once

#include "actions/TransformPlatformDialog.h"
#include "plugin/CommandAction.h"

#include <array>

namespace QtSep
{

/**
 * "Transform Platform...", in the editor's own menu: a linear map of chosen components of the
 * selected platforms' points, in a chosen coordinate system. A change of the time axis takes
 * the platform's children with it; a platform whose times would go below zero stays as it is.
 */
class TransformPlatformAction : public CommandAction
{
  Q_OBJECT
public:
  using Coefficients = std::array<TransformPlatformDialog::Coefficients, TransformPlatformDialog::COMPONENTS>;

  /// @param parent parent of the dialog
  explicit TransformPlatformAction(QWidget* parent);

  static const int WEIGHT = 237;

  /**
   * Transforms platforms in place.
   * @param system the coordinate system the components are taken in
   * @return the entities changed, children included
   */
  static std::vector<unsigned long> transform(const std::vector<EntityInfo>& platforms,
                                              const Coefficients& coefficients, kelCore::CoordinateSystem system);

  /// @return an ECI reference time for a point at time, seconds: the time of day, 0 to 86400
  static double fixReferenceTimeEci_(double time);

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private slots:
  void transformPlatform_();

private:
  /// @return whether a time would fall before the reference year
  static bool isBadTime_(double time) { return time < 0.0; }
  /// Moves the times of a platform's children as its own. @param ids receives the children changed
  static void updateChildrenTimes_(unsigned long id, double multiplication, double addition,
                                   std::vector<unsigned long>& ids);
};

} // namespace QtSep
