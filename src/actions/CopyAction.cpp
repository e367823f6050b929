#include "actions/CopyAction.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace QtSep
{

CopyAction::CopyAction() : CommandAction(nullptr, "Copy Entity", "", WEIGHT, false) {}

bool CopyAction::accepts_(const std::vector<EntityInfo>& entities) const { return exchange_.isValidCopy(entities); }

int CopyAction::run_()
{
  QMimeData* mime = exchange_.copy(selection());
  QClipboard* clipboard = QApplication::clipboard();
  // The clipboard takes the payload; with nothing to copy it is emptied rather than left stale.
  if (mime)
    clipboard->setMimeData(mime);
  else
    clipboard->clear();
  return 0;
}

} // namespace QtSep
