#pragma once

#include "core/infra/FileStamp.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <optional>

class SceneFolder;
class clsScene;
class clsScenes;

/// The files of a scene in its project's folder: its text, the plain mirror of that, and what could not be decoded.
class SceneFile {
 public:
  /// Files that another program has left or changed are left alone, unless the user gave them up.
  enum class Others { Kept, Replaced };

  explicit SceneFile(clsScene& scene) : scene_(scene) {}

  /// Gives the scene a file name where it has none; the file is written by the next save. `taken` holds the names of
  /// all scenes, this one's afterwards too.
  void name(QSet<QString>& taken) const;
  /// Writes the text when it is due; forced, also where it isn't on the disk any more, and the plain mirror into its
  /// folder where there is to be one. What could not be written stays due, and that is logged. True when a file was
  /// written, whose name may still have to reach the disk.
  bool save(bool force, const QString& mirrorFolder, Others others = Others::Kept);
  /// Why the text could not be written; empty when it could.
  const QString& failure() const { return failure_; }
  /// Reads the text; false, and logged, when it can't be read. Counts stay as they are.
  bool load(SceneFolder& folder) const;
  /// Takes what stands on the disk under the scene's name for known, whatever the scene holds.
  void knowFile() const;
  /// A text that was written behind the project file has other words than that tells: they are counted anew when they
  /// are asked for.
  void recountIfYoungerThan(const FileStamp& projectFile) const;
  /// What another program has made of the file since it was last read or written; nothing when it is as it was, or
  /// isn't there, or holds what the scene holds.
  struct Changed {
    QByteArray text;
    FileStamp stamp;
    /// False for what is there and can't be read.
    bool readable = true;
  };
  std::optional<Changed> changedByOthers() const;

  /// Where the plain-text mirrors go, with a separator behind; empty where the user wants none.
  static QString mirrorFolder();
  /// The same as `name` for all scenes of a project.
  static void nameAll(const clsScenes& scenes);

 private:
  QString path() const;
  bool isDue() const;
  bool mayWrite(Others others);
  bool writeText(Others others);
  bool restoreIfGone();
  bool keepUndecodedText() const;
  void writePlainMirror(const QString& folder) const;

  clsScene& scene_;
  QString failure_;
};
