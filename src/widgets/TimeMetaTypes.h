#pragma once

#include "kelCore/TimeFormat.h"
#include "kelCore/TimeStamp.h"

#include <QMetaType>

/// @file Lets the time types of kelCore travel in signals, properties and QVariants.

Q_DECLARE_METATYPE(kelCore::TimeStamp)
Q_DECLARE_METATYPE(kelCore::TimeFormat)
