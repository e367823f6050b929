#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

class QWidget;

namespace kelQt
{

/// One vote on which entities a tree shows. Every filter of a tree votes on every entity.
class EntityFilter : public QObject
{
  Q_OBJECT
public:
  using QObject::QObject;

  /// @return true when the entity may be shown.
  virtual bool acceptEntity(unsigned long id) const = 0;
  /// @return the filter's editor for the filter dialog, owned by parent, or null for none.
  virtual QWidget* widget(QWidget* parent) const = 0;
  /// Adds the filter's state to settings, under keys of its own.
  virtual void getFilterSettings(QMap<QString, QVariant>& settings) const = 0;
  /// Takes the filter's state from settings; keys it does not know are left alone.
  virtual void setFilterSettings(const QMap<QString, QVariant>& settings) = 0;

signals:
  /// The filter changed and the entities must be filtered again.
  void filterUpdated();
};

} // namespace kelQt
