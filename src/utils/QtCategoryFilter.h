#pragma once

#include "utils/CategoryManager.h"
#include "utils/CategoryMatchFilter.h"
#include "widgets/EntityFilter.h"

#include <QStringList>

namespace PluginUtils
{

/**
 * Narrows an entity tree to the platforms whose category values in force are checked; the
 * other entities go with their platform. The categories are those of the scenario, read when
 * the filter is made and whenever its editor opens.
 */
class QtCategoryFilter : public kelQt::EntityFilter
{
  Q_OBJECT
public:
  /// @param showUnlisted offer the entry for values not listed @param showNoValue offer the entry for no value
  QtCategoryFilter(bool showUnlisted, bool showNoValue, QObject* parent = nullptr);

  bool acceptEntity(unsigned long id) const override;
  /// @return the tree of check boxes, made anew from the scenario's categories
  QWidget* widget(QWidget* parent) const override;
  void getFilterSettings(QMap<QString, QVariant>& settings) const override;
  void setFilterSettings(const QMap<QString, QVariant>& settings) override;

  /// Reads the scenario's category names and values into the manager.
  void syncListsToScenario();
  PUCategoryFilter::CategoryMatchFilter& matchFilter() { return match_; }
  bool showUnlisted() const { return showUnlisted_; }
  bool showNoValue() const { return showNoValue_; }
  const QStringList& collapsedCategories() const { return collapsed_; }
  void setCollapsedCategories(const QStringList& names) { collapsed_ = names; }

  static const QString CATEGORY_FILTER_KEY;
  static const QString COLLAPSED_KEY;

public slots:
  /// The check state changed in the editor.
  void categoryFilterChanged();

private:
  CategoryManager manager_;
  PUCategoryFilter::CategoryMatchFilter match_;
  bool showUnlisted_;
  bool showNoValue_;
  QStringList collapsed_;
};

} // namespace PluginUtils
