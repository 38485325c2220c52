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
  void giveBack(clsScene& scene) const;

 private:
  /// Where another one has taken its place meanwhile.
  void giveBackViewpoint(clsScene& scene) const;

  QString title_;
  QString descText_;
  QString goal_;
  QString conflict_;
  QString outcome_;
  QString notes_;
  std::array<qint16, 6> time_;
  std::array<qint16, 6> field_{};
  qint16 status_;
  bool reactionScene_;
  bool subPlot_;
  qint32 viewpointID_;
  QByteArray textRTF_;
  bool rtfChanged_;
};
