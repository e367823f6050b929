#include "utils/QtCategoryFilter.h"

#include "host/PIDataCategories.h"
#include "host/PIDataEntities.h"
#include "host/PIDataScenario.h"
#include "utils/QtCategoryFilterWidget.h"

namespace PluginUtils
{

const QString QtCategoryFilter::CATEGORY_FILTER_KEY = "CategoryFilter";
const QString QtCategoryFilter::COLLAPSED_KEY = "CollapsedCategories";

QtCategoryFilter::QtCategoryFilter(bool showUnlisted, bool showNoValue, QObject* parent)
  : kelQt::EntityFilter(parent), match_(manager_, showUnlisted || showNoValue), showUnlisted_(showUnlisted),
    showNoValue_(showNoValue)
{
  syncListsToScenario();
}

void QtCategoryFilter::syncListsToScenario()
{
  if (!PIData::isScenarioInitialized())
    return;
  // The scenario's categories: every name and value that any platform holds.
  const std::string saved = match_.saveToString();
  manager_.clear();
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  for (UniqueID_t platform : platforms)
  {
    std::vector<PIData::PICategoryDataPoint> items;
    PIData::retrieveAllCategoryData(platform, &items);
    int category = 0;
    int value = 0;
    for (const auto& item : items)
      manager_.addAndGetCategoryNameAndValue(item.name, item.value, category, value);
  }
  // The checks are kept by text, so renumbering loses none of them.
  match_.loadFromString(saved);
}

bool QtCategoryFilter::acceptEntity(unsigned long id) const
{
  // Children go with their platform.
  UniqueID_t platform = id;
  while (platform != 0 && PIData::getObjectType(platform) != PI_PLATFORM_TYPE)
    platform = PIData::getObjectHost(platform);
  return platform == 0 || match_.doesPlatformMatch(platform);
}

QWidget* QtCategoryFilter::widget(QWidget* parent) const
{
  auto* self = const_cast<QtCategoryFilter*>(this);
  self->syncListsToScenario();
  auto* editor = new QtCategoryFilterWidget(self, parent);
  connect(editor, &QtCategoryFilterWidget::categoryFilterChanged, self, &QtCategoryFilter::categoryFilterChanged);
  return editor;
}

void QtCategoryFilter::categoryFilterChanged()
{
  emit filterUpdated();
}

void QtCategoryFilter::getFilterSettings(QMap<QString, QVariant>& settings) const
{
  settings[CATEGORY_FILTER_KEY] = QString::fromStdString(match_.saveToString());
  settings[COLLAPSED_KEY] = collapsed_;
}

void QtCategoryFilter::setFilterSettings(const QMap<QString, QVariant>& settings)
{
  if (settings.contains(COLLAPSED_KEY))
    collapsed_ = settings.value(COLLAPSED_KEY).toStringList();
  if (!settings.contains(CATEGORY_FILTER_KEY))
    return;
  match_.loadFromString(settings.value(CATEGORY_FILTER_KEY).toString().toStdString());
  emit filterUpdated();
}

} // namespace PluginUtils
