#pragma once

#include "exchange/EntityMimeData.h"
#include "plugin/CommandAction.h"

namespace QtSep
{

/// "Copy Entity": puts the selected entities, whole, on the clipboard.
class CopyAction : public CommandAction
{
  Q_OBJECT
public:
  CopyAction();

  static const int WEIGHT = 250;

protected:
  /// Platforms and custom renderings of their own, or one child.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;

private:
  EntityMimeData exchange_;
};

} // namespace QtSep
