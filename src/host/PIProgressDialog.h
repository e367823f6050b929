#pragma once

#include "host/PIWindow.h"

#include <string>

namespace PIGUI
{

/// The host's progress dialog, for the one long-running action.
class PIProgressDialog : public PIWindow
{
public:
  /// @param parent owner window, may be null @param title the window title @param label the text
  /// @param mode carried to the host @param count the number of steps
  PIProgressDialog(PIWindow* parent, const std::string& title, const std::string& label, int mode, int count);

  int show();
  int setMaximum(int maximum);
  int setValue(int value);
  /// @return true once the user asked to cancel.
  bool isCanceled();
  /// Lets the host serve its events; the plug-in may be re-entered.
  int runWhileEvents();

private:
  int command_(int selector, int value = 0);
};

} // namespace PIGUI
