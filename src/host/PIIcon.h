#pragma once

#include "host/PIObject.h"

#include <cstddef>

namespace PIGUI
{

/// An icon the host holds, made from PNG bytes.
class PIIcon : public PIObject
{
public:
  /**
   * Hands the host a PNG image. @param data the file's bytes @param size their count
   * @param transparent carried for hosts that key a colour out; PNG has its own alpha
   * @return 0 for success
   */
  int loadPNGByArray(const unsigned char* data, std::size_t size, bool transparent = false);
};

} // namespace PIGUI
