#include "utils/QtCenterEntity.h"

#include "host/Notify.h"
#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "host/PIKELVOR.h"
#include "widgets/EntityTreeComposite.h"

namespace PluginUtils
{

namespace
{

const char* const INACTIVE_TEXT = "Cannot center on inactive entity.";

} // namespace

QtCenterEntity::QtCenterEntity(kelQt::EntityTreeComposite& composite, QObject* parent)
  : QObject(parent), composite_(composite)
{
  connect(&composite_, &kelQt::EntityTreeComposite::centerOnEntityRequested, this, &QtCenterEntity::centerOnEntity_);
  connect(&composite_, &kelQt::EntityTreeComposite::centerOnSelectionRequested, this,
          &QtCenterEntity::centerOnSelection_);
  connect(&composite_, &kelQt::EntityTreeComposite::itemsSelected, this, &QtCenterEntity::updateCenterEnable_);
  composite_.setShowCenterInMenu(true);
  updateCenterEnable_();
}

bool QtCenterEntity::isDrawn_(unsigned long id) const
{
  // A preference the host cannot tell leaves the entity counted as drawn.
  for (const char* preference : {"commonPrefs.draw", "commonPrefs.dataDraw"})
  {
    bool on = true;
    if (PIKELVOR::getPrefBool(id, preference, &on) == 0 && !on)
      return false;
  }
  return true;
}

bool QtCenterEntity::isActive_(unsigned long id, double& start, double& end) const
{
  start = PIData::getEarliestTime(id);
  end = PIData::getLatestTime(id);
  if (!isDrawn_(id))
    return false;
  // A static entity (negative times) is there at every time.
  if (start < 0.0)
    return true;
  const double now = PIData::clockGetVisualTime();
  return now >= start && now <= end;
}

QString QtCenterEntity::centerRefusal(const QList<unsigned long>& ids) const
{
  if (ids.isEmpty())
    return "No entities selected";
  for (unsigned long id : ids)
  {
    if (id == 0)
      return "Scenario selected";
    double start = 0.0;
    double end = 0.0;
    if (isActive_(id, start, end))
      continue;
    if (!isDrawn_(id))
      return "Inactive entity selected";
    return QString("Time outside of %1 to %2").arg(start, 0, 'f', 3).arg(end, 0, 'f', 3);
  }
  return QString();
}

void QtCenterEntity::centerOnEntity_(unsigned long id)
{
  centerOnSelection_({id});
}

void QtCenterEntity::centerOnSelection_(const QList<unsigned long>& ids)
{
  if (!centerRefusal(ids).isEmpty())
  {
    PICommon::Notify(PICommon::NOTIFY_WARN) << INACTIVE_TEXT;
    return;
  }
  // The camera follows one entity: the first of the selection.
  PIKELVOR::tetherCamera(PIKELVOR::getCurrentViewport(), ids.front());
}

void QtCenterEntity::updateCenterEnable_()
{
  const QString reason = centerRefusal(composite_.selectedItems());
  composite_.setUseCenterAction(reason.isEmpty(), reason);
}

} // namespace PluginUtils
