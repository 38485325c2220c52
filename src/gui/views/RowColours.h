#pragma once

#include <QColor>
#include <QPalette>

/// The text colours of chapter and scene rows: 24-bit numbers in blue-green-red order.
namespace RowColours {

inline constexpr quint32 kGreen = 32768;
inline constexpr quint32 kGrey = 8421504;
inline constexpr quint32 kOrange = 33023;
inline constexpr quint32 kRed = 192;

/// How well text of one colour reads on another: 1 for the same, 21 for black on white.
double contrast(const QColor& a, const QColor& b);

/// The colour as told on a light list. These were chosen for white paper and sink into a dark list, so there the
/// hue stays and the lightness is raised until the text reads well.
QColor readable(quint32 colour, const QPalette& palette);

}  // namespace RowColours
