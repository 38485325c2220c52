#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class clsChapter;
class clsScene;

/// Puts a text into the book as a new scene: behind the one that it is a copy of, where there is one and that is in a
/// chapter, else at the end of the other chapter. The bytes stay as they are, and nothing of the book is replaced.
std::shared_ptr<clsScene> restoreAsNewScene(const QByteArray& rtf, const QString& title, clsScene* source,
                                            clsChapter& otherwise);

/// What such a scene is called: "Arrival (copy of 20/11/2026 09:05)". A copy of no scene has its own name in front.
QString titleOfRestored(const clsScene* source, const QString& copy, const QString& time);
