#include "widgets/BoundColorSetting.h"

#include "widgets/ColorWidget.h"

namespace kelQt
{

BoundColorSetting::BoundColorSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<QColor>(parent, settings, variableName)
{
}

BoundColorSetting::BoundColorSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<QColor>(parent, settings, variableName, metaData)
{
}

void BoundColorSetting::setValue(const QColor& value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundColorSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}

void BoundColorSetting::bindTo(ColorWidget* widget, bool populateToolTip)
{
  if (!widget)
    return;
  widget->setColor(value_);
  connect(widget, &ColorWidget::colorChanged, this, &BoundColorSetting::setValue);
  connect(this, &BoundColorSetting::valueChanged, widget, &ColorWidget::setColor);
  if (populateToolTip)
    setToolTip_(widget);
}

} // namespace kelQt
