#pragma once

#include "widgets/Settings.h"
#include "widgets/SettingsStorage.h"

#include <QMap>

#include <memory>
#include <vector>


namespace kelQt
{

/**
 * @brief Settings kept in an INI file through QSettings. Values are written through at once;
 * metadata and observers live as long as the object.
 */
class SettingsImpl : public Settings
{
public:
  /// @param iniFileName the file the values persist in; it is read at once
  explicit SettingsImpl(const QString& iniFileName);
  /// @param storage where the values persist; what it can list is read at once
  explicit SettingsImpl(std::unique_ptr<SettingsStorage> storage);
  ~SettingsImpl() override;

  void setValue(const QString& name, const QVariant& value) override;
  void setValue(const QString& name, const QVariant& value, const MetaData& metaData) override;
  void setValue(const QString& name, const QVariant& value, ObserverPtr skip) override;
  QVariant value(const QString& name) const override;
  QVariant value(const QString& name, const MetaData& metaData) override;
  QVariant value(const QString& name, ObserverPtr observer) override;
  QVariant value(const QString& name, const MetaData& metaData, ObserverPtr observer) override;
  bool contains(const QString& name) const override;
  int setMetaData(const QString& name, const MetaData& metaData) override;
  int metaData(const QString& name, MetaData& out) const override;
  int addObserver(ObserverPtr observer) override;
  int addObserver(const QString& name, ObserverPtr observer) override;
  int removeObserver(ObserverPtr observer) override;
  int removeObserver(const QString& name, ObserverPtr observer) override;
  void clear() override;
  void remove(const QString& name) override;
  void resetDefaults() override;
  void resetDefaults(const QString& name) override;
  void saveWidget(QWidget* widget) override;
  void loadWidget(QWidget* widget) override;
  QStringList allNames() const override;
  QString fileName() const override;
  std::shared_ptr<Memento> createMemento() const override;

private:
  /// Brings a stored value into the cache. @return whether the name has a value
  bool fetch_(const QString& name) const;
  void store_(const QString& name, const QVariant& value, const ObserverPtr& skip);
  void notify_(const QString& name, const QVariant& value, const ObserverPtr& skip) const;
  QVariant typed_(const QString& name, const QVariant& stored) const;

  std::unique_ptr<SettingsStorage> storage_;
  mutable QMap<QString, QVariant> values_; ///< the values read so far and written
  QMap<QString, MetaData> metaData_;
  std::vector<ObserverPtr> observers_;
  QMap<QString, std::vector<ObserverPtr>> nameObservers_;
};

} // namespace kelQt
