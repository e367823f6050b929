#include "widgets/FileSelectorWidget.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace kelQt
{

FileSelectorWidget::FileSelectorWidget(QWidget* parent)
  : QWidget(parent), edit_(new QLineEdit(this)), button_(new QToolButton(this))
{
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(edit_);
  layout->addWidget(button_);
  edit_->setObjectName("filenameEdit");
  button_->setObjectName("browseButton");
  button_->setText("...");
  connect(button_, &QToolButton::clicked, this, &FileSelectorWidget::browse_);
  // A typed name counts once the user is done with it.
  connect(edit_, &QLineEdit::editingFinished, this, [this]() { setFilename(edit_->text()); });
  connect(edit_, &QLineEdit::textChanged, this, &FileSelectorWidget::textChanged);
}

QString FileSelectorWidget::filename() const { return edit_->text(); }

void FileSelectorWidget::setFilename(const QString& name)
{
  if (edit_->text() != name)
    edit_->setText(name);
  if (name == last_)
    return;
  last_ = name;
  emit filenameChanged(name);
}

void FileSelectorWidget::browse_()
{
  const QString chosen = forSaving_ ? QFileDialog::getSaveFileName(this, title_, filename(), filter_)
                                    : QFileDialog::getOpenFileName(this, title_, filename(), filter_);
  if (!chosen.isEmpty())
    setFilename(chosen);
}

} // namespace kelQt
