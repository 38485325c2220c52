#include "core/infra/Clock.h"
#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kOwnersAlone = 0600;
constexpr mode_t kPermissionBits = 07777;
constexpr off_t kLargestRead = off_t{1} << 30;

/// The path as the system takes it; a name that would be cut at a NUL is no name.
QByteArray encoded(const QString& path) {
  if (path.isEmpty() || path.contains(QChar(u'\0'))) {
    throw RuntimeError(RuntimeError::BadFileName);
  }
  return QFile::encodeName(path);
}

/// A file that is to be made and isn't found lacks its folder.
[[noreturn]] void failWriting(int code, const QString& path) {
  throw RuntimeError::fromErrno(code == ENOENT ? ENOTDIR : code, path);
}

void writeAll(int fd, QByteArrayView bytes, const QString& path) {
  while (!bytes.isEmpty()) {
    const ssize_t written = ::write(fd, bytes.data(), static_cast<size_t>(bytes.size()));
    if (written == 0 || (written < 0 && errno != EINTR)) {
      throw RuntimeError::fromErrno(written == 0 ? EIO : errno, path);
    }
    bytes = bytes.sliced(std::max<ssize_t>(written, 0));
  }
}

ssize_t readSome(int fd, char* to, qsizetype most, const QString& path) {
  for (;;) {
    const ssize_t got = ::read(fd, to, static_cast<size_t>(most));
    if (got >= 0) {
      return got;
    }
    if (errno != EINTR) {
      throw RuntimeError::fromErrno(errno, path);
    }
  }
}

