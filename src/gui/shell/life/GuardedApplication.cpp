#include "gui/shell/life/GuardedApplication.h"

#include "core/infra/Guard.h"

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  bool result = false;
  Guard("notify", "GuardedApplication")([&] { result = QApplication::notify(receiver, event); });
  return result;
}
