#pragma once

#include "plugin/CommandAction.h"

namespace QtSep
{

/**
 * "Make Stationary": the selected platforms become static (one point at -1), or keep their life
 * span as two equal points when "Maintain Life Span" is set; each gets the audit line.
 */
class MakeStationaryAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the confirmation dialog
  explicit MakeStationaryAction(QWidget* parent);

  /// Converts the kept selection after asking. @return 0
  int onCmdMakeStationary(PIObject* sender, void* data);

  static const int WEIGHT = 210;
  /// Settings key of the confirmation.
  static const char* const CONFIRM_KEY;
  /// Settings key of "Maintain Life Span", shared with the Make Stationary tab.
  static const char* const LIFE_SPAN_KEY;
  static const bool LIFE_SPAN_DEFAULT = false;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private slots:
  void makeStationary_();
};

} // namespace QtSep
