#pragma once

#include "core/infra/FileStamp.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

class clsProject;

/// The folder of a project's scene files as it stands on the disk, for reading many of them. Names are found in
/// whatever letters they are written; nothing outside the project's own folder is.
class SceneFolder {
 public:
  explicit SceneFolder(const clsProject& project);

  struct File {
    /// In the letters that it has on the disk.
    QString name;
    QByteArray text;
    FileStamp stamp;
  };
  /// Nothing, and logged where that tells more, for a file that is missing, can't be read or leads out.
  std::optional<File> read(const QString& name);

  /// The name of a file in this folder and nowhere else, of what is stored as a scene's file; empty where that is none.
  static QString bareName(const QString& stored);
  /// A file's name that comes back from the project file, where it stands raw.
  static bool isNameForProjectFile(const QString& name);
  /// The same, and a new file may get it.
  bool isFree(const QString& name) const;
  /// True for a file that is a link to somewhere outside the project's folder, or in a folder that is one.
  static bool leadsOut(const clsProject& project, const QString& file);
  static bool leadsOut(const QString& projectFolder, const QString& file);

 private:
  std::optional<File> readAs(const QString& name) const;
  QString otherSpelling(const QString& name);

  const clsProject& project_;
  QString path_;
  bool leadsOut_;
  /// The names on the disk by their lower case; listed when one isn't found as it is written.
  std::optional<QHash<QString, QString>> names_;
};
