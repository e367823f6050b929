#include "widgets/BoundIntegerSetting.h"

#include <QComboBox>
#include <QSlider>
#include <QSpinBox>

namespace kelQt
{

BoundIntegerSetting::BoundIntegerSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<int>(parent, settings, variableName)
{
}

BoundIntegerSetting::BoundIntegerSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<int>(parent, settings, variableName, metaData)
{
}

void BoundIntegerSetting::setValue(int value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundIntegerSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}

namespace
{

// Applies the metadata's limits after the value, as bound widgets take them.
template <typename Widget>
void applyLimits(Widget* widget, const Settings::MetaData& metaData)
{
  if (metaData.minValue().isValid())
    widget->setMinimum(metaData.minValue().toInt());
  if (metaData.maxValue().isValid())
    widget->setMaximum(metaData.maxValue().toInt());
}

} // namespace

void BoundIntegerSetting::bindTo(QSpinBox* spinBox, bool populateToolTip, bool populateLimits)
{
  if (!spinBox)
    return;
  spinBox->setValue(value_);
  connect(spinBox, QOverload<int>::of(&QSpinBox::valueChanged), this, &BoundIntegerSetting::setValue);
  connect(this, &BoundIntegerSetting::valueChanged, spinBox, &QSpinBox::setValue);
  if (populateLimits)
    applyLimits(spinBox, metaData_());
  showWithinLimits_(spinBox, [this](int value) { setValue(value); });
  if (populateToolTip)
    setToolTip_(spinBox);
}

void BoundIntegerSetting::bindTo(QSlider* slider, bool populateToolTip, bool populateLimits)
{
  if (!slider)
    return;
  slider->setValue(value_);
  connect(slider, &QSlider::valueChanged, this, &BoundIntegerSetting::setValue);
  connect(this, &BoundIntegerSetting::valueChanged, slider, &QSlider::setValue);
  if (populateLimits)
    applyLimits(slider, metaData_());
  showWithinLimits_(slider, [this](int value) { setValue(value); });
  if (populateToolTip)
    setToolTip_(slider);
}

void BoundIntegerSetting::bindTo(QComboBox* comboBox, bool populateToolTip)
{
  if (!comboBox)
    return;
  populateCombo_(comboBox);
  comboBox->setCurrentIndex(comboBox->findData(value_));
  connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, comboBox](int index) {
    if (index >= 0)
      setValue(comboBox->itemData(index).toInt());
  });
  connect(this, &BoundIntegerSetting::valueChanged, comboBox,
          [comboBox](int value) { comboBox->setCurrentIndex(comboBox->findData(value)); });
  if (populateToolTip)
    setToolTip_(comboBox);
}

void BoundIntegerSetting::populateCombo_(QComboBox* comboBox) const
{
  comboBox->clear();
  const QMap<int, QString> values = metaData_().enumValues();
  for (auto it = values.begin(); it != values.end(); ++it)
    comboBox->addItem(it.value(), it.key());
}

} // namespace kelQt
