#pragma once

class PIObject;

namespace PIGUI
{

/**
 * Puts a window wrapper in the host's garbage list (family 168, selector 0).
 * @return the status the host wrote; not zero asks the plug-in to collect the wrapper too
 */
int AddObjectToServerGarbage(PIObject* object);

/// Takes a window wrapper out of the host's garbage list (family 168, selector 1).
int RemoveObjectFromServerGarbage(PIObject* object);

} // namespace PIGUI
