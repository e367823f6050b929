#include "widgets/SearchLineEdit.h"

namespace kelQt
{

SearchLineEdit::SearchLineEdit(QWidget* parent) : QLineEdit(parent)
{
  setClearButtonEnabled(true);
  setPlaceholderText("Search");
}

} // namespace kelQt
