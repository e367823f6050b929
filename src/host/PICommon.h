#pragma once

#include <string>
#include <vector>

/// @file Host services: the application, the wait cursor, notifications and settings values.

namespace PICommon
{

/// Severity of a notification line; lower is more severe.
enum NotifySeverity : int
{
  NOTIFY_ALWAYS = 0,
  NOTIFY_FATAL = 1,
  NOTIFY_ERROR = 2,
  NOTIFY_WARN = 3,
  NOTIFY_NOTICE = 4,
  NOTIFY_INFO = 5,
  NOTIFY_DEBUG_INFO = 6,
  NOTIFY_DEBUG_FP = 7
};

/// How long a toast stays.
enum ToastDuration : int
{
  TOAST_SHORT = 0,
  TOAST_MEDIUM = 1,
  TOAST_LONG = 2
};

/// @return the host's application id; 5 for the current generation of the 3-D host.
int getApplicationId();
/// Shows the wait cursor; calls nest and each needs an endWaitCursor.
void beginWaitCursor();
void endWaitCursor();
/// Writes a line to the host's notification stream.
void notify(const std::string& text, NotifySeverity severity);
/// Shows a message that goes by itself.
void showToastNotification(const std::string& text, ToastDuration duration);
/// @return the host's main window (a QMainWindow*), null without one.
void* getMainWindow();

/// Stores a text in the host's settings under key.
void setSettingsValueStr(const std::string& key, const std::string& value);
/// @return the text stored under key, or fallback when absent.
std::string getSettingsValueStr(const std::string& key, const std::string& fallback = std::string());
/// Stores a list of texts in the host's settings under key.
void setSettingsValueStringVec(const std::string& key, const std::vector<std::string>& values);
/// @return the list stored under key, or fallback when absent.
std::vector<std::string> getSettingsValueStringVec(const std::string& key,
                                                   const std::vector<std::string>& fallback = {});

} // namespace PICommon
