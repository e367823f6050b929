#pragma once

#include <QLineEdit>

namespace kelQt
{

/// A line edit for search text, with a clear button and a hint while empty.
class SearchLineEdit : public QLineEdit
{
  Q_OBJECT
public:
  explicit SearchLineEdit(QWidget* parent = nullptr);
};

} // namespace kelQt
