#pragma once

#include "widgets/Settings.h"

#include <map>
#include <memory>

namespace kelQt
{

/**
 * @brief One branch of a store, seen as a store of its own: every name is taken relative to
 * the group's path, and observers hear the names without it.
 */
class SettingsGroup : public Settings
{
public:
  /// @param settings the whole store; it must outlive the group @param groupPath the branch, as "Private/ScenarioEditor"
  SettingsGroup(Settings* settings, const QString& groupPath);

  /// @return the branch's path.
  const QString& groupPath() const { return group_; }

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
  /// Removes the branch's values only; only the observers of those values hear of it.
  void clear() override;
  void remove(const QString& name) override;
  void resetDefaults() override;
  void resetDefaults(const QString& name) override;
  void saveWidget(QWidget* widget) override;
  void loadWidget(QWidget* widget) override;
  /// @return the branch's names, without its path.
  QStringList allNames() const override;
  QString fileName() const override;
  /// @return a snapshot of the branch's values, which restores into any group or store.
  std::shared_ptr<Memento> createMemento() const override;

private:
  QString getFullPath_(const QString& name) const;
  ObserverPtr getObserver_(const ObserverPtr& observer, bool create);
  /// Counts one registration fewer of the wrapper of observer, and forgets it at none.
  void releaseObserver_(const ObserverPtr& observer);

  /// The observer the store holds for a caller's observer, and how often it is registered.
  struct Wrapper
  {
    ObserverPtr observer;
    int registrations = 0;
  };

  Settings* settings_;
  QString group_;
  std::map<Observer*, Wrapper> wrappers_;
};

using SettingsGroupPtr = std::shared_ptr<SettingsGroup>;

} // namespace kelQt
