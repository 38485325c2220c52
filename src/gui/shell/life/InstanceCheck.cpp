#include "gui/shell/life/InstanceCheck.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/file.h>
#endif

using namespace Qt::StringLiterals;

InstanceCheck::InstanceCheck() = default;
InstanceCheck::~InstanceCheck() = default;

QString InstanceCheck::lockPath() {
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (!runtime.isEmpty()) {
    return runtime + u"/quillane4.lock"_s;
  }
  // The temporary folder may be shared: the home folder's name tells the users apart.
  const QString user = QDir(QDir::homePath()).dirName();
  return Paths::temporaryFolder() + u"quillane4-"_s + user + u".lock"_s;
}

bool InstanceCheck::acquire() {
  alone_ = take();
  return alone_;
}

#ifdef Q_OS_UNIX

// The system's own lock goes with the process however that ends, and nothing has to reach the disk for it. The file
// stays: taking it away would open a gap in which two copies hold two files of the same name.
bool InstanceCheck::take() {
  file_ = std::make_unique<QFile>(lockPath());
  if (!file_->open(QIODevice::ReadWrite)) {
    return true;
  }
  const bool alone = ::flock(file_->handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
  ::flock(file_->handle(), LOCK_SH | LOCK_NB);
  return alone;
}

#else

// Such a lock has no shares: each copy holds one of a row of files.
bool InstanceCheck::take() {
  constexpr int kCopies = 16;
  bool alone = true;
  for (int copy = 1; copy <= kCopies; ++copy) {
    auto lock = std::make_unique<QLockFile>(lockPath() + (copy == 1 ? QString() : QString::number(copy)));
    // Age says nothing about a program that runs all day; a dead process's lock is found out by its number.
    lock->setStaleLockTime(0);
    const bool taken = !lock->tryLock() && lock->error() == QLockFile::LockFailedError;
    alone = alone && !taken;
    if (!taken && !lock_) {
      lock_ = std::move(lock);
    }
  }
  return alone;
}

#endif

bool Form_Initialize(InstanceCheck& instance) {
  if (instance.acquire()) {
    return true;
  }
  if (toolkit().MsgBox(u"Quillane4 is already running. Are you sure you want to run another copy?"_s,
                       Buttons::NoUnlessYes) != Answer::Yes) {
    return false;
  }
  toolkit().MsgBox(u"Warning: If you open the same project twice, the last one you close will be the one saved."_s);
  return true;
}
