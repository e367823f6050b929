#include "actions/PasteAction.h"

#include "host/Notify.h"
#include "plugin/ActionUtilities.h"

#include <QApplication>
#include <QClipboard>

namespace QtSep
{

PasteAction::PasteAction() : CommandAction(nullptr, "Paste Entity", "", WEIGHT, false) {}

bool PasteAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return exchange_.isValidPaste(entities, QApplication::clipboard()->mimeData());
}

int PasteAction::run_()
{
  exchange_.paste(selection(), QApplication::clipboard()->mimeData());
  if (!exchange_.pasteError().empty())
    PICommon::Notify(PICommon::NOTIFY_WARN) << "Paste Entity stopped: " << exchange_.pasteError();
  if (!exchange_.pastedIds().empty())
    fireChangeCallback(exchange_.pastedIds());
  return 0;
}

} // namespace QtSep
