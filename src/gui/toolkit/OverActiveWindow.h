#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>

#include <utility>

/// A dialog over the window that is active. Should that window go while the dialog is up, the dialog goes with it.
/// The arguments are those of the dialog's constructor in front of the parent.
template <class Dialog>
class OverActiveWindow {
 public:
  template <class... Arguments>
  explicit OverActiveWindow(Arguments&&... arguments)
      : dialog_(new Dialog(std::forward<Arguments>(arguments)..., QApplication::activeWindow())) {}
  ~OverActiveWindow() { delete dialog_.data(); }
  OverActiveWindow(const OverActiveWindow&) = delete;
  OverActiveWindow& operator=(const OverActiveWindow&) = delete;

  Dialog* operator->() const { return dialog_.data(); }
  /// Waits for it. False when it was cancelled or went with its window.
  bool accepted() const { return dialog_->exec() == QDialog::Accepted && dialog_; }
  bool isThere() const { return !dialog_.isNull(); }

 private:
  QPointer<Dialog> dialog_;
};
