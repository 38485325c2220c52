#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class clsProject;

/// The folder Logs of a book. Neither it nor a file in it is ever reached by a link, which may have come with somebody
/// else's book and lead to any file, this book's own too. Failures are RuntimeErrors.
class LogFolder {
 public:
  explicit LogFolder(const clsProject& project);

  /// Throws where nothing could be written to it.
  void make() const;
  QString pathOf(const QString& name) const;
  bool has(const QString& name) const;
  /// Empty when it isn't there. A file that is too big for what stands here is refused: it would be read at each save.
  QByteArray read(const QString& name) const;
  /// Puts the whole file in the old one's place. It can be made again, so nobody waits for the disk.
  void write(const QString& name, QByteArrayView bytes) const;

 private:
  void refuseLinkAt(const QString& name) const;

  QString path_;
};
