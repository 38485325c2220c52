#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

/// A folder of an older project, whose files are named by paths of another time: their last part counts, in whatever
/// letters it is written. Links aren't followed, and nothing is read where the folder itself is one that leads out.
class OldFolder {
 public:
  /// The project's folder, and the one in it that is read; both with a separator behind.
  OldFolder(const QString& projectFolder, QString path);

  /// Nothing, and logged where that tells more, for a file that is missing or can't be read, or once a gigabyte was
  /// read: a damaged project may name one file any number of times.
  std::optional<QByteArray> read(const QString& name);
  /// The part of a stored path that counts.
  static QString shown(const QString& stored);

 private:
  std::optional<QByteArray> contentOf(const QString& path);

  QString path_;
  bool leadsOut_;
  qint64 given_ = 0;
  /// The names on the disk by their lower case; listed when one isn't found as it is written.
  std::optional<QHash<QString, QString>> names_;
};
