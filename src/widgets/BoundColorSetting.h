#pragma once

#include "widgets/BoundSetting.h"

#include <QColor>

namespace kelQt { class ColorWidget; }

namespace kelQt
{

/// A QColor setting bound to widgets in both directions.
class BoundColorSetting : public BoundSettingT<QColor>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundColorSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundColorSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

  /// Binds a colour swatch.
  void bindTo(ColorWidget* widget, bool populateToolTip = true);

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(const QColor& value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(const QColor& value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