/// Owns a descriptor.
struct Descriptor {
  explicit Descriptor(int descriptor) : fd(descriptor) {}
  ~Descriptor() {
    if (fd >= 0) {
      ::close(fd);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  void close(const QString& path) {
    if (fd >= 0 && ::close(std::exchange(fd, -1)) != 0 && errno != EINTR) {
      throw RuntimeError::fromErrno(errno, path);
    }
  }

  int fd;
};

/// 0, or the errno of the failure.
int flushed(int fd) {
  for (;;) {
    if (::fsync(fd) == 0) {
      return 0;
    }
    if (errno != EINTR) {
      return errno;
    }
  }
}

/// Some file systems know no flush of their own; that is no failure of the write.
void flushToDisk(int fd, const QString& path) {
  const int code = flushed(fd);
  if (code != 0 && code != EINVAL && code != ENOTSUP && code != EROFS) {
    throw RuntimeError::fromErrno(code, path);
  }
}

QByteArray folderOf(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash < 0 ? QByteArray("./") : path.first(slash + 1);
}

/// The new name is safe only when its folder is on disk too; a folder that can't be flushed is left.
void flushFolder(const QByteArray& folder) {
  const Descriptor opened(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.fd >= 0) {
    flushed(opened.fd);
  }
}

/// The file may be there and writable all the same: it is its folder that refuses.
[[noreturn]] void failMaking(int code, const QString& path) {
  const bool refused = code == EACCES || code == EPERM || code == EROFS;
  if (!refused) {
    failWriting(code, path);
  }
  const RuntimeError error = RuntimeError::fromErrno(code, path);
  throw RuntimeError(error.number(),
                     toldText(shownText(u"%1, can't make a new file in %2"_s),
                              {error.description(), QDir::toNativeSeparators(QFileInfo(path).absolutePath())}));
}

/// What a program that was cut off has left in the folder. Once for each folder is enough, and what is young may be
/// at work on another machine.
void removeStale(const QByteArray& folder) {
  constexpr int kDays = 1;
  static std::set<QByteArray> done;
  if (!done.insert(folder).second) {
    return;
  }
  const QDateTime limit = Clock::now().addDays(-kDays);
  const QDir files(QFile::decodeName(folder));
  for (const QFileInfo& file : files.entryInfoList({u".quillane-*"_s}, QDir::Files | QDir::Hidden)) {
    if (ReplacementFile::isTemporary(file.fileName()) && file.lastModified() < limit) {
      QFile::remove(file.filePath());
    }
  }
}

qint64 modifiedOf(const struct stat& about) {
  constexpr qint64 kNanoseconds = 1000000000;
  return about.st_mtim.tv_sec * kNanoseconds + about.st_mtim.tv_nsec;
}

QString withLinksFollowed(const QString& path) {
  const QFileInfo info(path);
  if (!info.isSymLink()) {
    return path;
  }
  const QString target = info.canonicalFilePath();
  return target.isEmpty() ? info.symLinkTarget() : target;
}

}  // namespace

struct NativeFile::Handle : Descriptor {
  Handle(int descriptor, QString file) : Descriptor(descriptor), path(std::move(file)) {}
  QString path;
};

NativeFile::NativeFile(const QString& path, Mode mode) {
  const int flags = mode == Mode::Read ? O_RDONLY : O_WRONLY | O_CREAT | (mode == Mode::Append ? O_APPEND : O_TRUNC);
  handle_ = std::make_unique<Handle>(::open(encoded(path).constData(), flags | O_CLOEXEC, kNewFileMode), path);
  if (handle_->fd >= 0) {
    return;
  }
  if (mode == Mode::Read) {
    throw RuntimeError::fromErrno(errno, path);
  }
  failWriting(errno, path);
}

NativeFile::~NativeFile() = default;
NativeFile::NativeFile(NativeFile&& other) noexcept = default;
NativeFile& NativeFile::operator=(NativeFile&& other) noexcept = default;

QByteArray NativeFile::read(qsizetype most) {
  QByteArray bytes(most, Qt::Uninitialized);
  bytes.truncate(readSome(handle_->fd, bytes.data(), most, handle_->path));
  return bytes;
}

void NativeFile::write(QByteArrayView bytes) {
  writeAll(handle_->fd, bytes, handle_->path);
}

void NativeFile::flushToDisk() {
  ::flushToDisk(handle_->fd, handle_->path);
  flushFolder(folderOf(encoded(handle_->path)));
}

void NativeFile::close() {
  handle_->close(handle_->path);
}

struct ReplacementFile::Handle : Descriptor {
  explicit Handle(QString file) : Descriptor(-1), path(std::move(file)), target(encoded(path)) {}
  ~Handle() { discard(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  void openBeside(mode_t mode);
  void write(QByteArrayView bytes);
  FileStamp checkContent() const;
  void takePermissions(const struct stat& old) const;
  void discard() {
    if (!temporary.isEmpty()) {
      ::unlink(temporary.constData());
      temporary.clear();
    }
  }

  QString path;
  QByteArray target;
  /// Empty when a device is written to directly.
  QByteArray temporary;
  /// What was written, and its last bytes.
  qint64 length = 0;
  QByteArray end;
  ContentHash hash;
};

/// The name doesn't grow with the target's, so that a name of the greatest length can be replaced too.
void ReplacementFile::Handle::openBeside(mode_t mode) {
  static int count = 0;
  removeStale(folderOf(target));
  const QByteArray start = folderOf(target) + ".quillane-" + QByteArray::number(::getpid()) + '-';
  do {
    temporary = start + QByteArray::number(++count) + ".tmp";
    fd = ::open(temporary.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  } while (fd < 0 && errno == EEXIST);
  if (fd < 0) {
    const int code = errno;
    temporary.clear();
    failMaking(code, path);
  }
}

void ReplacementFile::Handle::write(QByteArrayView bytes) {
  constexpr qsizetype kEnd = 64;
  writeAll(fd, bytes, path);
  length += bytes.size();
  hash.add(bytes);
  end.append(bytes.last(std::min(bytes.size(), kEnd)));
  end = end.last(std::min(end.size(), kEnd));
}

/// A disk or a network that swallows bytes without a word must not cost the old file too.
FileStamp ReplacementFile::Handle::checkContent() const {
  struct stat now {};
  QByteArray there(end.size(), '\0');
  const auto from = static_cast<off_t>(length - end.size());
  const bool whole = ::fstat(fd, &now) == 0 && now.st_size == length &&
                     ::pread(fd, there.data(), static_cast<size_t>(there.size()), from) == there.size() && there == end;
  if (!whole) {
    throw RuntimeError::fromErrno(EIO, path);
  }
  return {length, modifiedOf(now), hash.value()};
}

/// Who may read the text stays as it was; where the owner can't be kept, the group's and others' rights stand.
void ReplacementFile::Handle::takePermissions(const struct stat& old) const {
  if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
    [[maybe_unused]] const int group = ::fchown(fd, static_cast<uid_t>(-1), old.st_gid);
  }
  ::fchmod(fd, old.st_mode & kPermissionBits);
}

ReplacementFile::ReplacementFile(const QString& path) : handle_(std::make_unique<Handle>(withLinksFollowed(path))) {
  struct stat old {};
  const bool exists = ::stat(handle_->target.constData(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) {
    throw RuntimeError::fromErrno(EISDIR, path);
  }
  if (exists && ::faccessat(AT_FDCWD, handle_->target.constData(), W_OK, AT_EACCESS) != 0) {
    throw RuntimeError::fromErrno(errno, path);
  }
  if (exists && !S_ISREG(old.st_mode)) {
    handle_->fd = ::open(handle_->target.constData(), O_WRONLY | O_CLOEXEC);
    if (handle_->fd < 0) {
      throw RuntimeError::fromErrno(errno, path);
    }
    return;
  }
  // Nobody gets in before the rights are those of the old file.
  handle_->openBeside(exists ? kOwnersAlone : kNewFileMode);
  if (exists) {
    handle_->takePermissions(old);
  }
}

ReplacementFile::~ReplacementFile() = default;

void ReplacementFile::write(QByteArrayView bytes) {
  handle_->write(bytes);
}

quint64 ReplacementFile::hash() const {
  return handle_->hash.value();
}

FileStamp ReplacementFile::commit(Durability durability) {
  if (durability != Durability::Cached) {
    flushToDisk(handle_->fd, handle_->path);
  }
  const bool isBeside = !handle_->temporary.isEmpty();
  const FileStamp stamp = isBeside ? handle_->checkContent() : FileStamp();
  handle_->close(handle_->path);
  if (!isBeside) {
    return stamp;
  }
  if (::rename(handle_->temporary.constData(), handle_->target.constData()) != 0) {
    failWriting(errno, handle_->path);
  }
  handle_->temporary.clear();
  if (durability == Durability::OnDisk) {
    flushFolder(folderOf(handle_->target));
  }
  return stamp;
}

void flushFolderToDisk(const QString& folder) {
  flushFolder(encoded(folder));
}

QStringList namesWith(const QString& folder, QByteArrayView part) {
  const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(encoded(folder).constData()), &::closedir);
  QStringList names;
  for (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr; entry != nullptr;
       entry = ::readdir(listing.get())) {
    if (QByteArrayView(entry->d_name).contains(part)) {
      names.append(QFile::decodeName(entry->d_name));
    }
  }
  return names;
}

FileStamp FileStamp::lookAt(const QString& path) {
  struct stat about {};
  if (path.isEmpty() || ::stat(encoded(path).constData(), &about) != 0 || !S_ISREG(about.st_mode)) {
    return {};
  }
  return {about.st_size, modifiedOf(about), 0};
}

std::optional<QByteArray> readWholeFile(const QString& path, Links links, FileStamp* stamp) {
  if (path.isEmpty()) {
    return {};
  }
  // A pipe that nobody writes to would keep us waiting.
  const int linkFlag = links == Links::Refused ? O_NOFOLLOW : 0;
  const Descriptor file(::open(encoded(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | linkFlag));
  if (file.fd < 0) {
    const bool isRefusedLink = errno == ELOOP && links == Links::Refused;
    if (errno == ENOENT || errno == ENOTDIR || isRefusedLink) {
      return {};
    }
    throw RuntimeError::fromErrno(errno, path);
  }
  struct stat about {};
  if (::fstat(file.fd, &about) != 0) {
    throw RuntimeError::fromErrno(errno, path);
  }
  if (!S_ISREG(about.st_mode)) {
    return {};
  }
  if (about.st_size > kLargestRead) {
    throw RuntimeError(RuntimeError::Overflow, toldText(shownText(u"%1 is larger than any file of ours"_s), {path}));
  }
  // One byte more than the size tells the end in the same call; a file that grows meanwhile is read on.
  constexpr qsizetype kStep = 65536;
  QByteArray bytes(static_cast<qsizetype>(about.st_size) + 1, Qt::Uninitialized);
  qsizetype filled = 0;
  for (;;) {
    const ssize_t got = readSome(file.fd, bytes.data() + filled, bytes.size() - filled, path);
    filled += got;
    if (got == 0 || (filled < bytes.size() && filled == about.st_size)) {
      break;
    }
    if (filled == bytes.size()) {
      bytes.resize(bytes.size() + kStep);
    }
  }
  bytes.truncate(filled);
  if (stamp != nullptr) {
    *stamp = {filled, modifiedOf(about), 0};
  }
  return bytes;
}
