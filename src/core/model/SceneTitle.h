#pragma once

#include <QString>

/// What a scene is called where its title is told: one without a title has a name too.
inline QString calledScene(const QString& title) {
  return title.trimmed().isEmpty() ? QStringLiteral("Untitled scene") : title;
}

/// "1 scene", "2 scenes".
inline QString countedScenes(qsizetype count) {
  return count == 1 ? QStringLiteral("1 scene") : QStringLiteral("%L1 scenes").arg(count);
}
