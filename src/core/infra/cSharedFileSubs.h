#pragma once

#include "core/infra/NativeFile.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

/// What a listing tells of one file.
struct FileObject {
  QString Name;
  /// Full path.
  QString Path;
  qint64 Size = 0;
  QDateTime Date;
};

/// The toolbox through which the program touches the file system. Nothing here fails outward, ReplaceFile
/// alone excepted: a failure is logged and the result is false, 0, -1 for a file number, or empty.
///
/// Paths are written with the platform's separator. On reading both slashes part a path.
class cSharedFileSubs {
 public:
  /// Bytes done and bytes in all.
  using Progress = std::function<void(qint64, qint64)>;

  // Path strings: pure string work.

  /// Everything up to the last separator, that included; "./" when there is none.
  QString PathOnly(const QString& Path) const;
  /// As PathOnly, but empty when there is no separator.
  QString ExtractPath(const QString& Path) const;
  /// The text behind the last ".".
  QString ExtOnly(const QString& Path) const;
  QString ExtOnlyWithDot(const QString& Path) const;
  /// The text behind the last separator.
  QString FileOnly(const QString& Path) const;
  /// Everything before the last ".", one in a folder's name too; the whole path when there is none.
  QString FileWithoutExt(const QString& Path) const;
  QString Fileroot(const QString& Path) const { return FileWithoutExt(Path); }
  QString FileExPath(const QString& Path) const { return FileOnly(Path); }
  /// The first character, unless it is a separator.
  QString DriveOnly(const QString& Path) const;
  /// The path behind the drive, or behind the server of a network path, without a separator in front.
  QString FolderExDrive(const QString& Path) const;
  QString AddSlashIfMissing(const QString& Path) const;
  QString AddForwardSlashIfMissing(const QString& Path) const;
  /// Cuts one trailing separator; the root stays as it is.
  QString RemoveSlashFromEnd(const QString& Path) const;
  QString Combine(const QString& Path, const QString& File) const;
  /// The "\\server\share" head of a network path, and what follows it; empty and the whole for any other.
  QString ExtractUNCShare(const QString& Path) const;
  QString ExtractUNCPath(const QString& Path) const;
  /// The name of the last folder, a trailing separator passed over: "b" of "/a/b" and of "/a/b/".
  QString LastFolder(const QString& Path) const;
  /// Fits a name for use as a file name, in place.
  void CleanString(QString& Name) const;

  // Tests and properties.

  /// What the subfolder of this name is called on the disk: as it is asked for, unless it stands there in other letters
  /// only.
  QString NameOnDisk(const QString& Folder, const QString& Name) const;

  bool FileExists(const QString& Path) const;
  bool FolderExists(const QString& Path) const;
  /// True when the owner has no right to write; false for a missing file.
  bool isReadonly(const QString& Path) const;
  /// True when the file is there and can be written to by its owner now.
  bool MakeReadWrite(const QString& Path) const;
  bool MakeFolderReadWrite(const QString& Path) const;
  /// Local time; invalid when missing.
  QDateTime FileDate(const QString& Path) const;
  QDateTime FolderDate(const QString& Path) const;
  bool SetFileDateTime(const QString& Path, const QDateTime& Date) const;
  qint64 FileSize(const QString& Path) const;
  /// Systems without short names give the path itself; up to 255 characters.
  QString GetShortName(const QString& Path) const;
  /// Lines end with CR LF, CR or LF; the last one may lack its end.
  qint32 LinesInFile(const QString& Path) const;
  /// Bytes of the volume that holds the path; 0 when it isn't known.
  qint64 DiskFree(const QString& Path) const;
  qint64 DiskSize(const QString& Path) const;
  QString VolumeLabel(const QString& Path) const;

  // Text files. Text goes through the code page; what it lacks becomes "?".

