#include "widgets/BoundDoubleSetting.h"

#include <QDoubleSpinBox>

namespace kelQt
{

BoundDoubleSetting::BoundDoubleSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<double>(parent, settings, variableName)
{
}

BoundDoubleSetting::BoundDoubleSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<double>(parent, settings, variableName, metaData)
{
}

void BoundDoubleSetting::setValue(double value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundDoubleSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}

void BoundDoubleSetting::bindTo(QDoubleSpinBox* spinBox, bool populateToolTip, bool populateLimits)
{
  if (!spinBox)
    return;
  const Settings::MetaData metaData = metaData_();
  // Decimals go first: set later, they would round the value and write the rounding back.
  if (populateLimits)
    spinBox->setDecimals(metaData.numDecimals());
  spinBox->setValue(value_);
  connect(spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &BoundDoubleSetting::setValue);
  connect(this, &BoundDoubleSetting::valueChanged, spinBox, &QDoubleSpinBox::setValue);
  if (populateLimits)
  {
    if (metaData.minValue().isValid())
      spinBox->setMinimum(metaData.minValue().toDouble());
    if (metaData.maxValue().isValid())
      spinBox->setMaximum(metaData.maxValue().toDouble());
  }
  showWithinLimits_(spinBox, [this](double value) { setValue(value); });
  if (populateToolTip)
    setToolTip_(spinBox);
}

} // namespace kelQt
