#pragma once

#include "host/PIApplicationEvents.h"
#include "utils/CategoryFilterManager.h"
#include "utils/CategoryMatchFilter.h"
#include "widgets/EntityFilter.h"

#include <QStringList>

namespace PluginUtils
{

/**
 * Narrows an entity tree to the platforms whose category values in force are checked; the
 * other entities go with their platform. The categories are those of the scenario, kept in
 * step with it through the host's events (listenToEvents); the checks are kept by text, so a
 * renumbering of the lists loses none of them.
 */
class QtCategoryFilter : public kelQt::EntityFilter, private PUCategoryFilter::Manager::Listener
{
  Q_OBJECT
public:
  /// @param showUnlisted offer the entry for values not listed @param showNoValue offer the entry for no value
  QtCategoryFilter(bool showUnlisted, bool showNoValue, QObject* parent = nullptr);
  ~QtCategoryFilter() override;

  bool acceptEntity(unsigned long id) const override;
  /// @return the tree of check boxes over the scenario's categories; it follows them while open
  QWidget* widget(QWidget* parent) const override;
  void getFilterSettings(QMap<QString, QVariant>& settings) const override;
  void setFilterSettings(const QMap<QString, QVariant>& settings) override;

  /// Reads the scenario's category names and values again.
  void syncListsToScenario();
  /**
   * Follows the host's events: the lists are read again at a reset and grow with new platforms
   * and data; a change of data, which may change the values in force, filters again.
   */
  void listenToEvents(PIApplicationEvents_t event, void* data);

  PUCategoryFilter::CategoryMatchFilter& matchFilter() { return match_; }
  PUCategoryFilter::Manager& manager() { return manager_; }
  bool showUnlisted() const { return showUnlisted_; }
  bool showNoValue() const { return showNoValue_; }
  const QStringList& collapsedCategories() const { return collapsed_; }
  void setCollapsedCategories(const QStringList& names) { collapsed_ = names; }

  static const QString CATEGORY_FILTER_KEY;
  static const QString COLLAPSED_KEY;

public slots:
  /// The check state changed in the editor.
  void categoryFilterChanged();

signals:
  /// The category lists were read again; an open editor builds its tree again.
  void listsChanged();

private:
  void syncedToScenario() override;

  PUCategoryFilter::Manager manager_;
  PUCategoryFilter::CategoryMatchFilter match_;
  bool showUnlisted_;
  bool showNoValue_;
  QStringList collapsed_;
  /// The checks in text, as they stood before the lists were renumbered.
  std::string checksBeforeSync_;
};

} // namespace PluginUtils