  /// The file read whole. False and empty when it is missing or can't be read.
  bool LoadTextFile(const QString& Path, QByteArray& Text) const;
  bool LoadTextFile(const QString& Path, QString& Text) const;
  bool ReadTextFile(const QString& Path, QByteArray& Text) const { return LoadTextFile(Path, Text); }
  bool ReadTextFile(const QString& Path, QString& Text) const { return LoadTextFile(Path, Text); }
  /// Puts a whole new file in the place of the old one, as ReplaceFile does.
  bool WriteTextFile(const QString& Path, QByteArrayView Text) const;
  bool WriteTextFile(const QString& Path, QStringView Text) const;
  bool SaveTextFile(const QString& Path, QByteArrayView Text) const { return WriteTextFile(Path, Text); }
  bool SaveTextFile(const QString& Path, QStringView Text) const { return WriteTextFile(Path, Text); }
  /// With a line break behind.
  bool AppendToTextFile(const QString& Path, QByteArrayView Text) const;
  bool AppendToTextFile(const QString& Path, QStringView Text) const;

  /// The new content is written beside the file, flushed to disk and put in its place in one step; a read-only
  /// file is made writable first. When anything fails the old file is still there, whole, and RuntimeError tells
  /// why: 52 no name, 61 disk full, 75 no access (read-only, or a folder stands there), 76 no such folder.
  FileStamp ReplaceFile(const QString& Path, QByteArrayView Bytes,
                        ReplacementFile::Durability durability = ReplacementFile::Durability::OnDisk) const;

  // Files by number, for Channels().

  /// Truncates in place. -1 when it can't be opened, a read-only file that stays so included.
  int CreateOutputFile(const QString& Path) const;
  /// Writes beside the file, which stays whole until the channel is closed. -1 when that can't begin; `cause` says why
  /// then.
  int CreateReplacementFile(const QString& Path, QString& cause) const;
  int OpenOutputFile(const QString& Path) const { return CreateOutputFile(Path); }
  int OpenAppendFile(const QString& Path) const;
  /// For input; -1 when missing.
  int OpenFile(const QString& Path) const;

  // Folders and copying.

  /// Creates that one level; true when it made it.
  bool MkMissingDirNoRecurse(const QString& Path) const;
  /// Creates every level that is missing; true when it made the folder.
  bool MkMissingDir(const QString& Path) const;
  /// True when no file stands there afterwards, also when there was none.
  bool EraseFile(const QString& Path) const;
  /// Removes an empty folder.
  bool EraseFolder(const QString& Path) const;
  bool CopyFile(const QString& From, const QString& To, const Progress& progress = {}) const;
  /// Copies when To is older than From or absent; true when it stands there up to date.
  bool CopyFileIfNewer(const QString& From, const QString& To) const;
  /// 0 when copied. An old file at To stays whole when the copy fails.
  int CopyFileWithRetCode(const QString& From, const QString& To, const Progress& progress = {}) const;
  /// All files below From that match the filter ("*.rtf;*.txt"; empty for all), with their folders.
  bool CopyFolder(const QString& From, const QString& To, const QString& Filter = {},
                  const Progress& progress = {}) const;
  /// A file that stands at To already is not replaced.
  bool MoveFile(const QString& From, const QString& To) const;

  // Listings, sorted by name without regard to case. The plain ones give names, the recursed ones full paths.
  // An empty extension stands for all files; a dot in front of it is passed over.

  void FillFolders(const QString& Path, QStringList& List) const;
  void FillFoldersRecursed(const QString& Path, QStringList& List) const;
  void FillFiles(const QString& Path, const QString& Extension, QStringList& List) const;
  void FillFilesRecursed(const QString& Path, const QString& Extension, QStringList& List) const;
  void FillFileObjects(const QString& Path, const QString& Extension, QList<FileObject>& List) const;
  void FillFileObjectsRecursed(const QString& Path, const QString& Extension, QList<FileObject>& List) const;
  /// Changed after, or before, this time.
  void FillFilesAfterDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                          QStringList& List) const;
  void FillFilesBeforeDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                           QStringList& List) const;
  void FillFilesRecursedAfterDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                  QStringList& List) const;
  void FillFilesRecursedBeforeDate(const QString& Path, const QString& Extension, const QDateTime& Date,
                                   QStringList& List) const;

  // Run a program, by its file or by a name that the system knows, or open a document in its own program. False when
  // nothing could be started.

  bool RunFile(const QString& File) const;
  /// The parameter reaches a program as one, whatever blanks are in it.
  bool RunFileWithParam(const QString& File, const QString& Param) const;
  /// A program alone, no document: that would be seen. It runs in its own folder, and what it prints goes nowhere.
  bool RunFileHidden(const QString& File) const;
};

/// The application's one toolbox.
cSharedFileSubs& Files();
