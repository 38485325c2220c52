#include "core/infra/cSHAREDSubs.h"

#include "Version.h"
#include "core/infra/Clock.h"
#include "core/infra/Toolkit.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMillisecondsBetweenYields = 100;

void setPointer(Pointer pointer) {
  toolkit().setPointer(pointer);
  toolkit().DoEvents();
}

}  // namespace

void cSHAREDSubs::BusyMouse() {
  setPointer(Pointer::Busy);
}

void cSHAREDSubs::BusyBGmouse() {
  setPointer(Pointer::Background);
}

void cSHAREDSubs::NormalMouse() {
  setPointer(Pointer::Normal);
}

void cSHAREDSubs::RegularDoEvents() {
  const qint64 now = Clock::ticks();
  if (YieldPause::isActive() || now - lastYield_ < kMillisecondsBetweenYields) {
    return;
  }
  lastYield_ = now;
  toolkit().DoEvents();
}

QString cSHAREDSubs::AppVersion() const {
  return QString::number(QUILLANE_VERSION_MAJOR) + u'.' + QString::number(QUILLANE_VERSION_MINOR) + u'.' +
         QString::number(QUILLANE_VERSION_REVISION);
}

QString cSHAREDSubs::GetWinPlatform() const {
  return QSysInfo::prettyProductName();
}

cSHAREDSubs& Subs() {
  static cSHAREDSubs subs;
  return subs;
}
