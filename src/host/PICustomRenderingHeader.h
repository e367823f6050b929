#pragma once

#include "host/UniqueID.h"

#include <string>

namespace PIData
{

/// Header of a custom rendering.
struct PICustomRenderingHeader
{
  std::string name;                ///< display name
  std::string renderer = "Unknown"; ///< name of the renderer that draws it
  UniqueID_t originalId = 0;       ///< id the entity's source assigned
};

} // namespace PIData
