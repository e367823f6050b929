#include "ui/NotificationsDock.h"

#include <QListWidget>

namespace kelvor
{

namespace
{

const char* const SEVERITIES[] = {"ALWAYS", "FATAL", "ERROR", "WARN", "NOTICE", "INFO", "DEBUG_INFO", "DEBUG_FP"};

} // namespace

NotificationsDock::NotificationsDock(QWidget* parent) : QDockWidget(tr("Notifications"), parent), list_(new QListWidget(this))
{
  setObjectName("Notifications");
  list_->setObjectName("NotificationsList");
  setWidget(list_);
}

void NotificationsDock::add(const QString& text, int severity)
{
  const QString name = severity >= 0 && severity <= 7 ? SEVERITIES[severity] : "UNKNOWN";
  auto* item = new QListWidgetItem(name + ": " + text.trimmed());
  if (severity <= 2)
    item->setForeground(Qt::red);
  else if (severity == 3)
    item->setForeground(QColor(0xB0, 0x70, 0x00));
  list_->addItem(item);
  list_->scrollToBottom();
}

int NotificationsDock::count() const { return list_->count(); }

QString NotificationsDock::line(int i) const { return list_->item(i) ? list_->item(i)->text() : QString(); }

} // namespace kelvor
