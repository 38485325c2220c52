#pragma once

#include <QSet>
#include <QString>

class clsScene;
class clsScenes;

/// The files of a scene in its project's folder: its text, the plain mirror of that, and what could not be decoded.
class SceneFile {
 public:
  explicit SceneFile(clsScene& scene) : scene_(scene) {}

  /// Gives the scene a file name where it has none; the file is written by the next save. `taken` holds the names of
  /// all scenes, this one's afterwards too.
  void name(QSet<QString>& taken) const;
  /// Writes the text when it is due or forced, and the plain mirror when `mirror` says so. What could not be written
  /// stays due, and that is logged.
  void save(bool force, bool mirror) const;
  /// Reads the text; false, and logged, when it can't be read. Counts stay as they are.
  bool load() const;

  /// Whether the writer wants a plain-text file beside each RTF file.
  static bool mirrorWanted();
  /// The same as `name` for all scenes of a project.
  static void nameAll(const clsScenes& scenes);

 private:
  QString path() const;
  void writeText() const;
  void keepUndecodedText() const;
  void writePlainMirror() const;

  clsScene& scene_;
};
