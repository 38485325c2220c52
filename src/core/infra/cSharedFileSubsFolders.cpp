#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cSharedFileSubs";

QFileInfo about(const QString& path) {
  return QFileInfo(Paths::native(path));
}

void log(const QString& message, const QString& routine) {
  Logging().AddDebug(message, routine, QString::fromLatin1(kModule));
}

bool makeWritable(const QString& path) {
  const QString file = Paths::native(path);
  return QFile::setPermissions(file, QFile::permissions(file) | QFile::WriteOwner | QFile::WriteUser);
}

/// The volume that holds the path, or the nearest folder above it that is there.
QStorageInfo volumeOf(const QString& path) {
  QFileInfo info = about(path);
  while (!info.exists() && !info.isRoot() && info.absolutePath() != info.absoluteFilePath()) {
    info = QFileInfo(info.absolutePath());
  }
  return QStorageInfo(info.absoluteFilePath());
}

void makeFolder(const QString& path, bool withParents) {
  const bool made = withParents ? QDir().mkpath(path) : QDir().mkdir(path);
  if (!made) {
    const bool parentThere = QFileInfo(path).dir().exists();
    throw RuntimeError(withParents || parentThere ? RuntimeError::PathAccess : RuntimeError::PathNotFound);
  }
}

/// A link is moved and removed by itself: what it leads to stays as it is.
void makeMovable(const QString& path) {
  if (!about(path).isSymLink()) {
    Files().MakeReadWrite(path);
  }
}

void removeFile(const QString& path) {
  if (Channels().isOpen(path)) {
    throw RuntimeError(RuntimeError::FileAlreadyOpen);
  }
  if (!QFile::remove(path)) {
    throw RuntimeError(RuntimeError::PathAccess);
  }
}

/// Copies in blocks, so that the window lives while a large file goes over; the old file stays until the end.
void copyContent(const QString& from, const QString& to, const cSharedFileSubs::Progress& progress) {
  constexpr qsizetype kBlock = 1 << 20;
  const qint64 total = QFileInfo(from).size();
  const bool replaces = QFileInfo::exists(to);
  NativeFile source(from, NativeFile::Mode::Read);
  ReplacementFile target(to);
  qint64 done = 0;
  for (QByteArray block = source.read(kBlock); !block.isEmpty(); block = source.read(kBlock)) {
    target.write(block);
    done += block.size();
    if (progress) {
      progress(done, total);
    }
    Subs().RegularDoEvents();
  }
  // Where a file is lost should the disk not get the new one, it is worth the wait.
  target.commit(replaces ? ReplacementFile::Durability::OnDisk : ReplacementFile::Durability::Cached);
}

/// Where a copy goes: To itself, with the name of From when To has none.
QString targetOf(const QString& from, const QString& to) {
  return Paths::native(Files().FileOnly(to).isEmpty() ? Files().Combine(to, Files().FileOnly(from)) : to);
}

/// One walk over a folder; what is wanted of each entry is up to the caller.
template <class Take>
void walk(const QString& path, const QStringList& patterns, QDir::Filters filters, bool recursed, const Take& take) {
  constexpr int kEntriesBetweenYields = 20;
  QDirIterator entries(Paths::native(path), patterns, filters | QDir::Hidden | QDir::NoDotAndDotDot,
                       recursed ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
  for (int count = 1; entries.hasNext(); ++count) {
    entries.next();
    if (!ReplacementFile::isTemporary(entries.fileName())) {
      take(entries.fileInfo());
    }
    if (count % kEntriesBetweenYields == 0) {
      Subs().RegularDoEvents();
    }
  }
}

QStringList patternOf(QString extension) {
  if (extension.startsWith(u'.')) {
    extension.remove(0, 1);
  }
  return extension.isEmpty() ? QStringList() : QStringList(u"*."_s + extension);
}

bool before(const QString& a, const QString& b) {
  const int order = a.compare(b, Qt::CaseInsensitive);
  return order == 0 ? a < b : order < 0;
}

void listFolders(const QString& path, bool recursed, QStringList& list) {
  list.clear();
  walk(path, {}, QDir::Dirs, recursed, [&](const QFileInfo& entry) {
    list.append(recursed ? QDir::toNativeSeparators(entry.filePath()) : entry.fileName());
  });
  std::sort(list.begin(), list.end(), before);
}

enum class Side { All, After, Before };

struct Limit {
  Side side = Side::All;
  QDateTime date;

  bool admits(const QFileInfo& entry) const {
    return side == Side::All || (side == Side::After ? entry.lastModified() > date : entry.lastModified() < date);
  }
};

void listFiles(const QString& path, const QString& extension, bool recursed, const Limit& limit, QStringList& list) {
  list.clear();
  walk(path, patternOf(extension), QDir::Files, recursed, [&](const QFileInfo& entry) {
    if (limit.admits(entry)) {
      list.append(recursed ? QDir::toNativeSeparators(entry.filePath()) : entry.fileName());
    }
  });
  std::sort(list.begin(), list.end(), before);
}

void listObjects(const QString& path, const QString& extension, bool recursed, QList<FileObject>& list) {
  list.clear();
  walk(path, patternOf(extension), QDir::Files, recursed, [&](const QFileInfo& entry) {
    list.append({entry.fileName(), QDir::toNativeSeparators(entry.filePath()), entry.size(), entry.lastModified()});
  });
  std::sort(list.begin(), list.end(), [](const FileObject& a, const FileObject& b) { return before(a.Path, b.Path); });
}

}  // namespace

