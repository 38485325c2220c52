#pragma once

#include <QByteArray>
#include <QString>

#include <array>

class clsScene;

/// What a scene held before an editor put there what was typed and not saved yet; it gives that back to the scene when
/// the writer drops it.
class SceneBefore {
 public:
  explicit SceneBefore(const clsScene& scene);

  const QByteArray& TextRTF() const { return textRTF_; }
  /// The scene holds now what an editor put there.
  void take(const clsScene& scene);
  /// True when the scene differs in what stands in the project file, the text left out.
  bool planDiffers(const clsScene& scene) const;
  void giveBack(clsScene& scene) const;

 private:
  struct Plan {
    QString Title;
    QString DescText;
    QString Goal;
    QString Conflict;
    QString Outcome;
    QString Notes;
    std::array<qint16, 6> time;
    std::array<qint16, 6> field;
    qint16 Status;
    bool ReactionScene;
    bool SubPlot;
    qint32 viewpointID;

    bool operator==(const Plan&) const = default;
  };
  static Plan planOf(const clsScene& scene);

  void giveBackText(clsScene& scene) const;
  /// Unless somebody else has changed it.
  void giveBackViewpoint(clsScene& scene) const;
  /// A scene that has no file yet gets none by what was dropped.
  void giveBackName(clsScene& scene) const;

  Plan plan_;
  bool hadFile_;
  /// The viewpoint that the editor set.
  qint32 takenViewpoint_;
  QByteArray textRTF_;
  bool rtfChanged_;
};
