#include "core/infra/ChangePoller.h"

#include "core/infra/Guard.h"
#include "core/infra/ScanPause.h"

#include <QScopedValueRollback>

#include <utility>

ChangePoller::ChangePoller(const char* routine, const char* module, ChangeArea area, QObject* parent)
    : QObject(parent), routine_(routine), module_(module), area_(area) {
  timer_.setObjectName(QString::fromLatin1(routine).section(u'_', 0, 0));
  timer_.setParent(this);
  connect(&timer_, &QTimer::timeout, this, [this] { Guard(routine_, module_)([this] { poll(); }); });
}

void ChangePoller::follow(clsHashTable& table, Handler handler) {
  followed_.push_back({&table, std::move(handler)});
}

void ChangePoller::poll() {
  if (polling_ || ScanPause::isActive()) {
    return;
  }
  const QScopedValueRollback polling(polling_, true);
  bool anyChange = false;
  for (const Followed& followed : followed_) {
    anyChange = pollTable(followed) || anyChange;
  }
  if (afterPoll_) {
    Guard(routine_, module_)([&] { afterPoll_(anyChange); });
  }
}

// The flag goes first, so that what the handler itself changes is seen next time;
// and a pause that it begins leaves the others their flags.
bool ChangePoller::pollTable(const Followed& followed) const {
  const Guard guard(routine_, module_);
  bool anyChange = false;
  for (const qint32 id : followed.table->changedIDs(area_)) {
    if (ScanPause::isActive()) {
      return anyChange;
    }
    followed.table->ResetChanged(id, area_);
    guard([&] { followed.handler(id); });
    anyChange = true;
  }
  return anyChange;
}