bool cSharedFileSubs::FileExists(const QString& Path) const {
  const QFileInfo info = about(Path);
  return !Path.isEmpty() && info.exists() && !info.isDir();
}

bool cSharedFileSubs::FolderExists(const QString& Path) const {
  return !Path.isEmpty() && about(Path).isDir();
}

bool cSharedFileSubs::isReadonly(const QString& Path) const {
  const QFileInfo info = about(Path);
  return info.exists() && !info.permission(QFile::WriteOwner);
}

bool cSharedFileSubs::MakeReadWrite(const QString& Path) const {
  return FileExists(Path) && makeWritable(Path);
}

bool cSharedFileSubs::MakeFolderReadWrite(const QString& Path) const {
  return FolderExists(Path) && makeWritable(Path);
}

QDateTime cSharedFileSubs::FileDate(const QString& Path) const {
  return FileExists(Path) ? about(Path).lastModified() : QDateTime();
}

QDateTime cSharedFileSubs::FolderDate(const QString& Path) const {
  return FolderExists(Path) ? about(Path).lastModified() : QDateTime();
}

bool cSharedFileSubs::SetFileDateTime(const QString& Path, const QDateTime& Date) const {
  QFile file(Paths::native(Path));
  return FileExists(Path) && file.open(QIODevice::ReadWrite) && file.setFileTime(Date, QFile::FileModificationTime);
}

qint64 cSharedFileSubs::FileSize(const QString& Path) const {
  return FileExists(Path) ? about(Path).size() : 0;
}

QString cSharedFileSubs::GetShortName(const QString& Path) const {
  constexpr qsizetype kLongest = 255;
  return Paths::native(Path).left(kLongest);
}

qint32 cSharedFileSubs::LinesInFile(const QString& Path) const {
  QByteArray text;
  LoadTextFile(Path, text);
  qint32 lines = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!pair && (text[i] == '\r' || text[i] == '\n')) {
      ++lines;
    }
  }
  const bool open = !text.isEmpty() && text.back() != '\r' && text.back() != '\n';
  return lines + (open ? 1 : 0);
}

qint64 cSharedFileSubs::DiskFree(const QString& Path) const {
  return std::max<qint64>(volumeOf(Path).bytesAvailable(), 0);
}

qint64 cSharedFileSubs::DiskSize(const QString& Path) const {
  return std::max<qint64>(volumeOf(Path).bytesTotal(), 0);
}

QString cSharedFileSubs::VolumeLabel(const QString& Path) const {
  return volumeOf(Path).name();
}

QString cSharedFileSubs::NameOnDisk(const QString& Folder, const QString& Name) const {
  const QDir folder(Folder);
  if (folder.exists(Name)) {
    return Name;
  }
  const QStringList folders = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
  const auto other = std::find_if(folders.begin(), folders.end(),
                                  [&](const QString& there) { return there.compare(Name, Qt::CaseInsensitive) == 0; });
  return other == folders.end() ? Name : *other;
}

bool cSharedFileSubs::MkMissingDirNoRecurse(const QString& Path) const {
  if (Path.trimmed().isEmpty() || FolderExists(Path)) {
    return false;
  }
  return Guard("MkMissingDirNoRecurse", kModule)([&] { makeFolder(Paths::native(Path), false); });
}

bool cSharedFileSubs::MkMissingDir(const QString& Path) const {
  if (Path.trimmed().isEmpty() || FolderExists(Path)) {
    return false;
  }
  return Guard("MkMissingDir", kModule)([&] { makeFolder(Paths::native(Path), true); });
}

bool cSharedFileSubs::EraseFile(const QString& Path) const {
  const bool leadsNowhere = about(Path).isSymLink() && !about(Path).exists();
  if (!FileExists(Path) && !leadsNowhere) {
    return true;
  }
  makeMovable(Path);
  return Guard("EraseFile", kModule)([&] { removeFile(Paths::native(Path)); });
}

