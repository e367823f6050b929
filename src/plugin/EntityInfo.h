#pragma once

#include "host/PIScenarioObjectType.h"

#include <string>

namespace QtSep
{

/// One selected entity: id, kind and name. The entity with id 0 stands for the scenario.
struct EntityInfo
{
  unsigned long id = 0;
  PIScenarioObjectType_t type = PI_NONE_TYPE;
  std::string name;

  bool operator==(const EntityInfo& o) const { return id == o.id && type == o.type && name == o.name; }
};

/// Orders by ascending kind value.
inline bool sortByType(const EntityInfo& a, const EntityInfo& b) { return a.type < b.type; }

} // namespace QtSep
