#include "widgets/BoundBooleanSetting.h"

#include <QAbstractButton>
#include <QAction>

namespace kelQt
{

BoundBooleanSetting::BoundBooleanSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<bool>(parent, settings, variableName)
{
}

BoundBooleanSetting::BoundBooleanSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<bool>(parent, settings, variableName, metaData)
{
}

void BoundBooleanSetting::setValue(bool value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundBooleanSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}

void BoundBooleanSetting::bindTo(QAbstractButton* button, bool populateToolTip)
{
  if (!button)
    return;
  button->setChecked(value_);
  connect(button, &QAbstractButton::toggled, this, &BoundBooleanSetting::setValue);
  connect(this, &BoundBooleanSetting::valueChanged, button, &QAbstractButton::setChecked);
  if (populateToolTip)
    setToolTip_(button);
}

void BoundBooleanSetting::bindTo(QAction* action, bool populateToolTip)
{
  if (!action)
    return;
  action->setCheckable(true);
  action->setChecked(value_);
  connect(action, &QAction::toggled, this, &BoundBooleanSetting::setValue);
  connect(this, &BoundBooleanSetting::valueChanged, action, &QAction::setChecked);
  if (populateToolTip)
    setToolTip_(action);
}

} // namespace kelQt
