#pragma once

#include "core/persist/ReducedTexts.h"

#include <QString>
#include <QStringList>

#include <functional>

class clsScene;

/// Gives the texts of all scenes of the current book, used or not, one font. Its name and size are all that changes.
/// Each text is written before the next one is touched: whenever it ends, a scene has the one font or its old ones.
class BookFont {
 public:
  struct Outcome {
    enum class End { Done, Stopped, Failed };
    End end = End::Done;
    qint32 scenes = 0;
    /// Those that are through, with what had no text and what had the font already.
    qint32 done = 0;
    /// Titles of the scenes whose texts stay as they are because they weren't read when the book was opened.
    QStringList unread;
    ReducedTexts reduced;
    /// Where it failed, and why. That text is as it was.
    QString failedAt;
    QString cause;
  };

  BookFont(const QString& name, double points);

  /// Asks, once for all scenes, what a save of their texts would ask. False when they are not to be written.
  static bool mayBegin();
  /// `next` is called before each scene with the number of those that are through, and stops it by false.
  Outcome apply(const std::function<bool(qint32 done)>& next) const;

 private:
  /// Throws RuntimeError, and the scene has its old text then.
  void change(clsScene& scene, Outcome& outcome) const;

  QString name_;
  int halfPoints_;
};
