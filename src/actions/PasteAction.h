#pragma once

#include "exchange/EntityMimeData.h"
#include "plugin/CommandAction.h"

namespace QtSep
{

/**
 * "Paste Entity": makes the entities of the clipboard's payload, top-level ones on their own
 * and a child on the one entity clicked. A payload that stops short leaves what it made and
 * tells the notifications why.
 */
class PasteAction : public CommandAction
{
  Q_OBJECT
public:
  PasteAction();

  static const int WEIGHT = 255;

protected:
  /// When the clipboard holds a payload that can be pasted on the entities.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private:
  EntityMimeData exchange_;
};

} // namespace QtSep
