#pragma once

#include "host/ContextMenuCallback.h"
#include "host/UniqueID.h"

#include <string>
#include <vector>

class FunctorTwoParams__;
namespace PIGUI
{
class PIIcon;
}

/// @file Host services of KELVOR: right-click menus, the 3-D view, preference rules, overlays.

namespace PIKELVOR
{

/// @return true when the host is the current generation of the 3-D host (application id 5).
bool runningInKELVOR10();

/// Has callback asked for items whenever the host builds a right-click menu. @return 0 for success
int registerContextMenuCallback(ContextMenuCallback* callback);
int removeContextMenuCallback(ContextMenuCallback* callback);
/**
 * Adds an item to a menu being built. @param menu the menu handed to the callback
 * @param functor runs when chosen @param weight lower stands higher @param icon may be null
 * @return 0 for success
 */
int addContextMenuItem(void* menu, const std::string& text, FunctorTwoParams__* functor, int weight,
                       PIGUI::PIIcon* icon = nullptr, bool enabled = true);
/// @return the new sub-menu, for further items; null for failure.
void* addContextMenuSubMenu(void* menu, const std::string& text, int weight);
int addContextMenuSeparator(void* menu, int weight);

/// @return true when the entity shows its alias rather than its name.
bool getUseAlias(unsigned long id);
/// @return the name of the view with focus.
std::string getCurrentViewport();
/// Makes the view's camera follow an entity; 0 releases it. @return 0 for success
int tetherCamera(const std::string& viewport, unsigned long id);

/// How long a display rule lasts.
enum PrefRulePersistence
{
  PREF_RULE_SAVED = 0,  ///< kept with the scenario and written to its file
  PREF_RULE_SESSION = 2 ///< shown until removed or the scenario closes, never written to a file
};

/**
 * Hands the host a display rule, such as
 * ruleName=TracksWidth ruleValue="3" nameExpression="^Eagle 1$" categoryFilters=" ".
 * @param persistence a PrefRulePersistence value @param ruleId set to the rule's id on success
 * @return 0 for success
 */
int addPrefRule(const std::string& rule, int persistence, long* ruleId);
/// @return 0 for success, non-zero for an id the host does not hold
int removePrefRule(long ruleId);
/**
 * Shows or hides an entity in the scene.
 * @param draw false to hide @param withChildren true to do the same to its beams, gates, lasers and others
 * @return 0 for success
 */
int setPrefDrawFlag(UniqueID_t id, bool draw, bool withChildren);
/// Sets a named draw flag of an entity (0 for the scenario), such as "Hidden" or "Highlight". @return 0 for success
int setPrefFlag(UniqueID_t id, const std::string& flag, bool on);
/**
 * Reads an on-or-off display preference of an entity, such as "commonPrefs.draw".
 * @param value set on success @return 0 for success; 1, leaving value alone, for a name the host does not know
 */
int getPrefBool(UniqueID_t id, const std::string& preference, bool* value);

/// Reads the overlay files attached to an entity (0 for the scenario). @return 0 for success
int getAttachedGOGFiles(UniqueID_t id, std::vector<std::string>* files);
/// Loads an overlay file and attaches it to an entity (0 for the scenario). @return 0 for success
int loadGOGFile(const std::string& file, UniqueID_t id = 0);

/**
 * The geodetic point under the mouse. Null outputs are skipped.
 * @param lat radians @param lon radians @param alt metres @param viewport which view (1 the main)
 * @return 0 for success; 1, leaving the outputs alone, when the cursor is off the globe
 */
int getMouseCursorLLA(double* lat, double* lon, double* alt, int viewport);
/// Draws a line between two geodetic points (radians, metres). @return its id, 0 for failure
long createAnimatedLine(double lat1, double lon1, double alt1, double lat2, double lon2, double alt2,
                        unsigned int color = 0xFFFF00FF, int width = 2);
int removeAnimatedLine(long lineId);
/// Sends the view's mouse events to plug-ins until releaseMouse.
int grabMouse();
int releaseMouse();

} // namespace PIKELVOR
