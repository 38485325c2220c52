#pragma once

#include "core/infra/NativeFile.h"

#include <QByteArray>
#include <QString>

class clsProject;

/// The folder Logs of a book. It and its files are part of the book's folder: a link that leads out is refused.
/// Failures are RuntimeErrors.
class LogFolder {
 public:
  explicit LogFolder(const clsProject& project);

  void make() const;
  QString pathOf(const QString& name) const { return path_ + name; }
  bool has(const QString& name) const;
  /// Empty when it isn't there.
  QByteArray read(const QString& name) const;
  /// Puts the whole file in the old one's place.
  void write(const QString& name, QByteArrayView bytes,
             ReplacementFile::Durability durability = ReplacementFile::Durability::Cached) const;

 private:
  void refuseLink(const QString& name) const;

  const clsProject& project_;
  QString path_;
};
