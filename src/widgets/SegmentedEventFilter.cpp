#include "widgets/SegmentedEventFilter.h"

#include <QKeyEvent>

namespace kelQt
{

SegmentedEventFilter::SegmentedEventFilter(QObject* parent) : QObject(parent) {}

bool SegmentedEventFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (event->type() == QEvent::KeyPress)
  {
    const auto* key = static_cast<QKeyEvent*>(event);
    emit keyPressed();
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
      emit applyRequested();
    else if (!key->text().isEmpty() && key->text().at(0).isPrint() &&
             !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
      emit characterTyped(key->text());
  }
  return QObject::eventFilter(watched, event);
}

} // namespace kelQt
