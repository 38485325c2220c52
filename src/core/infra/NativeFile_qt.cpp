#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestRead = qint64{1} << 30;

/// A failed write doesn't say why: the place is looked at.
int numberOfFailedWrite(const QFileInfo& info) {
  constexpr qint64 kLittle = 65536;
  const QStorageInfo volume(info.absolutePath());
  if (volume.isValid() && volume.bytesAvailable() < kLittle) {
    return RuntimeError::DiskFull;
  }
  return volume.isReadOnly() || (info.exists() && !info.isWritable()) ? RuntimeError::PathAccess
                                                                      : RuntimeError::DeviceError;
}

int numberOf(const QFileDevice& file, bool writing) {
  switch (file.error()) {
    case QFileDevice::ResourceError:
      return RuntimeError::DiskFull;
    case QFileDevice::ReadError:
      return RuntimeError::DeviceError;
    case QFileDevice::WriteError:
      return numberOfFailedWrite(QFileInfo(file.fileName()));
    default:
      break;
  }
  const QFileInfo info(file.fileName());
  if (file.fileName().isEmpty()) {
    return RuntimeError::BadFileName;
  }
  if (!info.dir().exists()) {
    return RuntimeError::PathNotFound;
  }
  return writing || info.exists() ? RuntimeError::PathAccess : RuntimeError::FileNotFound;
}

[[noreturn]] void fail(const QFileDevice& file, bool writing) {
  const int number = numberOf(file, writing);
  throw RuntimeError(number, toldText(RuntimeError::descriptionOf(number) + u": %1"_s, {file.fileName()}));
}

void writeAll(QFileDevice& file, QByteArrayView bytes) {
  if (file.write(bytes.data(), bytes.size()) != bytes.size()) {
    fail(file, true);
  }
}

}  // namespace

struct NativeFile::Handle {
  QFile file;
  bool writing = false;
};

NativeFile::NativeFile(const QString& path, Mode mode) : handle_(std::make_unique<Handle>()) {
  handle_->file.setFileName(path);
  handle_->writing = mode != Mode::Read;
  const QIODevice::OpenMode flags = mode == Mode::Read     ? QIODevice::ReadOnly
                                    : mode == Mode::Append ? QIODevice::WriteOnly | QIODevice::Append
                                                           : QIODevice::WriteOnly | QIODevice::Truncate;
  if (!handle_->file.open(flags | QIODevice::Unbuffered)) {
    fail(handle_->file, handle_->writing);
  }
}

NativeFile::~NativeFile() = default;
NativeFile::NativeFile(NativeFile&& other) noexcept = default;
NativeFile& NativeFile::operator=(NativeFile&& other) noexcept = default;

QByteArray NativeFile::read(qsizetype most) {
  QByteArray bytes = handle_->file.read(most);
  if (bytes.isEmpty() && handle_->file.error() != QFileDevice::NoError) {
    fail(handle_->file, false);
  }
  return bytes;
}

void NativeFile::write(QByteArrayView bytes) {
  writeAll(handle_->file, bytes);
}

// As far as Qt can tell the system.
void NativeFile::flushToDisk() {
  handle_->file.flush();
}

void NativeFile::close() {
  handle_->file.close();
  if (handle_->file.error() != QFileDevice::NoError) {
    fail(handle_->file, handle_->writing);
  }
}

struct ReplacementFile::Handle {
  QSaveFile file;
  ContentHash hash;
};

ReplacementFile::ReplacementFile(const QString& path) : handle_(std::make_unique<Handle>()) {
  handle_->file.setFileName(path);
  if (!handle_->file.open(QIODevice::WriteOnly)) {
    fail(handle_->file, true);
  }
}

ReplacementFile::~ReplacementFile() = default;

void ReplacementFile::write(QByteArrayView bytes) {
  writeAll(handle_->file, bytes);
  handle_->hash.add(bytes);
}

/// The save file flushes to the disk in every case.
quint64 ReplacementFile::hash() const {
  return handle_->hash.value();
}

FileStamp ReplacementFile::commit(Durability) {
  if (!handle_->file.commit()) {
    fail(handle_->file, true);
  }
  FileStamp stamp = FileStamp::lookAt(handle_->file.fileName());
  stamp.hash = handle_->hash.value();
  return stamp;
}

void flushFolderToDisk(const QString&) {}

QStringList namesWith(const QString& folder, QByteArrayView part) {
  QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden);
  names.removeIf([&](const QString& name) { return !name.contains(QLatin1StringView(part)); });
  return names;
}

FileStamp FileStamp::lookAt(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) {
    return {};
  }
  constexpr qint64 kNanoseconds = 1000000;
  return {info.size(), info.lastModified().toMSecsSinceEpoch() * kNanoseconds, 0};
}

std::optional<QByteArray> readWholeFile(const QString& path, Links links, FileStamp* stamp) {
  const QFileInfo info(path);
  if (!info.exists() || !info.isFile() || (links == Links::Refused && info.isSymLink())) {
    return {};
  }
  if (info.size() > kLargestRead) {
    throw RuntimeError(RuntimeError::Overflow, toldText(shownText(u"%1 is larger than any file of ours"_s), {path}));
  }
  const FileStamp before = FileStamp::lookAt(path);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    fail(file, false);
  }
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    fail(file, false);
  }
  if (stamp != nullptr) {
    *stamp = {bytes.size(), before.modified, 0};
  }
  return bytes;
}
