#pragma once

#include "widgets/BoundSetting.h"

#include <QStringList>

namespace kelQt
{

/// A QStringList setting bound to widgets in both directions.
class BoundStringListSetting : public BoundSettingT<QStringList>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundStringListSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundStringListSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(const QStringList& value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(const QStringList& value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
