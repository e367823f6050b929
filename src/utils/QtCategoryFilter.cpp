#include "utils/QtCategoryFilter.h"

#include "host/PIDataEntities.h"
#include "utils/QtCategoryFilterWidget.h"

namespace PluginUtils
{

const QString QtCategoryFilter::CATEGORY_FILTER_KEY = "CategoryFilter";
const QString QtCategoryFilter::COLLAPSED_KEY = "CollapsedCategories";

QtCategoryFilter::QtCategoryFilter(bool showUnlisted, bool showNoValue, QObject* parent)
  : kelQt::EntityFilter(parent), match_(manager_.categoryManager(), showUnlisted || showNoValue),
    showUnlisted_(showUnlisted), showNoValue_(showNoValue)
{
  manager_.addListener(this);
  syncListsToScenario();
}

QtCategoryFilter::~QtCategoryFilter() { manager_.removeListener(this); }

void QtCategoryFilter::syncListsToScenario()
{
  // The manager renumbers as it reads; the checks come back by text afterwards.
  checksBeforeSync_ = match_.saveToString();
  manager_.syncListsToScenario(true);
}

void QtCategoryFilter::syncedToScenario()
{
  if (!checksBeforeSync_.empty())
    match_.loadFromString(checksBeforeSync_);
  checksBeforeSync_.clear();
  emit listsChanged();
}

void QtCategoryFilter::listenToEvents(PIApplicationEvents_t event, void* data)
{
  checksBeforeSync_ = match_.saveToString();
  manager_.listenToEvents(event, data);
  checksBeforeSync_.clear();
  const bool valuesMayChange = event == PI_EVENT_SCENARIO_RESET || event == PI_EVENT_ENTITY_DATA_CHANGED;
  if (valuesMayChange && !match_.checks().empty())
    emit filterUpdated();
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
  // Read again on opening as well: a plug-in may change category data without announcing it.
  auto* self = const_cast<QtCategoryFilter*>(this);
  self->syncListsToScenario();
  auto* editor = new QtCategoryFilterWidget(self, parent);
  connect(editor, &QtCategoryFilterWidget::categoryFilterChanged, self, &QtCategoryFilter::categoryFilterChanged);
  connect(self, &QtCategoryFilter::listsChanged, editor, &QtCategoryFilterWidget::updateTree);
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
