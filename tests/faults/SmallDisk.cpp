#include "faults/SmallDisk.h"

#include "support/SampleProject.h"

#include <QFile>
#include <QStorageInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Mounts of this process' own: as root at once, else as the root of a user space of its own.
bool enterOwnMounts() {
  if (::unshare(CLONE_NEWNS) != 0) {
    const QByteArray user = "0 " + QByteArray::number(::getuid()) + " 1";
    const QByteArray group = "0 " + QByteArray::number(::getgid()) + " 1";
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
      return false;
    }
    writeFile(u"/proc/self/setgroups"_s, "deny");
    writeFile(u"/proc/self/uid_map"_s, user);
    writeFile(u"/proc/self/gid_map"_s, group);
  }
  return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// What the system says to the first that fails; empty when all is well.
QString mountAt(const QString& place, qint64 bytes) {
  const QByteArray size = "size=" + QByteArray::number(bytes);
  const bool mounted =
      enterOwnMounts() && ::mount("quillane", QFile::encodeName(place).constData(), "tmpfs", 0, size.constData()) == 0;
  return mounted ? QString() : QString::fromLocal8Bit(std::strerror(errno));
}

}  // namespace

SmallDisk::SmallDisk(qint64 bytes) : refused_(mountAt(place_.path(), bytes)) {}

SmallDisk::~SmallDisk() {
  if (refused_.isEmpty()) {
    ::umount2(QFile::encodeName(place_.path()).constData(), MNT_DETACH);
  }
}

bool SmallDisk::fill(qint64 room) const {
  makeRoom();
  const qint64 taken = QStorageInfo(place_.path()).bytesAvailable() - room;
  const int file = ::open(QFile::encodeName(ballast()).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const bool done = taken > 0 && ::posix_fallocate(file, 0, taken) == 0;
  ::close(file);
  return done && QStorageInfo(place_.path()).bytesAvailable() == room;
}

void SmallDisk::makeRoom() const {
  QFile::remove(ballast());
}
