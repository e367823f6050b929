#pragma once

#include <map>
#include <string>
#include <vector>

namespace PIKELVOR
{

/// Where a right-click happened.
enum WhatWasClicked : int
{
  CLICKED_VIEW = 0,        ///< an entity in the 3-D view
  CLICKED_BACKGROUND = 1,  ///< the 3-D view away from any entity
  CLICKED_TOOLBAR = 2,     ///< a tool bar
  CLICKED_ENTITY_LIST = 3  ///< a list of entities, such as the Data Browser
};

/**
 * @brief What a plug-in registers to add items to the host's right-click menus. The host
 * calls it while it builds a menu; the items go in with PIKELVOR::addContextMenuItem.
 */
class ContextMenuCallback
{
public:
  virtual ~ContextMenuCallback() = default;
  /// One entity clicked. @param menu the menu being built, for the PIKELVOR menu calls
  virtual void menuRequested(WhatWasClicked what, unsigned long id, void* menu) = 0;
  /// Several entities clicked. @param properties the host's notes on the click
  virtual void menuRequested(WhatWasClicked what, const std::vector<unsigned long>& ids,
                             const std::map<std::string, std::string>& properties, void* menu) = 0;
};

} // namespace PIKELVOR
