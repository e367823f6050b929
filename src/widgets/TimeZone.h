#pragma once

#include <QMetaType>

namespace kelQt
{

/// The zone in which the calendar forms of a time show the day and the time of day.
enum class TimeZone
{
  UTC,  ///< Coordinated Universal Time, as the scenario stores its times
  LOCAL ///< the zone of this computer, with its daylight saving rules
};

} // namespace kelQt

Q_DECLARE_METATYPE(kelQt::TimeZone)
