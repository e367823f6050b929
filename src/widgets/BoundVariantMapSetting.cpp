#include "widgets/BoundVariantMapSetting.h"

namespace kelQt
{

BoundVariantMapSetting::BoundVariantMapSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<QVariantMap>(parent, settings, variableName)
{
}

BoundVariantMapSetting::BoundVariantMapSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<QVariantMap>(parent, settings, variableName, metaData)
{
}

void BoundVariantMapSetting::setValue(const QVariantMap& value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundVariantMapSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}
} // namespace kelQt
