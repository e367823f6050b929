#include "widgets/SettingsGroup.h"

#include "widgets/SettingsMemento.h"

namespace kelQt
{

namespace
{

// Passes the store's changes of the branch on with the branch's path taken off.
class GroupObserver : public Settings::Observer
{
public:
  GroupObserver(Settings::ObserverPtr observer, QString prefix) : observer_(std::move(observer)), prefix_(std::move(prefix)) {}
  void onSettingChange(const QString& name, const QVariant& value) override
  {
    if (name.startsWith(prefix_))
      observer_->onSettingChange(name.mid(prefix_.size()), value);
  }

private:
  Settings::ObserverPtr observer_;
  QString prefix_;
};

} // namespace

SettingsGroup::SettingsGroup(Settings* settings, const QString& groupPath) : settings_(settings), group_(groupPath)
{
  while (group_.endsWith('/'))
    group_.chop(1);
}

QString SettingsGroup::getFullPath_(const QString& name) const
{
  return group_.isEmpty() ? name : group_ + "/" + name;
}

Settings::ObserverPtr SettingsGroup::getObserver_(const ObserverPtr& observer, bool create)
{
  if (!observer)
    return nullptr;
  auto it = wrappers_.find(observer.get());
  if (it == wrappers_.end())
  {
    if (!create)
      return nullptr;
    it = wrappers_.emplace(observer.get(), Wrapper{std::make_shared<GroupObserver>(observer, getFullPath_(QString()))}).first;
  }
  // Every call that creates registers the wrapper once more with the store.
  if (create)
    ++it->second.registrations;
  return it->second.observer;
}

void SettingsGroup::releaseObserver_(const ObserverPtr& observer)
{
  auto it = wrappers_.find(observer.get());
  if (it != wrappers_.end() && --it->second.registrations <= 0)
    wrappers_.erase(it);
}

void SettingsGroup::setValue(const QString& name, const QVariant& value) { settings_->setValue(getFullPath_(name), value); }

void SettingsGroup::setValue(const QString& name, const QVariant& value, const MetaData& metaData)
{
  settings_->setValue(getFullPath_(name), value, metaData);
}

void SettingsGroup::setValue(const QString& name, const QVariant& value, ObserverPtr skip)
{
  settings_->setValue(getFullPath_(name), value, getObserver_(skip, false));
}

QVariant SettingsGroup::value(const QString& name) const { return settings_->value(getFullPath_(name)); }

QVariant SettingsGroup::value(const QString& name, const MetaData& metaData)
{
  return settings_->value(getFullPath_(name), metaData);
}

QVariant SettingsGroup::value(const QString& name, ObserverPtr observer)
{
  return settings_->value(getFullPath_(name), getObserver_(observer, true));
}

QVariant SettingsGroup::value(const QString& name, const MetaData& metaData, ObserverPtr observer)
{
  return settings_->value(getFullPath_(name), metaData, getObserver_(observer, true));
}

bool SettingsGroup::contains(const QString& name) const { return settings_->contains(getFullPath_(name)); }

int SettingsGroup::setMetaData(const QString& name, const MetaData& metaData)
{
  return settings_->setMetaData(getFullPath_(name), metaData);
}

int SettingsGroup::metaData(const QString& name, MetaData& out) const
{
  return settings_->metaData(getFullPath_(name), out);
}

int SettingsGroup::addObserver(ObserverPtr observer) { return settings_->addObserver(getObserver_(observer, true)); }

int SettingsGroup::addObserver(const QString& name, ObserverPtr observer)
{
  return settings_->addObserver(getFullPath_(name), getObserver_(observer, true));
}

int SettingsGroup::removeObserver(ObserverPtr observer)
{
  ObserverPtr wrapper = getObserver_(observer, false);
  if (!wrapper || settings_->removeObserver(wrapper) != 0)
    return 1;
  releaseObserver_(observer);
  return 0;
}

int SettingsGroup::removeObserver(const QString& name, ObserverPtr observer)
{
  ObserverPtr wrapper = getObserver_(observer, false);
  if (!wrapper || settings_->removeObserver(getFullPath_(name), wrapper) != 0)
    return 1;
  releaseObserver_(observer);
  return 0;
}

void SettingsGroup::clear()
{
  for (const QString& name : allNames())
    remove(name);
}

void SettingsGroup::remove(const QString& name) { settings_->remove(getFullPath_(name)); }

void SettingsGroup::resetDefaults()
{
  for (const QString& name : allNames())
    resetDefaults(name);
}

void SettingsGroup::resetDefaults(const QString& name) { settings_->resetDefaults(getFullPath_(name)); }

void SettingsGroup::saveWidget(QWidget* widget) { settings_->saveWidget(widget); }

void SettingsGroup::loadWidget(QWidget* widget) { settings_->loadWidget(widget); }

QStringList SettingsGroup::allNames() const
{
  const QString prefix = getFullPath_(QString());
  QStringList names;
  for (const QString& name : settings_->allNames())
    if (name.startsWith(prefix))
      names << name.mid(prefix.size());
  return names;
}

QString SettingsGroup::fileName() const { return settings_->fileName(); }

std::shared_ptr<Settings::Memento> SettingsGroup::createMemento() const
{
  QMap<QString, QVariant> values;
  for (const QString& name : allNames())
    values[name] = value(name);
  return std::make_shared<SettingsMemento>(values);
}

} // namespace kelQt
