#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class clsProject;

/// What is sent to those who help with the program, without revealing the story: the project file without what the
/// writer has written in it, a list of the scenes' files, the settings and the log, in one archive beside the project.
class DebugFile {
 public:
  explicit DebugFile(const clsProject& project);

  /// Reads the project file as it is on the disk, and writes the two files. Throws RuntimeError.
  void write() const;
  /// Packs them. False, and logged, when that failed; no archive is left then.
  bool zip();

  const QString& file() const { return file_; }
  const QString& list() const { return list_; }
  /// Known once it is packed: an archive of the project's name that somebody else made stays as it is.
  const QString& archive() const { return archive_; }
  /// What is there but could not be packed.
  const QStringList& missing() const { return missing_; }

  /// A project file whose descriptions, notes and texts say that they were removed. Tags are found in any letters; what
  /// has no closing tag goes to the end.
  static QByteArray withoutStory(const QByteArray& project);

 private:
  QString listed() const;
  bool mayReplace(const QString& archive) const;
  bool pack();

  QString projectFile_;
  QString textFolder_;
  /// The project file's path without its extension.
  QString root_;
  QString file_;
  QString list_;
  QString archive_;
  QStringList missing_;
};
