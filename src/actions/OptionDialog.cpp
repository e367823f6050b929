#include "actions/OptionDialog.h"

#include "host/PIDataEntities.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace QtSep
{

OptionDialog::OptionDialog(const QString& title, QWidget* parent)
  : QDialog(parent),
    nameLineEdit_(new QLineEdit),
    optionLabel_(new QLabel("Option:")),
    optionComboBox_(new QComboBox),
    buttonBox_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
  setWindowTitle(title.isEmpty() ? QString("Option Dialog") : title);
  nameLineEdit_->setObjectName("nameLineEdit");
  optionLabel_->setObjectName("optionLabel");
  optionComboBox_->setObjectName("optionComboBox");
  buttonBox_->setObjectName("buttonBox");
  auto* form = new QFormLayout(this);
  form->addRow("Name:", nameLineEdit_);
  form->addRow(optionLabel_, optionComboBox_);
  form->addRow(buttonBox_);
  optionLabel_->hide();
  optionComboBox_->hide();
  connect(buttonBox_, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttonBox_, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(nameLineEdit_, &QLineEdit::textChanged, this, &OptionDialog::updateEnables_);
  connect(optionComboBox_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &OptionDialog::updateEnables_);
  updateEnables_();
}

void OptionDialog::setName(const QString& base)
{
  std::vector<UniqueID_t> entities;
  PIData::getObjectList(&entities);
  nameLineEdit_->setText(QString("%1_%2").arg(base).arg(entities.size()));
  nameLineEdit_->selectAll();
}

void OptionDialog::setOptions(const QString& label, const std::map<QString, int>& options)
{
  optionLabel_->setText(label);
  optionComboBox_->clear();
  for (const auto& [text, number] : options)
    optionComboBox_->addItem(text, number);
  optionLabel_->show();
  optionComboBox_->show();
  updateEnables_();
}

QString OptionDialog::getName() const
{
  return nameLineEdit_->text();
}

int OptionDialog::getOptionNumber() const
{
  return optionComboBox_->currentData().toInt();
}

QString OptionDialog::getOptionString() const
{
  return optionComboBox_->currentText();
}

void OptionDialog::updateEnables_()
{
  const bool named = !nameLineEdit_->text().isEmpty();
  const bool optionChosen = optionComboBox_->isHidden() || optionComboBox_->currentIndex() >= 0;
  buttonBox_->button(QDialogButtonBox::Ok)->setEnabled(named && optionChosen);
}

} // namespace QtSep
