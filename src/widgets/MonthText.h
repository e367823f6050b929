#pragma once

#include "widgets/NumberText.h"

namespace kelQt
{

/**
 * The month as its name of three letters, "Jan" to "Dec", with the value 0 for January.
 * The name always fills the field, so spaceLeft() is 0 and typing overwrites it.
 */
class MonthText : public NumberText
{
public:
  MonthText();

  long long valueOf(const QString& token) const override;
  QString text() const override;
  int spaceLeft() const override { return 0; }
  int scan(const QString& text, int from) const override;
  /// Accepts a month's name in any case; the start of one ("Se") is Intermediate.
  QValidator::State check(const QString& token) const override;
};

} // namespace kelQt
