#pragma once

namespace kelData
{

/// Kinds of scenario object as bits, so that a set of kinds is one mask.
enum ObjectType : unsigned int
{
  NONE = 0x00,
  PLATFORM = 0x01,
  BEAM = 0x02,
  CUSTOM_RENDERING = 0x04,
  GATE = 0x08,
  LASER = 0x10,
  LOB_GROUP = 0x20,
  PROJECTOR = 0x40,
  ALL = 0x7f
};

} // namespace kelData
