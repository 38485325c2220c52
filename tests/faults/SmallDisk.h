#pragma once

#include <QString>
#include <QTemporaryDir>

/// A small file system in memory, which can be filled up. It is mounted where this process alone sees it, for as long
/// as the object lives.
class SmallDisk {
 public:
  explicit SmallDisk(qint64 bytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// Why there is none; empty when there is one.
  const QString& refused() const { return refused_; }
  QString path() const { return place_.path(); }
  /// Leaves room for so many bytes, and takes the rest.
  bool fill(qint64 room) const;
  void makeRoom() const;

 private:
  QString ballast() const { return place_.filePath(QStringLiteral("ballast")); }

  QTemporaryDir place_;
  QString refused_;
};
