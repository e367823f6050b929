#pragma once

#include <QDockWidget>

class QListWidget;

namespace kelvor
{

/// The dock that lists every notification line with its severity.
class NotificationsDock : public QDockWidget
{
  Q_OBJECT
public:
  explicit NotificationsDock(QWidget* parent = nullptr);

  /// Adds a line. @param severity 0 most severe to 7
  void add(const QString& text, int severity);
  /// @return the number of lines shown.
  int count() const;
  /// @return line i as "SEVERITY: text".
  QString line(int i) const;

private:
  QListWidget* list_;
};

} // namespace kelvor
