#include "utils/ConfirmDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace UTILS
{

ConfirmDialog::ConfirmDialog(const QString& text, const QString& checkText, QWidget* parent)
  : QDialog(parent), check_(new QCheckBox(checkText, this))
{
  setObjectName("ConfirmDialog");
  auto* layout = new QVBoxLayout(this);
  auto* label = new QLabel(text, this);
  label->setWordWrap(true);
  layout->addWidget(label);
  layout->addWidget(check_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

bool ConfirmDialog::isChecked() const { return check_->isChecked(); }

} // namespace UTILS
