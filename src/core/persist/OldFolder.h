#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

/// A folder of an older project, whose files are named by paths of another time: their last part counts, in whatever
/// letters it is written. Links aren't followed.
class OldFolder {
 public:
  /// With a separator behind.
  explicit OldFolder(QString path) : path_(std::move(path)) {}

  /// Nothing, and logged where that tells more, for a file that is missing or can't be read.
  std::optional<QByteArray> read(const QString& name);

 private:
  QString path_;
  /// The names on the disk by their lower case; listed when one isn't found as it is written.
  std::optional<QHash<QString, QString>> names_;
};
