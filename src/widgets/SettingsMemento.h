#pragma once

#include "widgets/Settings.h"

#include <QMap>

namespace kelQt
{

/// A snapshot of named values; restoring writes each back under its name.
class SettingsMemento : public Settings::Memento
{
public:
  /// @param values the names and values to put back
  explicit SettingsMemento(QMap<QString, QVariant> values) : values_(std::move(values)) {}
  void restore(Settings& settings) const override
  {
    for (auto it = values_.begin(); it != values_.end(); ++it)
      settings.setValue(it.key(), it.value());
  }

private:
  QMap<QString, QVariant> values_;
};

} // namespace kelQt
