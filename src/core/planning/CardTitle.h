#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// A scene's title on its card of the storyboard.
namespace CardTitle {

/// How wide a text is, in twips. A longer text is never narrower than its own beginning.
using Measure = std::function<double(QStringView)>;

/// Of the text from the card's edges.
inline constexpr double kLeft = 30;
inline constexpr double kTop = 50;
/// By how much less than a line's height the next one begins below it.
inline constexpr double kLineOverlap = 10;

/// The title in lines. Words are broken at any letter: a card is small. What begins below the `most` lines that the
/// card has room for isn't looked at.
QStringList lines(const QString& title, int most, const Measure& measure);

}  // namespace CardTitle
