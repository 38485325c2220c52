#pragma once

#include "core/infra/FileStamp.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/// An archive in memory that files are added to. What it is given and what it has become are whole archives, so the
/// file that it stands for can be replaced in one step.
class ZipImage {
 public:
  struct File {
    QString name;
    QByteArray content;
    /// When the file was changed; kept to the last digit.
    FileStamp stamp;
  };

  /// Of an archive that is there, or of no bytes for a new one.
  explicit ZipImage(QByteArray archive);

  /// Whether the archive as it was given has a member of this name, and that was packed from a file of this size and
  /// time, to the last digit. Of what another program has packed the time is not known as well as that.
  bool hasUnchanged(const QString& name, const FileStamp& file) const;
  /// Whether it has one that isn't older.
  bool hasAsYoung(const QString& name, const FileStamp& file) const;

  /// Adds these, each in the place of a member of its name. The library's code: unless it is 0 the archive is as it
  /// was.
  int add(const QList<File>& files);

  const QByteArray& bytes() const { return bytes_; }
  bool isChanged() const { return changed_; }

 private:
  struct Held {
    FileStamp stamp;
    bool isExact = false;
  };
  int list();

  QByteArray bytes_;
  QHash<QString, Held> held_;
  /// Why it is none.
  int code_ = 0;
  bool changed_ = false;
};
