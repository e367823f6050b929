#pragma once

#include "widgets/BoundSetting.h"

class QDoubleSpinBox;

namespace kelQt
{

/// A double setting bound to widgets in both directions.
class BoundDoubleSetting : public BoundSettingT<double>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundDoubleSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundDoubleSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

  /// Binds a spin box; populateLimits applies the metadata's decimals, least and greatest values.
  void bindTo(QDoubleSpinBox* spinBox, bool populateToolTip = true, bool populateLimits = true);

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(double value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(double value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
