#pragma once

#include <QApplication>

/// The application object. A failure that no handler caught ends its own event and is logged; the program goes on.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;
};
