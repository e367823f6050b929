#pragma once

#include "host/PIObject.h"

namespace PIGUI
{

class PIMenu;

/// A wrapper of a host window or control.
class PIWindow : public PIObject
{
public:
  /// Enables or disables the host's control. @return 0 for success
  virtual int setEnabled(bool enabled);
};

} // namespace PIGUI
