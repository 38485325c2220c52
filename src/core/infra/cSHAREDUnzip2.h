#pragma once

#include "core/infra/ZipContents.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// Lists and unpacks an archive. Nothing is written outside the folder: a member with a name that would leave it, one
/// that is a link, and one whose way leads through a link are refused, and so is one that is longer than the listing
/// tells. The others are unpacked.
class cSHAREDUnzip2 {
 public:
  /// Leaves files that are as young as the member, and replaces older ones.
  bool ExtractOnlyNewer = false;
  /// Blanks in the names of files become "_".
  bool SpaceToUnderScore = false;
  /// A file that is there is replaced when MayOverwrite says so; without that it is kept.
  bool PromptToOverwrite = false;
  std::function<bool(const QString& file)> MayOverwrite;
  /// What goes to LastMessage: 0 everything, 1 failures, 2 nothing.
  qint32 MessageLevel = 0;
  /// Reads and compares checksums, and writes nothing.
  bool TestZip = false;
  /// Names keep their folders.
  bool UseFolderNames = false;
  /// A file that is there is replaced without a question; else it is kept.
  bool OverwriteExisting = false;
  /// Lines of text files end with CR LF.
  bool ConvertCRToCRLF = false;
  /// For IndexOf.
  bool CaseSensitiveFileNames = false;
  /// Content goes to the standard output instead of files.
  bool ExtractToStdOut = false;

  /// Full paths.
  QString Zipfile;
  QString UnzipFolder;

  /// Fills the table from the archive, nothing in it selected. False, and logged, when that can't be read; the table is
  /// empty then.
  bool Directory();
  /// Extracts the selected members, or all when none is. False, and logged, when one of them wasn't. Lists the archive
  /// where Directory has not.
  bool Unzip();
  /// Of the library; empty where there is none.
  QString GetVersion() const;
  QString LastMessage() const { return message_; }

  // The table, from 1; RuntimeError 9 outside. Folders have no entry.
  qint32 FileCount() const { return static_cast<qint32>(table_.size()); }
  /// Without its folders.
  QString Filename(qint32 index) const;
  /// Parted by "/", without one at the end; empty for a file in no folder.
  QString FileDirectory(qint32 index) const;
  qint64 FileSize(qint32 index) const { return at(index).about.size; }
  qint64 FilePackedSize(qint32 index) const { return at(index).about.packedSize; }
  /// How much was saved, in percent.
  qint32 FileCompressionRatio(qint32 index) const;
  QDateTime FileDate(qint32 index) const { return at(index).about.date; }
  quint32 FileCRC(qint32 index) const { return at(index).about.crc; }
  /// The format's number: 0 stored, 8 deflated.
  qint32 FileCompressionMethod(qint32 index) const { return at(index).about.method; }
  bool FileEncrypted(qint32 index) const { return at(index).about.encrypted; }
  bool FileSelected(qint32 index) const { return at(index).selected; }
  void setFileSelected(qint32 index, bool selected);
  /// The first of this name, its folders included; 0 when there is none.
  qint32 IndexOf(const QString& name) const;

 private:
  struct Entry {
    ZipMember about;
    /// In the archive.
    qsizetype position = 0;
    bool selected = false;
  };

  const Entry& at(qint32 index) const;
  void list(const ZipContents& archive);
  void extract(const ZipContents& archive, const Entry& entry);
  QString folder() const;
  QString targetOf(const ZipMember& member) const;
  bool mayWrite(const QString& target, const ZipMember& member) const;
  void write(const QString& target, const QByteArray& content, const ZipMember& member) const;
  void print(const QString& text, qint32 upToLevel);

  QList<Entry> table_;
  /// The archive that the table is of.
  QString listed_;
  QString message_;
};
