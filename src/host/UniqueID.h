#pragma once

#include <cstdint>

/// Entity id: unsigned 64-bit; 0 is no entity (in a selection it stands for the scenario).
using UniqueID_t = std::uint64_t;

/// Marks an unset double field in every record (exact comparison tests for it).
constexpr double PI_INVALID_DOUBLE = -999999999.0;
