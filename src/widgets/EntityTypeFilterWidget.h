#pragma once

#include <QWidget>

#include <map>

class QCheckBox;

namespace kelQt
{

/// A check box for each kind of entity; the checked kinds form a mask of kelData::ObjectType bits.
class EntityTypeFilterWidget : public QWidget
{
  Q_OBJECT
public:
  /// @param types the kinds checked at first, kelData::ObjectType bits
  explicit EntityTypeFilterWidget(unsigned int types, QWidget* parent = nullptr);

  /// @return the checked kinds, kelData::ObjectType bits
  unsigned int entityTypes() const;
  /// Checks exactly the kinds of types (kelData::ObjectType bits), without reporting a change.
  void setEntityTypes(unsigned int types);

signals:
  /// The user checked or cleared a kind. @param types the checked kinds, kelData::ObjectType bits
  void entityTypesChanged(unsigned int types);

private:
  std::map<unsigned int, QCheckBox*> boxes_;
};

} // namespace kelQt
