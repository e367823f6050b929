#pragma once

#include <cstdint>
#include <vector>

namespace UTILS
{

/// Bytes of a blob cell of a data table.
using Blob = std::vector<std::uint8_t>;

} // namespace UTILS
