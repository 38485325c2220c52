#pragma once

#include <QString>
#include <QStringList>

/// What the tabs show of a scene, for the one that only mirrors it.
struct SceneOverview {
  QString Title;
  QString DescText;
  QString action;
  QString plot;
  QString status;
  /// Each with the rating's name in front.
  QStringList ratings;
  /// What the three goals of the scene are called, and what they are.
  QStringList goalNames;
  QStringList goals;
};
