#include "widgets/SettingsImpl.h"

#include "widgets/IniSettingsStorage.h"
#include "widgets/SettingsMemento.h"

#include <QMainWindow>
#include <QSettings>
#include <QSplitter>

#include <algorithm>

namespace kelQt
{

namespace
{

QString widgetKey(QWidget* widget)
{
  const QString name = widget->objectName().isEmpty() ? widget->metaObject()->className() : widget->objectName();
  return "Widgets/" + name;
}

bool eraseObserver(std::vector<Settings::ObserverPtr>& list, const Settings::ObserverPtr& observer)
{
  auto it = std::find(list.begin(), list.end(), observer);
  if (it == list.end())
    return false;
  list.erase(it);
  return true;
}

} // namespace

SettingsImpl::SettingsImpl(const QString& iniFileName) : SettingsImpl(std::make_unique<IniSettingsStorage>(iniFileName)) {}

SettingsImpl::SettingsImpl(std::unique_ptr<SettingsStorage> storage) : storage_(std::move(storage))
{
  values_ = storage_->readAll();
}

SettingsImpl::~SettingsImpl() { storage_->flush(); }

bool SettingsImpl::fetch_(const QString& name) const
{
  if (values_.contains(name))
    return true;
  // A store that cannot list its names is asked for each one when first wanted.
  QVariant stored;
  if (!storage_->read(name, stored))
    return false;
  values_[name] = stored;
  return true;
}

void SettingsImpl::setValue(const QString& name, const QVariant& value) { store_(name, value, nullptr); }

void SettingsImpl::setValue(const QString& name, const QVariant& value, const MetaData& metaData)
{
  metaData_[name] = metaData;
  store_(name, value, nullptr);
}

void SettingsImpl::setValue(const QString& name, const QVariant& value, ObserverPtr skip) { store_(name, value, skip); }

QVariant SettingsImpl::value(const QString& name) const
{
  if (fetch_(name))
    return typed_(name, values_.value(name));
  // A name without a value reads as its default.
  auto meta = metaData_.find(name);
  return meta == metaData_.end() ? QVariant() : meta.value().defaultValue();
}

QVariant SettingsImpl::value(const QString& name, const MetaData& metaData)
{
  metaData_[name] = metaData;
  if (!fetch_(name))
    store_(name, metaData.defaultValue(), nullptr);
  return value(name);
}

QVariant SettingsImpl::value(const QString& name, ObserverPtr observer)
{
  addObserver(name, observer);
  return value(name);
}

QVariant SettingsImpl::value(const QString& name, const MetaData& metaData, ObserverPtr observer)
{
  addObserver(name, observer);
  return value(name, metaData);
}

bool SettingsImpl::contains(const QString& name) const { return fetch_(name); }

int SettingsImpl::setMetaData(const QString& name, const MetaData& metaData)
{
  metaData_[name] = metaData;
  return 0;
}

int SettingsImpl::metaData(const QString& name, MetaData& out) const
{
  auto it = metaData_.find(name);
  if (it == metaData_.end())
    return 1;
  out = it.value();
  return 0;
}

int SettingsImpl::addObserver(ObserverPtr observer)
{
  if (observer)
    observers_.push_back(observer);
  return 0;
}

int SettingsImpl::addObserver(const QString& name, ObserverPtr observer)
{
  if (observer)
    nameObservers_[name].push_back(observer);
  return 0;
}

int SettingsImpl::removeObserver(ObserverPtr observer) { return eraseObserver(observers_, observer) ? 0 : 1; }

int SettingsImpl::removeObserver(const QString& name, ObserverPtr observer)
{
  auto it = nameObservers_.find(name);
  return it != nameObservers_.end() && eraseObserver(it.value(), observer) ? 0 : 1;
}

void SettingsImpl::clear()
{
  values_.clear();
  storage_->eraseAll();
}

void SettingsImpl::remove(const QString& name)
{
  if (!fetch_(name))
    return;
  values_.remove(name);
  storage_->erase(name);
  notify_(name, value(name), nullptr);
}

void SettingsImpl::resetDefaults()
{
  for (auto it = metaData_.begin(); it != metaData_.end(); ++it)
    store_(it.key(), it.value().defaultValue(), nullptr);
}

void SettingsImpl::resetDefaults(const QString& name)
{
  auto it = metaData_.find(name);
  if (it != metaData_.end())
    store_(name, it.value().defaultValue(), nullptr);
}

void SettingsImpl::saveWidget(QWidget* widget)
{
  if (!widget)
    return;
  const QString key = widgetKey(widget);
  setValue(key + "/geometry", widget->saveGeometry());
  if (auto* window = qobject_cast<QMainWindow*>(widget))
    setValue(key + "/state", window->saveState());
  for (QSplitter* splitter : widget->findChildren<QSplitter*>())
    if (!splitter->objectName().isEmpty())
      setValue(key + "/" + splitter->objectName() + "/state", splitter->saveState());
}

void SettingsImpl::loadWidget(QWidget* widget)
{
  if (!widget)
    return;
  const QString key = widgetKey(widget);
  if (contains(key + "/geometry"))
    widget->restoreGeometry(value(key + "/geometry").toByteArray());
  auto* window = qobject_cast<QMainWindow*>(widget);
  if (window && contains(key + "/state"))
    window->restoreState(value(key + "/state").toByteArray());
  for (QSplitter* splitter : widget->findChildren<QSplitter*>())
  {
    const QString splitterKey = key + "/" + splitter->objectName() + "/state";
    if (!splitter->objectName().isEmpty() && contains(splitterKey))
      splitter->restoreState(value(splitterKey).toByteArray());
  }
}

QStringList SettingsImpl::allNames() const { return values_.keys(); }

QString SettingsImpl::fileName() const { return storage_->location(); }

std::shared_ptr<Settings::Memento> SettingsImpl::createMemento() const
{
  return std::make_shared<SettingsMemento>(values_);
}

void SettingsImpl::store_(const QString& name, const QVariant& value, const ObserverPtr& skip)
{
  fetch_(name);
  auto it = values_.find(name);
  if (it != values_.end() && typed_(name, it.value()) == typed_(name, value))
    return;
  values_[name] = value;
  storage_->write(name, value);
  notify_(name, value, skip);
}

void SettingsImpl::notify_(const QString& name, const QVariant& value, const ObserverPtr& skip) const
{
  // Copies, so that an observer may add or remove observers while it is told.
  const std::vector<ObserverPtr> everyName = observers_;
  for (const ObserverPtr& observer : everyName)
    if (observer != skip)
      observer->onSettingChange(name, value);
  const std::vector<ObserverPtr> thisName = nameObservers_.value(name);
  for (const ObserverPtr& observer : thisName)
    if (observer != skip)
      observer->onSettingChange(name, value);
}

QVariant SettingsImpl::typed_(const QString& name, const QVariant& stored) const
{
  // An INI file gives back text; the metadata's default says what the value was.
  auto it = metaData_.find(name);
  if (it == metaData_.end() || !stored.isValid() || !it.value().defaultValue().isValid())
    return stored;
  QVariant converted = stored;
  const int type = it.value().defaultValue().userType();
  if (stored.userType() != type && converted.convert(type))
    return converted;
  return stored;
}

} // namespace kelQt
