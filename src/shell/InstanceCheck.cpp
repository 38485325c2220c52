#include "shell/InstanceCheck.h"

#include "infra/Paths.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

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
  lock_ = std::make_unique<QLockFile>(lockPath());
  // Age says nothing about a program that runs all day; a dead process's lock is found out by its number.
  lock_->setStaleLockTime(0);
  return lock_->tryLock() || lock_->error() != QLockFile::LockFailedError;
}
