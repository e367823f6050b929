#pragma once

#include "widgets/SegmentedText.h"

namespace kelQt
{

/// The fixed text between two fields, such as the colon between hours and minutes. It never steps.
class SeparatorText : public SegmentedText
{
public:
  /// @param text the characters of the separator, shown and expected as they are
  explicit SeparatorText(const QString& text) : text_(text) {}

  QString text() const override { return text_; }
  int spaceLeft() const override { return 0; }
  bool canStep() const override { return false; }
  bool stepBy(int) override { return false; }
  int scan(const QString& text, int from) const override;
  QValidator::State check(const QString& token) const override;
  bool setText(const QString& token) override { return token == text_; }

private:
  QString text_;
};

} // namespace kelQt
