#pragma once

#include <QString>
#include <QStringList>

// The fonts that a writer can choose from, and what a missing one is shown in.

/// "Arial" of "Arial [Adobe]".
QString withoutFoundry(const QString& family);
/// Families sorted as a reader looks for them, each once and without foundries.
QStringList distinctFamilies(const QStringList& families);
/// The families that are there. The first call is slow.
QStringList fontFamilies();
/// The family whose letters stand in for one that isn't there.
QString standInFor(const QString& family);

/// Points, from the smallest to the largest.
QStringList fontSizes();
/// Text is formatted in typed sizes from the first on and below the second.
inline constexpr double kSmallestFontSize = 5;
inline constexpr double kTooLargeFontSize = 32;
bool isTypedSizeTaken(double points);
