#include "widgets/SelectableEntityFilter.h"

namespace kelQt
{

void SelectableEntityFilter::setSelectableEntities(const std::set<unsigned long>& ids)
{
  ids_ = ids;
  emit filterUpdated();
}

void SelectableEntityFilter::removeSelectableEntities(const std::vector<unsigned long>& ids)
{
  for (unsigned long id : ids)
    ids_.erase(id);
  emit filterUpdated();
}

void SelectableEntityFilter::clear()
{
  ids_.clear();
  emit filterUpdated();
}

} // namespace kelQt
