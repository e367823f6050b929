#include "datasources/FenceSelectionWidget.h"

#include "host/PIDataPoints.h"
#include "host/PIKELVOR.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QToolButton>

#include <cfloat>

namespace QtSep
{

FenceSelectionWidget::FenceSelectionWidget(QWidget* parent) : QWidget(parent), selectToolButton_(new QToolButton)
{
  selectToolButton_->setObjectName("selectToolButton");
  selectToolButton_->setCheckable(true);
  selectToolButton_->setIcon(QIcon(":/QtScenarioEditor/images/Selection.png"));
  selectToolButton_->setText(tr("Fence Selection"));
  selectToolButton_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  selectToolButton_->setToolTip(tr("Use the mouse to select TSPI points in the 3D display."));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(selectToolButton_);
  row->addStretch(1);
  connect(selectToolButton_, &QToolButton::clicked, this, &FenceSelectionWidget::activateFenceSelection_);
}

FenceSelectionWidget::~FenceSelectionWidget() { freeMouse_(); }

void FenceSelectionWidget::activateFenceSelection_(bool checked)
{
  if (checked)
  {
    const bool grabbed = handler_ != nullptr;
    handler_ = std::make_unique<FenceSelectMouseHandler>();
    if (!grabbed)
      PIKELVOR::grabMouse();
    return;
  }
  if (!handler_)
    return;
  handler_.reset();
  PIKELVOR::releaseMouse();
}

void FenceSelectionWidget::freeMouse_()
{
  if (!handler_)
    return;
  activateFenceSelection_(false);
  selectToolButton_->setChecked(false);
}

void FenceSelectionWidget::hideEvent(QHideEvent* event)
{
  freeMouse_();
  QWidget::hideEvent(event);
}

bool FenceSelectionWidget::handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event)
{
  if (!handler_)
    return false;
  std::vector<unsigned long> ids{id_};
  const bool used = handler_->handleMouseEvent(type, event, ids);
  if (used && type != PIGUI::PI_MOUSE_PRESS && type != PIGUI::PI_MOUSE_MOVE)
  {
    const std::vector<double> times = handler_->times();
    emit selectedTimes(times);
  }
  return used;
}

int FenceSelectionWidget::FenceSelectMouseHandler::process_(std::vector<unsigned long>& ids)
{
  times_.clear();
  for (unsigned long id : ids)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -DBL_MAX, DBL_MAX, &points, PIData::PICoordReferenceFrame());
    for (const PIData::PIPlatformPoint& point : points)
    {
      if (isContained_(point, secondLat_, secondLon_, firstLat_, firstLon_))
        times_.push_back(point.time);
    }
  }
  return 0;
}

} // namespace QtSep
