#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

/**
 * Acts on the next popup menu or modal dialog of type W as soon as it shows, from inside the
 * modal loop that shows it. It polls every few milliseconds rather than guessing when the
 * widget will exist, so a slow build (the sanitizers make start-up many times slower) neither
 * hangs nor passes by chance.
 *
 * Made before the step that opens the widget, it lives to the end of the test's scope. If the
 * widget never shows, the test fails: when the time runs out (any open popup is closed and any
 * modal dialog rejected, so that no loop is left without a way out), or at the end of the scope.
 */
template <typename W>
class WhenShown
{
public:
  /// @param act what to do with the widget @param timeoutMs how long to wait for it, milliseconds
  explicit WhenShown(std::function<void(W&)> act, int timeoutMs = 60000)
    : act_(std::move(act)), timeoutMs_(timeoutMs), timer_(std::make_unique<QTimer>())
  {
    clock_.start();
    timer_->setInterval(5);
    QObject::connect(timer_.get(), &QTimer::timeout, [this] { poll_(); });
    timer_->start();
  }

  ~WhenShown()
  {
    timer_->stop();
    EXPECT_TRUE(acted_) << "no " << W::staticMetaObject.className() << " showed";
  }

  WhenShown(const WhenShown&) = delete;
  WhenShown& operator=(const WhenShown&) = delete;

  /// @return whether the widget showed and was acted on
  bool acted() const { return acted_; }

  /// @return the active popup or modal widget of type W, or null
  static W* find()
  {
    if (auto* popup = qobject_cast<W*>(QApplication::activePopupWidget()); popup && popup->isVisible())
      return popup;
    if (auto* modal = qobject_cast<W*>(QApplication::activeModalWidget()); modal && modal->isVisible())
      return modal;
    return nullptr;
  }

private:
  void poll_()
  {
    if (W* widget = find())
    {
      timer_->stop();
      acted_ = true;
      act_(*widget);
      return;
    }
    if (clock_.elapsed() < timeoutMs_)
      return;
    timer_->stop();
    ADD_FAILURE() << "no " << W::staticMetaObject.className() << " showed within " << timeoutMs_ << " ms";
    if (QWidget* popup = QApplication::activePopupWidget())
      popup->close();
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
      dialog->reject();
  }

  std::function<void(W&)> act_;
  int timeoutMs_;
  std::unique_ptr<QTimer> timer_;
  QElapsedTimer clock_;
  bool acted_ = false;
};

/**
 * Accepts or rejects the next modal dialog of type D once it shows, after letting the test
 * change it. Hold the result over the step that opens the dialog.
 */
template <typename D = QDialog>
std::unique_ptr<WhenShown<D>> answerNext(bool accept, std::function<void(D&)> change = {})
{
  return std::make_unique<WhenShown<D>>([accept, change](D& dialog) {
    if (change)
      change(dialog);
    accept ? dialog.accept() : dialog.reject();
  });
}

/// Accepts or rejects the next modal dialog once it shows.
inline std::unique_ptr<WhenShown<QDialog>> answerNextDialog(bool accept)
{
  return answerNext<QDialog>(accept);
}
