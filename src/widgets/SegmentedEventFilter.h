#pragma once

#include <QObject>

namespace kelQt
{

/**
 * Watches the key presses of a segmented spin box and tells it about them before they act:
 * every key holds off applying what has been typed, a printable character may have to overwrite
 * a full field, and Return or Enter applies at once. It never consumes an event.
 */
class SegmentedEventFilter : public QObject
{
  Q_OBJECT
public:
  explicit SegmentedEventFilter(QObject* parent = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;

signals:
  /// Any key was pressed.
  void keyPressed();
  /// A printable character without Control or Alt is about to be typed. @param text what the key types
  void characterTyped(const QString& text);
  /// Return or Enter was pressed.
  void applyRequested();
};

} // namespace kelQt
