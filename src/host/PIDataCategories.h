#pragma once

#include "host/PICategoryDataPoint.h"

#include <vector>

/// @file Scenario access: category data.

namespace PIData
{

/// Adds a category value; one of the same time and name replaces it. @return 0 for success
int addCategoryData(UniqueID_t id, const PICategoryDataPoint* item);
/// Removes the item matching time, name and value. @return 0 for success, 1 when none matched
int removeCategoryData(UniqueID_t id, const PICategoryDataPoint* item);
/// Reads every category item in time order. @return 0 for success
int retrieveAllCategoryData(UniqueID_t id, std::vector<PICategoryDataPoint>* items);
/// Reads, for each category name, the value in force at time. @return 0 for success
int retrieveCurrentCategoryData(UniqueID_t id, double time, std::vector<PICategoryDataPoint>* items);

} // namespace PIData
