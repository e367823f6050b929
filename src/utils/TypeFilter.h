#pragma once

#include "widgets/EntityFilter.h"

namespace PluginUtils
{

/// Shows the entities of chosen kinds. The scenario row (id 0) is no kind and always shows.
class TypeFilter : public kelQt::EntityFilter
{
  Q_OBJECT
public:
  /**
   * @param types the kinds shown, PIScenarioObjectType_t bits
   * @param offerWidget true to let the user change the kinds in the filter dialog
   */
  explicit TypeFilter(unsigned int types, bool offerWidget = true);

  bool acceptEntity(unsigned long id) const override;
  /// @return a kelQt::EntityTypeFilterWidget over the kinds, or null when no widget is offered
  QWidget* widget(QWidget* parent) const override;
  void getFilterSettings(QMap<QString, QVariant>& settings) const override;
  void setFilterSettings(const QMap<QString, QVariant>& settings) override;

  /// @param type a PIScenarioObjectType_t bit to show
  void enableEntityType(unsigned int type);
  /// @param type a PIScenarioObjectType_t bit to hide
  void disableEntityType(unsigned int type);
  /// @return the kinds shown, PIScenarioObjectType_t bits
  unsigned int entityTypes() const { return types_; }

  /// Key of the kinds in the filter settings, kept as kelData::ObjectType bits.
  static const QString TYPES_KEY;

private:
  void setTypes_(unsigned int types);
  static unsigned int piDataObjectTypeToKelDataObjectType_(unsigned int types);
  static unsigned int kelDataObjectTypeToPIDataObjectType_(unsigned int types);

  unsigned int types_;
  bool offerWidget_;
};

} // namespace PluginUtils
