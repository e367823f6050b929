#include "widgets/BoundStringSetting.h"

#include "widgets/FileSelectorWidget.h"

#include <QLineEdit>

namespace kelQt
{

BoundStringSetting::BoundStringSetting(QObject* parent, Settings& settings, const QString& variableName)
  : BoundSettingT<QString>(parent, settings, variableName)
{
}

BoundStringSetting::BoundStringSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData)
  : BoundSettingT<QString>(parent, settings, variableName, metaData)
{
}

void BoundStringSetting::setValue(const QString& value)
{
  if (setValue_(value))
    emit valueChanged(value_);
}

void BoundStringSetting::updateValue_(const QVariant& value)
{
  if (cacheValue_(value))
    emit valueChanged(value_);
}

void BoundStringSetting::bindTo(QLineEdit* lineEdit, bool populateToolTip)
{
  if (!lineEdit)
    return;
  lineEdit->setText(value_);
  connect(lineEdit, &QLineEdit::textEdited, this, &BoundStringSetting::setValue);
  // Only a text that differs is put back, so the cursor stays where the user types.
  connect(this, &BoundStringSetting::valueChanged, lineEdit, [lineEdit](const QString& text) {
    if (lineEdit->text() != text)
      lineEdit->setText(text);
  });
  if (populateToolTip)
    setToolTip_(lineEdit);
}

void BoundStringSetting::bindTo(FileSelectorWidget* selector, bool populateToolTip)
{
  if (!selector)
    return;
  selector->setFilename(value_);
  connect(selector, &FileSelectorWidget::filenameChanged, this, &BoundStringSetting::setValue);
  connect(this, &BoundStringSetting::valueChanged, selector, &FileSelectorWidget::setFilename);
  if (populateToolTip)
    setToolTip_(selector);
}

} // namespace kelQt
