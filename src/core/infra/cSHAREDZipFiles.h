#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class ZipImage;

/// Packs files into an archive, a hundred at a time. What the archive holds already stays, unless it has the name of
/// one of the files. The archive is replaced whole at the end: until then, and when anything fails, the old one is
/// there.
class cSHAREDZipFiles {
 public:
  static constexpr int kAlreadyInList = static_cast<int>(0x800407D1U);
  static constexpr int kNotInList = static_cast<int>(0x800407D2U);

  /// A folder in the list stands for all files below it.
  bool RecurseFolders = false;
  /// Full path of the archive.
  QString ZipFileName;
  /// There is nobody to ask for a password: nothing is packed at all.
  bool Encrypted = false;
  /// Recursing takes hidden files and folders too.
  bool IncludeSystemFiles = false;
  /// Names in the archive begin below it; files that are not below it are stored under their bare names. "\" stands for
  /// no folder.
  QString RootDirectory = QStringLiteral("\\");
  /// Leaves what is as young in the archive as on the disk.
  bool UpdatingZip = false;
  /// Leaves what was packed from a file of the same size and time.
  bool KeepUnchanged = false;
  /// All names are bare.
  bool IgnorePath = false;

  /// One less than the list has; that of a new object has one entry that stands for no file.
  qint32 ZipFileCount() const { return static_cast<qint32>(files_.size()) - 1; }

  void Setup();
  /// Throws RuntimeError kAlreadyInList.
  void AddFile(const QString& File);
  /// Throws RuntimeError kNotInList.
  void RemoveFile(const QString& File);
  /// The library's code for the last batch, 0 on success. A file that can't be packed is passed over and makes its
  /// batch fail; Failures() has those of all batches. Throws, logged, where there is no library.
  int MakeZipFile();
  /// What the last MakeZipFile had to say.
  QString GetLastMessage() const { return message_; }
  bool Zip(const QString& File, const QString& ZipName);

  struct Failure {
    QString file;
    QString cause;
  };
  /// What the last MakeZipFile could not pack; the archive itself when that could not be written.
  const QList<Failure>& Failures() const { return failures_; }

 private:
  static constexpr qsizetype kBatch = 100;

  int pack();
  int addBatches(ZipImage& image);
  int addBatch(ZipImage& image, const QStringList& files);
  bool isUpToDate(const ZipImage& image, const QString& name, const QString& path) const;
  QStringList filesToPack() const;
  QString memberName(const QString& file) const;
  int fail(int code, const QString& file, const QString& cause);
  void print(const QString& text);

  QStringList files_{QString()};
  QSet<QString> known_;
  QString message_;
  QList<Failure> failures_;
  /// Names that the files have taken in the archive.
  QSet<QString> taken_;
};
