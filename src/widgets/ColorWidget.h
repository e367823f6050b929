#pragma once

#include <QColor>
#include <QWidget>

class QToolButton;

namespace kelQt
{

/// A swatch of a colour; clicking it opens a colour chooser.
class ColorWidget : public QWidget
{
  Q_OBJECT
public:
  explicit ColorWidget(QWidget* parent = nullptr);

  /// @return the colour shown.
  QColor color() const { return color_; }
  /// @return true when the chooser offers an alpha channel.
  bool showAlpha() const { return showAlpha_; }
  void setShowAlpha(bool show) { showAlpha_ = show; }
  /// @param text shown beside the swatch; empty for the swatch alone
  void setText(const QString& text);
  QString text() const;
  /// @param title the title of the colour chooser
  void setDialogTitle(const QString& title) { dialogTitle_ = title; }
  QString dialogTitle() const { return dialogTitle_; }

public slots:
  /// Shows color; emits colorChanged when it differs from the one shown.
  void setColor(const QColor& color);

signals:
  /// The colour shown changed, by the user or by setColor.
  void colorChanged(const QColor& color);

private:
  void chooseColor_();
  void updateSwatch_();

  QToolButton* button_;
  QColor color_ = Qt::white;
  bool showAlpha_ = true;
  QString dialogTitle_;
};

} // namespace kelQt
