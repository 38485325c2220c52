#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <exception>
#include <functional>
#include <gtest/gtest.h>

/// Acts on the next modal window as soon as it is up, from within its own message loop. Keep the object until the
/// call that opens the window has returned; the test fails when no window came.
class WhenModal {
 public:
  using Act = std::function<void(QWidget&)>;

  explicit WhenModal(Act act) : act_(std::move(act)) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(5);
  }
  ~WhenModal() { EXPECT_TRUE(seen_) << "no modal window came up"; }
  WhenModal(const WhenModal&) = delete;
  WhenModal& operator=(const WhenModal&) = delete;

 private:
  void look() {
    const QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) {
      return;
    }
    timer_.stop();
    seen_ = true;
    try {
      act_(*modal);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
      leave(modal);
    }
  }

  /// A window that stays would hold up the whole program.
  static void leave(QWidget* modal) {
    if (modal != nullptr) {
      modal->close();
    }
  }

  Act act_;
  QTimer timer_;
  bool seen_ = false;
};
