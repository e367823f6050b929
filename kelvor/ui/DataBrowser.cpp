#include "ui/DataBrowser.h"

#include "files/ScenarioVocabulary.h"
#include "store/ScenarioStore.h"

#include <QHeaderView>
#include <QTreeWidget>

#include <map>

namespace kelvor
{

namespace
{

enum Column
{
  NAME,
  TYPE,
  ORIGINAL_ID,
  POINTS,
  START,
  END,
  COLUMN_COUNT
};

QString timeText(double seconds) { return seconds < 0.0 ? QStringLiteral("Static") : QString::number(seconds, 'f', 3); }

} // namespace

DataBrowser::DataBrowser(ScenarioStore& store, QWidget* parent)
  : QDockWidget(tr("Data Browser"), parent), store_(store), tree_(new QTreeWidget(this))
{
  setObjectName("DataBrowser");
  tree_->setObjectName("DataBrowserTree");
  tree_->setColumnCount(COLUMN_COUNT);
  tree_->setHeaderLabels({tr("Name"), tr("Type"), tr("Original Id"), tr("Points"), tr("Start"), tr("End")});
  tree_->headerItem()->setToolTip(
      POINTS, tr("The entity's own points: a platform's positions; a beam's, gate's, laser's or LOB group's pointings; "
                 "a projector's fields of view; a custom rendering's states. Laser ranges, widths and offsets, LOB "
                 "styles and commands are not counted."));
  tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  setWidget(tree_);
  connect(tree_, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& position) {
    if (QTreeWidgetItem* item = tree_->itemAt(position); item && !item->isSelected())
    {
      tree_->clearSelection();
      item->setSelected(true);
    }
    emit contextMenuRequested(selectedIds(), tree_->viewport()->mapToGlobal(position));
  });
  connect(tree_, &QTreeWidget::itemSelectionChanged, this, [this]() { emit selectionChanged(selectedIds()); });
}

QTreeWidgetItem* DataBrowser::makeItem_(UniqueID_t id) const
{
  const Entity& e = *store_.entity(id);
  auto* item = new QTreeWidgetItem();
  item->setText(NAME, QString::fromStdString(e.useAlias && !e.alias.empty() ? e.alias : nameOfHeader(e.header)));
  item->setText(TYPE, QString::fromStdString(ScenarioVocabulary::kindName(e.kind)));
  item->setText(ORIGINAL_ID, QString::number(originalIdOfHeader(e.header)));
  item->setText(POINTS, QString::number(e.pointCount()));
  item->setText(START, timeText(e.earliestTime()));
  item->setText(END, timeText(e.latestTime()));
  item->setData(NAME, Qt::UserRole, QVariant::fromValue<qulonglong>(id));
  return item;
}

void DataBrowser::refresh()
{
  const std::vector<UniqueID_t> selected = selectedIds();
  tree_->clear();
  std::map<UniqueID_t, QTreeWidgetItem*> items;
  for (UniqueID_t id : store_.list(PI_ALL_TYPES))
  {
    QTreeWidgetItem* item = makeItem_(id);
    const UniqueID_t host = store_.entity(id)->host;
    if (host && items.count(host))
      items[host]->addChild(item);
    else
      tree_->addTopLevelItem(item);
    items[id] = item;
  }
  tree_->expandAll();
  select(selected);
}

std::vector<UniqueID_t> DataBrowser::selectedIds() const
{
  std::vector<UniqueID_t> ids;
  for (QTreeWidgetItem* item : tree_->selectedItems())
    ids.push_back(item->data(NAME, Qt::UserRole).toULongLong());
  return ids;
}

void DataBrowser::select(const std::vector<UniqueID_t>& ids)
{
  QTreeWidgetItemIterator it(tree_);
  for (; *it; ++it)
  {
    const UniqueID_t id = (*it)->data(NAME, Qt::UserRole).toULongLong();
    (*it)->setSelected(std::find(ids.begin(), ids.end(), id) != ids.end());
  }
}

} // namespace kelvor
