#pragma once

#include <QColor>
#include <QPalette>

/// Colours are kept as 24-bit numbers in blue-green-red order; a number with its top bit set names a system colour.
namespace Colours {

inline constexpr quint32 systemWindow = 0x80000005;
inline constexpr quint32 systemWindowText = 0x80000008;

/// True for a number that follows the palette rather than stating a colour.
constexpr bool isSystem(quint32 number) {
  return (number & 0x80000000U) != 0;
}

/// The bits above the lowest 24 count for nothing.
inline QColor toQt(quint32 number) {
  return QColor(static_cast<int>(number & 0xFFU), static_cast<int>((number >> 8) & 0xFFU),
                static_cast<int>((number >> 16) & 0xFFU));
}

/// The same, with the palette's own colour for a system colour: its text colour, or its base for any other.
inline QColor toQt(quint32 number, const QPalette& palette) {
  if (!isSystem(number)) {
    return toQt(number);
  }
  return palette.color(number == systemWindowText ? QPalette::Text : QPalette::Base);
}

inline quint32 fromQt(const QColor& colour) {
  return static_cast<quint32>(colour.red()) | static_cast<quint32>(colour.green()) << 8 |
         static_cast<quint32>(colour.blue()) << 16;
}

/// What small text needs to be read with ease. On any colour black or white has more.
inline constexpr double kEnoughContrast = 4.5;
/// What lines and bars need to be seen.
inline constexpr double kLineContrast = 3;

/// How well text of one colour reads on another: 1 for the same, 21 for black on white.
double contrast(const QColor& a, const QColor& b);

/// So many hundredths of one colour over another.
QColor mixed(const QColor& over, const QColor& under, int share);

/// A told colour as text on what the palette puts behind text. Told colours were chosen for white paper: there they
/// stand as they are, also where their contrast is low. On any other ground a colour that doesn't read with ease has
/// a counterpart that does, of the same hue, with a contrast of at least what is enough.
QColor readable(quint32 colour, const QPalette& palette, QPalette::ColorRole ground = QPalette::Base,
                double enough = kEnoughContrast);

/// Black or white, whichever reads better on a background.
QColor textOn(const QColor& background);

}  // namespace Colours
