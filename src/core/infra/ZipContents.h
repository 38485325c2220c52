#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

/// What the listing of an archive tells of one member.
struct ZipMember {
  /// With its folders, parted by "/"; a folder's own name ends in one.
  QString name;
  qint64 size = 0;
  qint64 packedSize = 0;
  QDateTime date;
  quint32 crc = 0;
  quint16 method = 0;
  bool encrypted = false;
  /// A link, or anything else that is neither file nor folder.
  bool isSpecial = false;

  bool isFolder() const { return name.endsWith(u'/'); }
};

/// An archive that is read.
class ZipContents {
 public:
  /// Throws RuntimeError: 53 where no such file is, 321 for one that is no archive, and what the system refuses.
  explicit ZipContents(const QString& archive);
  ~ZipContents();
  ZipContents(const ZipContents&) = delete;
  ZipContents& operator=(const ZipContents&) = delete;

  const QList<ZipMember>& members() const { return members_; }
  /// The whole content of a member, its checksum compared. Throws RuntimeError 321 when it is damaged, encrypted or
  /// longer than the listing tells, and 6 beyond 1 GB.
  QByteArray read(qsizetype member) const;

  /// Of the library.
  static QString version();

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
  QList<ZipMember> members_;
};

/// The content of the first file in an archive that has this name, in whatever folder and letters. Nothing when there
/// is none, when the archive can't be read, or for content beyond 1 GB.
std::optional<QByteArray> readFromZip(const QString& archive, const QString& name);
