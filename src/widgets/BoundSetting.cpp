#include "widgets/BoundSetting.h"

#include <QAction>
#include <QWidget>

namespace kelQt
{

BoundSetting::BoundSetting(QObject* parent, Settings& settings, const QString& variableName)
  : QObject(parent), settings_(settings), variableName_(variableName)
{
  observer_ = std::make_shared<SettingsObserver>(*this);
}

void BoundSetting::startObserving_() { settings_.addObserver(variableName_, observer_); }

BoundSetting::~BoundSetting() { settings_.removeObserver(variableName_, observer_); }

Settings::MetaData BoundSetting::metaData_() const
{
  Settings::MetaData metaData;
  settings_.metaData(variableName_, metaData);
  return metaData;
}

void BoundSetting::setToolTip_(QWidget* widget) const
{
  if (widget)
    widget->setToolTip(metaData_().toolTip());
}

void BoundSetting::setToolTip_(QAction* action) const
{
  if (action)
    action->setToolTip(metaData_().toolTip());
}

} // namespace kelQt
