#pragma once

#include "host/PIMouseEvent.h"
#include "utils/BoxSelectMouseHandler.h"

#include <QWidget>

#include <memory>
#include <vector>

class QToolButton;

namespace QtSep
{

/**
 * @brief The "Fence Selection" tool button above a platform's points: while it is checked the
 * host's mouse is the plug-in's, and each box dragged in the 3-D view selects the platform's
 * points that lie in it. Hiding the widget ends the selection mode and frees the mouse.
 */
class FenceSelectionWidget : public QWidget
{
  Q_OBJECT
public:
  explicit FenceSelectionWidget(QWidget* parent = nullptr);
  ~FenceSelectionWidget() override;

  /// @param id the platform whose points a box selects
  void setUniqueId(unsigned long id) { id_ = id; }
  unsigned long uniqueId() const { return id_; }
  /// Passes a mouse event of the host's view to the box. \returns true when it was used
  bool handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event);
  QToolButton* selectToolButton() const { return selectToolButton_; }

signals:
  /// A finished box held points of these times (seconds, ascending; -1 for a static point).
  void selectedTimes(const std::vector<double>& times);

protected:
  void hideEvent(QHideEvent* event) override;

private:
  /// Tests a platform's points against the box.
  class FenceSelectMouseHandler : public PluginUtils::BoxSelectMouseHandler
  {
  public:
    const std::vector<double>& times() const { return times_; }

  protected:
    int process_(std::vector<unsigned long>& ids) override;

  private:
    std::vector<double> times_;
  };

  /// Checked: a new handler takes the host's mouse. Unchecked: the handler goes and the mouse is freed.
  void activateFenceSelection_(bool checked);
  void freeMouse_();

  QToolButton* selectToolButton_;
  std::unique_ptr<FenceSelectMouseHandler> handler_;
  unsigned long id_ = 0;
};

} // namespace QtSep