bool cSharedFileSubs::EraseFolder(const QString& Path) const {
  return Guard("EraseFolder", kModule)([&] {
    if (!QDir().rmdir(Paths::native(Path))) {
      throw RuntimeError(FolderExists(Path) ? RuntimeError::PathAccess : RuntimeError::PathNotFound);
    }
  });
}

bool cSharedFileSubs::CopyFile(const QString& From, const QString& To, const Progress& progress) const {
  return CopyFileWithRetCode(From, To, progress) == 0;
}

bool cSharedFileSubs::CopyFileIfNewer(const QString& From, const QString& To) const {
  const QString target = targetOf(From, To);
  if (FileExists(target) && FileDate(target) >= FileDate(From)) {
    return true;
  }
  return CopyFile(From, target);
}

int cSharedFileSubs::CopyFileWithRetCode(const QString& From, const QString& To, const Progress& progress) const {
  const QString routine = u"CopyFileWithRetCode"_s;
  if (!FileExists(From)) {
    log(From + u" doesn't exist, can't copy it"_s, routine);
    return RuntimeError::FileNotFound;
  }
  const QString source = Paths::native(From);
  const QString target = targetOf(From, To);
  if (FileExists(target) && about(source).canonicalFilePath() == about(target).canonicalFilePath()) {
    return 0;
  }
  if (isReadonly(target) && !MakeReadWrite(target)) {
    log(target + u" is read only, can't change it to read write, can't update it"_s, routine);
    return RuntimeError::PathAccess;
  }
  const Guard guard("CopyFileWithRetCode", kModule);
  if (!guard([&] { copyContent(source, target, progress); })) {
    return RuntimeError::DeviceError;
  }
  SetFileDateTime(target, FileDate(source));
  return 0;
}

bool cSharedFileSubs::CopyFolder(const QString& From, const QString& To, const QString& Filter,
                                 const Progress& progress) const {
  const QString root = AddSlashIfMissing(Paths::native(From));
  QStringList found;
  walk(root, Filter.split(u';', Qt::SkipEmptyParts), QDir::Files, true,
       [&](const QFileInfo& entry) { found.append(QDir::toNativeSeparators(entry.filePath())); });
  bool all = FolderExists(From);
  for (const QString& file : found) {
    const QString target = Combine(Paths::native(To), file.mid(root.size()));
    MkMissingDir(ExtractPath(target));
    all = CopyFile(file, target, progress) && all;
  }
  return all;
}

bool cSharedFileSubs::MoveFile(const QString& From, const QString& To) const {
  const QString target = targetOf(From, To);
  makeMovable(From);
  return Guard("MoveFile", kModule)([&] {
    if (!FileExists(From)) {
      throw RuntimeError(RuntimeError::FileNotFound);
    }
    if (!QFile::rename(Paths::native(From), target)) {
      throw RuntimeError(RuntimeError::PathAccess);
    }
  });
}

void cSharedFileSubs::FillFolders(const QString& Path, QStringList& List) const {
  listFolders(Path, false, List);
}

void cSharedFileSubs::FillFoldersRecursed(const QString& Path, QStringList& List) const {
  listFolders(Path, true, List);
}

void cSharedFileSubs::FillFiles(const QString& Path, const QString& Extension, QStringList& List) const {
  listFiles(Path, Extension, false, {}, List);
}

void cSharedFileSubs::FillFilesRecursed(const QString& Path, const QString& Extension, QStringList& List) const {
  listFiles(Path, Extension, true, {}, List);
}

void cSharedFileSubs::FillFileObjects(const QString& Path, const QString& Extension, QList<FileObject>& List) const {
  listObjects(Path, Extension, false, List);
}

void cSharedFileSubs::FillFileObjectsRecursed(const QString& Path, const QString& Extension,
                                              QList<FileObject>& List) const {
  listObjects(Path, Extension, true, List);
}

void cSharedFileSubs::FillFilesAfterDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                         QStringList& List) const {
  listFiles(Path, Extension, false, {Side::After, Date}, List);
}

void cSharedFileSubs::FillFilesBeforeDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                          QStringList& List) const {
  listFiles(Path, Extension, false, {Side::Before, Date}, List);
}

void cSharedFileSubs::FillFilesRecursedAfterDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                                 QStringList& List) const {
  listFiles(Path, Extension, true, {Side::After, Date}, List);
}

void cSharedFileSubs::FillFilesRecursedBeforeDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                                  QStringList& List) const {
  listFiles(Path, Extension, true, {Side::Before, Date}, List);
}
