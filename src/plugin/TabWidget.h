#pragma once

#include "host/PIApplicationEvents.h"
#include "host/PIMouseEvent.h"

#include <QWidget>

namespace QtSep
{

/// A tab of the editor window. The window hands each tab the host's events and the user's units.
class TabWidget : public QWidget
{
  Q_OBJECT
public:
  using QWidget::QWidget;

  /// @param active true when the tab becomes the current one, false when it stops being so
  virtual void setTabActive(bool active) = 0;
  /// @param event the host event @param data its argument, as the event defines it
  virtual void listenToEvents(PIApplicationEvents_t event, void* data) = 0;
  /// @return non-zero when the tab consumed the mouse event, which then goes to no other tab
  virtual int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) = 0;
  /// Reads the units that apply to all tabs again and shows values in them.
  virtual void applyUnitsChange() = 0;
  /// @return true when the tab holds edits not yet applied to the scenario
  virtual bool dirty() const = 0;
};

} // namespace QtSep
