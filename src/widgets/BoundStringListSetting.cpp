#include "widgets/BoundStringListSetting.h"

namespace kelQt
{

BoundStringListSetting::BoundStringListSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<QStringList>(parent, settings, variableName)
{
}

BoundStringListSetting::BoundStringListSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<QStringList>(parent, settings, variableName, metaData)
{
}

void BoundStringListSetting::setValue(const QStringList& value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundStringListSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}
} // namespace kelQt
