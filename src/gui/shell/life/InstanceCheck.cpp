#include "gui/shell/life/InstanceCheck.h"

#include "core/infra/Paths.h"

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

#ifdef Q_OS_UNIX

// The system's own lock goes with the process however that ends, and nothing has to reach the disk for it. The file
// stays: taking it away would open a gap in which two instances hold two files of the same name.
bool InstanceCheck::acquire() {
  file_ = std::make_unique<QFile>(lockPath());
  if (!file_->open(QIODevice::ReadWrite)) {
    return true;
  }
  return ::flock(file_->handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

#else

bool InstanceCheck::acquire() {
  lock_ = std::make_unique<QLockFile>(lockPath());
  // Age says nothing about a program that runs all day; a dead process's lock is found out by its number.
  lock_->setStaleLockTime(0);
  return lock_->tryLock() || lock_->error() != QLockFile::LockFailedError;
}

#endif
