#pragma once

namespace QtSep
{

class MainDialog;

/// Gives the editor window, making it on first use, to actions that open its tabs.
class MainDialogFactory
{
public:
  virtual ~MainDialogFactory() = default;
  /// @return the editor window; null when it cannot be made
  virtual MainDialog* getMainDialog() = 0;
};

} // namespace QtSep
