#pragma once

namespace kelvor
{

/// What a handle handed to a plug-in stands for; the server keeps every live one.
struct HostHandle
{
  enum Kind
  {
    MENU_ITEM,
    ICON,
    PROGRESS_DIALOG
  };
  Kind kind;
  long id; ///< the id in the server's table of that kind
};

} // namespace kelvor
