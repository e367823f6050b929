#pragma once

/// @file Every scenario access operation of the host, in one include.

#include "host/PIDataCategories.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "host/PIDataTableCreateHelper.h"
#include "host/PIDataTables.h"
