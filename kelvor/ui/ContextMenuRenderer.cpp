#include "ui/ContextMenuRenderer.h"

#include <QAction>
#include <QMenu>
#include <QPixmap>

namespace kelvor
{

void ContextMenuRenderer::render(const ContextMenu& menu, QMenu& target, const IconSource& icons,
                                 const CommandRunner& run)
{
  for (const ContextMenu::Entry* entry : menu.sorted())
  {
    switch (entry->kind)
    {
    case ContextMenu::Entry::SEPARATOR:
      target.addSeparator();
      break;
    case ContextMenu::Entry::SUB_MENU:
      if (!entry->subMenu->empty())
        render(*entry->subMenu, *target.addMenu(QString::fromStdString(entry->text)), icons, run);
      break;
    case ContextMenu::Entry::ITEM: {
      QAction* action = target.addAction(QString::fromStdString(entry->text));
      action->setEnabled(entry->enabled);
      if (entry->icon && icons)
      {
        const std::string bytes = icons(entry->icon);
        QPixmap pixmap;
        if (pixmap.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<uint>(bytes.size())))
          action->setIcon(QIcon(pixmap));
      }
      QObject::connect(action, &QAction::triggered, [entry, run]() {
        const auto command = [entry] { ContextMenu::activate(*entry); };
        if (run)
          run(entry->text, command);
        else
          command();
      });
      break;
    }
    }
  }
}

} // namespace kelvor
