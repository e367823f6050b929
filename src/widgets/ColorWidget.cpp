#include "widgets/ColorWidget.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPixmap>
#include <QToolButton>

namespace kelQt
{

ColorWidget::ColorWidget(QWidget* parent) : QWidget(parent), button_(new QToolButton(this))
{
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(button_);
  button_->setObjectName("colorButton");
  connect(button_, &QToolButton::clicked, this, &ColorWidget::chooseColor_);
  updateSwatch_();
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
      color_, this, tr("Select Color"), showAlpha_ ? QColorDialog::ShowAlphaChannel : QColorDialog::ColorDialogOptions());
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
