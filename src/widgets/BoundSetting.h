#pragma once

#include "widgets/Settings.h"

#include <QObject>

class QAction;
class QWidget;

namespace kelQt
{

/**
 * @brief Base of the settings bound to a value: once started, it observes its name in the
 * store and hands each change to updateValue_.
 */
class BoundSetting : public QObject
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store; it must outlive this @param variableName the name in the store
  BoundSetting(QObject* parent, Settings& settings, const QString& variableName);
  ~BoundSetting() override;

  Settings& settings() const { return settings_; }
  const QString& variableName() const { return variableName_; }

protected:
  /// Passes the store's changes of the name to its owner.
  class SettingsObserver : public Settings::Observer
  {
  public:
    explicit SettingsObserver(BoundSetting& owner) : owner_(owner) {}
    void onSettingChange(const QString&, const QVariant& value) override { owner_.updateValue_(value); }

  private:
    BoundSetting& owner_;
  };

  /// Registers for changes of the name; called once the value is read, since reading a
  /// value with metadata may write its default and so notify.
  void startObserving_();
  /// A new value from the store.
  virtual void updateValue_(const QVariant& value) = 0;
  /// Gives widget the metadata's tool tip.
  void setToolTip_(QWidget* widget) const;
  /// Gives action the metadata's tool tip.
  void setToolTip_(QAction* action) const;
  /// @return the metadata of the name, default metadata when it has none.
  Settings::MetaData metaData_() const;

  Settings::ObserverPtr observer_;

private:
  Settings& settings_;
  QString variableName_;
};

/**
 * @brief The value cache shared by every bound setting: a value of type T, read from the
 * store, changed by setValue_ (which writes the store without telling itself) and by the
 * store's changes (which do not write back).
 */
template <typename T>
class BoundSettingT : public BoundSetting
{
public:
  /// The setting's value.
  const T& value() const { return value_; }

protected:
  BoundSettingT(QObject* parent, Settings& settings, const QString& name) : BoundSetting(parent, settings, name)
  {
    value_ = fromVariant_(settings.value(name));
    startObserving_();
  }
  BoundSettingT(QObject* parent, Settings& settings, const QString& name, const Settings::MetaData& metaData)
    : BoundSetting(parent, settings, name)
  {
    value_ = fromVariant_(settings.value(name, metaData));
    startObserving_();
  }

  /// Caches and writes value. @return false when it equals the cache and nothing was done
  bool setValue_(const T& value)
  {
    if (value == value_)
      return false;
    value_ = value;
    settings().setValue(variableName(), QVariant::fromValue(value_), observer_);
    return true;
  }

  /// Caches a value from the store. @return false when it equals the cache
  bool cacheValue_(const QVariant& variant)
  {
    const T value = fromVariant_(variant);
    if (value == value_)
      return false;
    value_ = value;
    return true;
  }

  static T fromVariant_(const QVariant& variant) { return variant.value<T>(); }

  /**
   * Shows the cached value in a bound spin box or slider once its limits are final. A widget
   * made with its own narrow range would have clamped the value when it was first put in; here
   * it takes the value again, and where its final limits still clamp it, the clamped value is
   * written back so that the widget never shows what the store does not hold.
   * @param write the derived setting's setValue, which also announces the change
   */
  template <typename Widget, typename Write>
  void showWithinLimits_(Widget* widget, Write write)
  {
    widget->setValue(value_);
    if (value_ < widget->minimum() || value_ > widget->maximum())
      write(widget->value());
  }

  T value_{};
};

} // namespace kelQt
