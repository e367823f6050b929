#include "actions/CopyAction.h"

#include "host/Notify.h"

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
  if (!exchange_.copyError().empty())
    PICommon::Notify(PICommon::NOTIFY_WARN) << "Copy Entity: " << exchange_.copyError();
  return 0;
}

} // namespace QtSep
