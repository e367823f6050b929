#include "datasources/FilterWidget.h"

#include <QComboBox>
#include <QHBoxLayout>

namespace QtSep
{

namespace
{

const char* const ALL_TEXT = "All";

} // namespace

FilterWidget::FilterWidget(QWidget* parent) : QWidget(parent), combo_(new QComboBox)
{
  combo_->setObjectName("filterComboBox");
  combo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(combo_);
  connect(combo_, QOverload<int>::of(&QComboBox::activated), this, &FilterWidget::setKey_);
  updateFilterComboBox_();
}

void FilterWidget::addKey(const std::string& key, bool update)
{
  const QString text = QString::fromStdString(key);
  auto found = keys_.find(text);
  if (found != keys_.end())
  {
    ++found.value();
    return;
  }
  keys_.insert(text, 1);
  if (update)
    updateFilterComboBox_();
}

void FilterWidget::removeKey(const std::string& key)
{
  auto found = keys_.find(QString::fromStdString(key));
  if (found == keys_.end())
    return;
  if (--found.value() > 0)
    return;
  keys_.erase(found);
  updateFilterComboBox_();
}

void FilterWidget::clear()
{
  keys_.clear();
  currentKey_.clear();
  updateFilterComboBox_();
}

void FilterWidget::setCurrentKey(const QString& key)
{
  const int found = key.isEmpty() ? -1 : combo_->findData(key);
  if (found < 0)
  {
    combo_->setCurrentIndex(0);
    fireSelectedKeyChanged_(QString());
    return;
  }
  combo_->setCurrentIndex(found);
  fireSelectedKeyChanged_(key);
}

void FilterWidget::updateFilterComboBox_()
{
  const int index = combo_->currentIndex();
  const QString text = combo_->currentText();
  combo_->clear();
  combo_->insertItem(0, tr(ALL_TEXT), QVariant());
  if (keys_.isEmpty())
  {
    combo_->setCurrentIndex(0);
    fireSelectedKeyChanged_(QString());
    return;
  }
  combo_->insertSeparator(1);
  for (auto it = keys_.begin(); it != keys_.end(); ++it)
    combo_->addItem(it.key(), it.key());
  const int kept = index == 0 || text.isEmpty() ? -1 : combo_->findData(text);
  if (kept < 0)
  {
    combo_->setCurrentIndex(0);
    fireSelectedKeyChanged_(QString());
    return;
  }
  combo_->setCurrentIndex(kept);
  fireSelectedKeyChanged_(text);
}

void FilterWidget::setKey_(int index)
{
  fireSelectedKeyChanged_(index <= 0 ? QString() : combo_->itemText(index));
}

void FilterWidget::fireSelectedKeyChanged_(const QString& key)
{
  currentKey_ = key;
  emit currentKeyChanged(key);
}

} // namespace QtSep
