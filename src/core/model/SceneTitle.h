#pragma once

#include <QString>

/// What a scene is called where its title is told: one without a title has a name too.
inline QString calledScene(const QString& title) {
  return title.trimmed().isEmpty() ? QStringLiteral("Untitled scene") : title;
}
