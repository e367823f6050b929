#include "widgets/FilterDialog.h"

#include "widgets/EntityFilter.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace kelQt
{

namespace
{

const int DIALOG_WIDTH = 360;

} // namespace

FilterDialog::FilterDialog(QWidget* parent) : QDialog(parent)
{
  setWindowTitle("Entity Filters");
  setObjectName("FilterDialog");
  setModal(false);
  auto* list = new QWidget;
  editors_ = new QVBoxLayout(list);
  editors_->addStretch(1);
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setWidget(list);
  auto* column = new QVBoxLayout(this);
  column->addWidget(scroll);
  resize(DIALOG_WIDTH, sizeHint().height());
}

void FilterDialog::addFilter(const EntityFilter& filter)
{
  QWidget* editor = filter.widget(this);
  if (!editor)
    return;
  // Editors go above the stretch that keeps them at the top.
  editors_->insertWidget(editors_->count() - 1, editor);
  ++editorCount_;
}

void FilterDialog::closeEvent(QCloseEvent* event)
{
  emit closedGui();
  QDialog::closeEvent(event);
}

} // namespace kelQt
