#pragma once

#include <QString>
#include <QStringMatcher>

class clsScene;
class frmRTFHidden;

/// Replaces a text in all scenes of the book, used or not, in their formats. Each scene is saved before the next is
/// touched, so that wherever it ends each is as it was or as it shall be. With the case minded, titles and
/// descriptions are changed too.
class GlobalReplace {
 public:
  enum class End {
    Done,
    /// A scene is open in an editor.
    Locked,
    /// The user wants no more.
    Stopped,
    /// A scene could not be saved. It is as it was before.
    NotSaved
  };
  struct Outcome {
    End end = End::Done;
    /// In texts alone.
    qint64 occurrences = 0;
    qint32 scenes = 0;
    /// Scenes whose titles or descriptions have changed.
    qint32 titles = 0;
    /// The scene that could not be saved, and why, where that is known.
    QString unsaved;
    QString cause;
  };

  GlobalReplace(const QString& search, const QString& replacement, bool caseSensitive);

  /// The text is there in a scene that comes before any that is open in an editor. Makes all texts plain that aren't
  /// yet.
  bool wouldChange() const;
  /// With progress, and a way to stop it.
  Outcome run() const;

 private:
  bool concerns(clsScene& scene) const;
  bool change(clsScene& scene, frmRTFHidden& worker, Outcome& outcome) const;

  QString search_;
  QString replacement_;
  Qt::CaseSensitivity caseSensitivity_;
  QStringMatcher matcher_;
};
