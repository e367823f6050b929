#include "widgets/ColorWidget.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPixmap>
#include <QToolButton>

namespace kelQt
{

ColorWidget::ColorWidget(QWidget* parent)
  : QWidget(parent), button_(new QToolButton(this)), dialogTitle_(tr("Select Color"))
{
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(button_);
  button_->setObjectName("colorButton");
  connect(button_, &QToolButton::clicked, this, &ColorWidget::chooseColor_);
  updateSwatch_();
}

void ColorWidget::setText(const QString& text)
{
  button_->setText(text);
  button_->setToolButtonStyle(text.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
}

QString ColorWidget::text() const
{
  return button_->text();
}

void ColorWidget::setColor(const QColor& color)
{
  if (color == color_)
    return;
  color_ = color;
  updateSwatch_();
  emit colorChanged(color_);
}

void ColorWidget::chooseColor_()
{
  const QColor chosen = QColorDialog::getColor(
      color_, this, dialogTitle_, showAlpha_ ? QColorDialog::ShowAlphaChannel : QColorDialog::ColorDialogOptions());
  if (chosen.isValid())
    setColor(chosen);
}

void ColorWidget::updateSwatch_()
{
  QPixmap swatch(24, 16);
  swatch.fill(color_);
  button_->setIcon(QIcon(swatch));
  button_->setToolTip(color_.name(QColor::HexArgb));
}

} // namespace kelQt
