#include "widgets/FilterDialog.h"

#include "widgets/EntityFilter.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

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
  list_ = new QWidget;
  editors_ = new QVBoxLayout(list_);
  editors_->addStretch(1);
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setWidget(list_);
  auto* column = new QVBoxLayout(this);
  column->addWidget(scroll);
  resize(DIALOG_WIDTH, sizeHint().height());
}

void FilterDialog::fitToEditors_()
{
  // The scroll area's own hint does not follow what it holds: measure the editors instead.
  const QMargins outer = layout()->contentsMargins();
  const int frame = 2 * static_cast<QScrollArea*>(layout()->itemAt(0)->widget())->frameWidth();
  const QSize wanted = list_->sizeHint() + QSize(outer.left() + outer.right() + frame, outer.top() + outer.bottom() + frame);
  const QScreen* shown = screen() ? screen() : QGuiApplication::primaryScreen();
  const int tallest = shown ? shown->availableGeometry().height() * 4 / 5 : wanted.height();
  resize(std::max(width(), wanted.width()), std::min(std::max(height(), wanted.height()), tallest));
}

void FilterDialog::addFilter(const EntityFilter& filter)
{
  QWidget* editor = filter.widget(this);
  if (!editor)
    return;
  // Editors go above the stretch that keeps them at the top.
  editors_->insertWidget(editors_->count() - 1, editor);
  ++editorCount_;
  fitToEditors_();
}

void FilterDialog::closeEvent(QCloseEvent* event)
{
  emit closedGui();
  QDialog::closeEvent(event);
}

} // namespace kelQt
