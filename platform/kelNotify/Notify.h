#pragma once

#include "kelNotify/NotifyHandler.h"

#include <memory>
#include <ostream>

/// @file The severity-tagged notification stream.

namespace kelNotify
{

/// Sets the least severe level that is sent on; NOTIFY_NOTICE by default.
void setNotifyLevel(NotifySeverity level);
/// @return the least severe level that is sent on.
NotifySeverity notifyLevel();
/// @return true when lines of severity are sent on.
bool isNotifyEnabled(NotifySeverity severity);

/// Sets the receiver of the lines; null restores the one that writes to standard error.
void setNotifyHandler(std::shared_ptr<NotifyHandler> handler);
/// @return the receiver of the lines.
std::shared_ptr<NotifyHandler> notifyHandler();

/**
 * @return the stream of severity: each line written to it reaches the handler when its line
 * end is written or the stream is flushed. Lines of a disabled severity go nowhere.
 */
std::ostream& notify(NotifySeverity severity);

} // namespace kelNotify
