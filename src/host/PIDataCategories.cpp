#include "host/PIDataCategories.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIData
{

namespace
{

int categoryRequest(int selector, UniqueID_t id, const void* pointer, double time = 0.0)
{
  if (!pointer)
    return 1;
  auto r = PIRequest::catchAll(selector, {static_cast<std::int64_t>(id)});
  r.doubles = {time};
  r.pointers = {const_cast<void*>(pointer)};
  return PIRequest::send(PISF_CATEGORY_DATA, r);
}

} // namespace

int addCategoryData(UniqueID_t id, const PICategoryDataPoint* item)
{
  return categoryRequest(PISelector::CATEGORY_ADD, id, item);
}
int removeCategoryData(UniqueID_t id, const PICategoryDataPoint* item)
{
  return categoryRequest(PISelector::CATEGORY_REMOVE, id, item);
}
int retrieveAllCategoryData(UniqueID_t id, std::vector<PICategoryDataPoint>* items)
{
  return categoryRequest(PISelector::CATEGORY_RETRIEVE_ALL, id, items);
}
int retrieveCurrentCategoryData(UniqueID_t id, double time, std::vector<PICategoryDataPoint>* items)
{
  return categoryRequest(PISelector::CATEGORY_RETRIEVE_CURRENT, id, items, time);
}

} // namespace PIData
