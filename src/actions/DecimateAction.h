#pragma once

#include "plugin/CommandAction.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace QtSep
{

class DecimateAlgorithm;
class DecimateDialog;

/// "Decimate...": a thinned copy of each selected platform, by the method the user picks.
class DecimateAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the dialog
  explicit DecimateAction(QWidget* parent);
  ~DecimateAction() override;

  /// Asks for the method and thins the kept selection. @return 1
  int onCmdDecimate(PIObject* sender, void* data);

  /**
   * Thins each platform into a new one under a progress dialog; static platforms are passed
   * over with a notice. @return for each platform in order, its thinned copy; 0 where none was
   * made (static, failed, or not reached after a cancel)
   */
  static std::vector<std::uint64_t> decimatePlatforms(const std::vector<EntityInfo>& platforms,
                                                      DecimateAlgorithm& algorithm);
  /**
   * As decimatePlatforms, but each platform's own track is thinned and the audit goes on it:
   * no copy is made. @return for each platform in order, whether it was thinned
   */
  static std::vector<bool> thinPlatforms(const std::vector<EntityInfo>& platforms, DecimateAlgorithm& algorithm);
  /// @return the algorithm the dialog describes; null for an unknown method
  static std::unique_ptr<DecimateAlgorithm> getAlgorithm_(const DecimateDialog& dialog);
  /// Shows the last accepted choices.
  static void loadFromRegistry_(DecimateDialog& dialog);
  /// Keeps the choices: the method, the common flags and the chosen method's parameter.
  static void saveToRegistry_(const DecimateDialog& dialog);

  static const int WEIGHT = 225;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private slots:
  void applyDecimate_();
};

} // namespace QtSep
