#pragma once

#include "core/infra/FileStamp.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>
#include <optional>

/// A file opened by the system's own calls. Every failure is a RuntimeError with the number that stands for it:
/// 52 no file name, 53 missing, 61 disk full, 70 in use, 75 no access, 76 no such folder.
class NativeFile {
 public:
  enum class Mode { Read, Truncate, Append };

  NativeFile(const QString& path, Mode mode);
  /// Closes without telling of a failure; call close() to be told.
  ~NativeFile();
  NativeFile(NativeFile&& other) noexcept;
  NativeFile& operator=(NativeFile&& other) noexcept;

  /// The next bytes, at most so many; empty at the end of the file.
  QByteArray read(qsizetype most);
  void write(QByteArrayView bytes);
  /// Waits until what was written, and the file's name, have reached the disk.
  void flushToDisk();
  void close();

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

/// New content for a file, written beside it and put in its place in one step: until commit() has returned
/// the old file stands there whole. Without a commit the new content is thrown away.
class ReplacementFile {
 public:
  /// ContentOnDisk leaves it to flushFolderToDisk() to bring the names of several files to the disk at once.
  enum class Durability { Cached, ContentOnDisk, OnDisk };

  /// The file's permissions are kept; a link is followed; a file that can't be written to is refused with 75.
  explicit ReplacementFile(const QString& path);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  /// True for the name that new content has until it is in its place.
  static bool isTemporary(QStringView name) { return name.startsWith(u".quillane-") && name.endsWith(u".tmp"); }

  void write(QByteArrayView bytes);
  /// Of what was written so far.
  quint64 hash() const;
  /// Where the system lets us, it looks at the new content first: as long as what was written, with the same end, else
  /// it throws 57 and the old file stays. OnDisk waits until content and name have reached the disk. What the new file
  /// is known by.
  FileStamp commit(Durability durability);

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

/// Waits until the names of the files in a folder have reached the disk, as far as the system can tell.
void flushFolderToDisk(const QString& folder);

/// The names in a folder that hold these bytes, in no order. Nothing but the names is looked at, for there may be many
/// thousand of them.
QStringList namesWith(const QString& folder, QByteArrayView part);

/// Refused: a link isn't followed, and stands for no file.
enum class Links { Followed, Refused };

/// The whole content of a file; nothing when there is no such file or something else stands there: a folder, a pipe, a
/// device. Throws 6 for a file beyond 1 GB. The stamp of what was read goes where one is wanted, without the
/// hash of its content.
std::optional<QByteArray> readWholeFile(const QString& path, Links links = Links::Followed, FileStamp* stamp = nullptr);
