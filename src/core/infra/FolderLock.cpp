#include "core/infra/FolderLock.h"

#include "core/infra/Clock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStringList>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 4096;

QString thisHost() {
  return QSysInfo::machineHostName();
}

QString thisUser() {
  const QString named = qEnvironmentVariable("USER", qEnvironmentVariable("LOGNAME", qEnvironmentVariable("USERNAME")));
  return named.isEmpty() ? QDir(QDir::homePath()).dirName() : named;
}

QByteArray ownLines() {
  const QStringList lines{thisHost(), thisUser(), QString::number(QCoreApplication::applicationPid()),
                          Clock::now().toString(u"yyyy-MM-dd HH:mm"_s)};
  return lines.join(u'\n').toUtf8() + '\n';
}

/// Nothing from a file that says nothing: its process had no time to write.
std::optional<FolderLock::Holder> holderOf(const QByteArray& content) {
  const QStringList lines = QString::fromUtf8(content).split(u'\n');
  if (lines.first().isEmpty()) {
    return {};
  }
  return FolderLock::Holder{lines.value(0), lines.value(1), lines.value(2), lines.value(3),
                            lines.value(0) == thisHost()};
}

}  // namespace

#ifdef Q_OS_UNIX

/// The system's own lock on the file tells whether a process of this machine lives; it goes with the process.
struct FolderLock::Handle {
  explicit Handle(const QString& path) : name(QFile::encodeName(path)) {}
  ~Handle() {
    if (ours && isInPlace()) {
      ::unlink(name.constData());
    }
    close();
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  void close() {
    if (fd >= 0) {
      ::close(fd);
      fd = -1;
    }
  }

  /// False where no file can be made. Another user's can be read and locked all the same.
  bool open() {
    constexpr mode_t kEverybody = 0666;
    constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    fd = ::open(name.constData(), O_RDWR | O_CREAT | kFlags, kEverybody);
    if (fd >= 0) {
      // Whoever shares the folder may take over what a crash has left.
      [[maybe_unused]] const int refused = ::fchmod(fd, kEverybody);
    } else if (errno == EACCES || errno == EPERM) {
      fd = ::open(name.constData(), O_RDONLY | kFlags);
    }
    return fd >= 0;
  }

  /// Whoever had it may have removed the file between our opening and our locking it.
  bool isInPlace() const {
    struct stat here {};
    struct stat there {};
    return ::fstat(fd, &here) == 0 && ::stat(name.constData(), &there) == 0 && here.st_ino == there.st_ino &&
           here.st_dev == there.st_dev;
  }

  QByteArray content() const {
    QByteArray bytes(kMostBytes, '\0');
    const ssize_t got = ::pread(fd, bytes.data(), static_cast<size_t>(bytes.size()), 0);
    return bytes.first(std::max<ssize_t>(got, 0));
  }

  void writeOwn() {
    const QByteArray lines = ownLines();
    ours = ::ftruncate(fd, 0) == 0 && ::pwrite(fd, lines.constData(), static_cast<size_t>(lines.size()), 0) > 0;
  }

  QByteArray name;
  int fd = -1;
  bool ours = false;
};

FolderLock::FolderLock(const QString& folder, Claim claim)
    : handle_(std::make_unique<Handle>(QDir(folder).filePath(fileName()))) {
  Handle& file = *handle_;
  bool isAlive = false;
  do {
    file.close();
    if (!file.open()) {
      if (QFile::exists(QFile::decodeName(file.name))) {
        other_ = Holder();  // somebody's who lets nobody look
      }
      return;
    }
    isAlive = ::flock(file.fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  } while (!isAlive && !file.isInPlace());
  const std::optional<Holder> written = holderOf(file.content());
  if (isAlive) {
    other_ = written.value_or(Holder{thisHost(), {}, {}, {}, true});
    return;
  }
  if (claim == Claim::IfFree && written && written->host != thisHost()) {
    other_ = written;
    return;
  }
  file.writeOwn();
}

#else

/// Qt's lock file finds out by itself whether its process lives; whose it is and since when, the file's own data tell.
struct FolderLock::Handle {
  explicit Handle(const QString& path) : lock(path) { lock.setStaleLockTime(0); }
  QLockFile lock;
};

FolderLock::FolderLock(const QString& folder, Claim claim)
    : handle_(std::make_unique<Handle>(QDir(folder).filePath(fileName()))) {
  QLockFile& lock = handle_->lock;
  if (lock.tryLock() || lock.error() != QLockFile::LockFailedError) {
    return;
  }
  qint64 process = 0;
  Holder holder;
  QString program;
  lock.getLockInfo(&process, &holder.host, &program);
  if (claim == Claim::InAnyCase && holder.host != thisHost()) {
    lock.removeStaleLockFile();
    lock.tryLock();
    return;
  }
  const QFileInfo file(lock.fileName());
  holder.process = QString::number(process);
  holder.user = file.owner();
  holder.isHere = holder.host == thisHost();
  holder.since = file.lastModified().toString(u"yyyy-MM-dd HH:mm"_s);
  other_ = holder;
}

#endif

FolderLock::~FolderLock() = default;
