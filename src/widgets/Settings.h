#pragma once

#include "widgets/SettingsMetaData.h"

#include <QStringList>
#include <QVariant>

#include <memory>

class QWidget;

namespace kelQt
{

/**
 * @brief A store of named values with metadata and observers.
 *
 * Names are paths joined by "/". Observers hear of each change of a value; a writer may name
 * one observer to skip, so that a widget bound to a value is not told of its own change.
 */
class Settings
{
public:
  using MetaData = SettingsMetaData;

  /// Hears of changed values.
  class Observer
  {
  public:
    virtual ~Observer() = default;
    /// @param name the setting's name as the observer knows it @param value its new value
    virtual void onSettingChange(const QString& name, const QVariant& value) = 0;
  };
  using ObserverPtr = std::shared_ptr<Observer>;

  /// A snapshot of values that can be put back.
  class Memento
  {
  public:
    virtual ~Memento() = default;
    /// Writes the snapshot's values back into settings.
    virtual void restore(Settings& settings) const = 0;
  };

  virtual ~Settings() = default;

  /// Sets a value, telling every observer of it.
  virtual void setValue(const QString& name, const QVariant& value) = 0;
  /// Sets a value and its metadata.
  virtual void setValue(const QString& name, const QVariant& value, const MetaData& metaData) = 0;
  /// Sets a value, telling every observer of it but skip.
  virtual void setValue(const QString& name, const QVariant& value, ObserverPtr skip) = 0;
  /// @return the value, invalid when absent.
  virtual QVariant value(const QString& name) const = 0;
  /// @return the value; when absent, the metadata's default, which is stored with the metadata.
  virtual QVariant value(const QString& name, const MetaData& metaData) = 0;
  /// @return the value, after adding observer for the name.
  virtual QVariant value(const QString& name, ObserverPtr observer) = 0;
  /// @return the value as value(name, metaData), after adding observer for the name.
  virtual QVariant value(const QString& name, const MetaData& metaData, ObserverPtr observer) = 0;
  /// @return true when a value of that name is stored.
  virtual bool contains(const QString& name) const = 0;
  /// Sets the metadata of a name. @return 0
  virtual int setMetaData(const QString& name, const MetaData& metaData) = 0;
  /// Reads the metadata of a name. @return 0 when it has some, 1 otherwise (out untouched)
  virtual int metaData(const QString& name, MetaData& out) const = 0;
  /// Adds an observer of every value. @return 0
  virtual int addObserver(ObserverPtr observer) = 0;
  /// Adds an observer of one value. @return 0
  virtual int addObserver(const QString& name, ObserverPtr observer) = 0;
  /// Removes an observer of every value. @return 0 when it was there, 1 otherwise
  virtual int removeObserver(ObserverPtr observer) = 0;
  /// Removes an observer of one value. @return 0 when it was there, 1 otherwise
  virtual int removeObserver(const QString& name, ObserverPtr observer) = 0;
  /// Removes every value.
  virtual void clear() = 0;
  /**
   * Removes one value. Its observers are told the value the name now reads: its metadata's
   * default, or an invalid value when it has none. Nothing happens when no value is stored.
   */
  virtual void remove(const QString& name) = 0;
  /// Sets every value that has metadata back to its default.
  virtual void resetDefaults() = 0;
  /// Sets one value back to its metadata's default.
  virtual void resetDefaults(const QString& name) = 0;
  /// Stores the layout of a window: geometry, and the state of main windows and splitters in it.
  virtual void saveWidget(QWidget* widget) = 0;
  /// Restores what saveWidget stored.
  virtual void loadWidget(QWidget* widget) = 0;
  /// @return every stored name.
  virtual QStringList allNames() const = 0;
  /// @return the file the values persist in.
  virtual QString fileName() const = 0;
  /// @return a snapshot of every value.
  virtual std::shared_ptr<Memento> createMemento() const = 0;
};

} // namespace kelQt
