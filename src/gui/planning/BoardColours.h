#pragma once

#include "core/planning/BoardGrid.h"
#include "gui/toolkit/Colours.h"

/// The storyboard's told colours on the palette that is shown.
namespace BoardColours {

inline constexpr quint32 kGrey = 0xC0C0C0;

/// Of a row's bar and of the outlines of its cards.
inline QColor row(int row, const QPalette& palette, QPalette::ColorRole ground) {
  return Colours::readable(BoardGrid::rowColour(row), palette, ground, Colours::kLineContrast);
}

/// What cards and names are written in: the text of buttons, where it reads on what is behind.
inline QColor buttonText(const QPalette& palette, QPalette::ColorRole ground) {
  const QColor text = palette.color(QPalette::ButtonText);
  const bool reads = Colours::contrast(text, palette.color(ground)) >= Colours::kEnoughContrast;
  return reads ? text : palette.color(ground == QPalette::Base ? QPalette::Text : QPalette::WindowText);
}

/// The face of the card that the keyboard is on.
inline QColor takenCard(const QPalette& palette) {
  return Colours::mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), 20);
}

/// Between chapters. On a dark board the told grey would be the brightest thing of all.
inline QColor chapterLine(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Window);
  return Colours::textOn(ground) == Qt::black ? Colours::toQt(kGrey)
                                              : Colours::mixed(palette.color(QPalette::WindowText), ground, 35);
}

}  // namespace BoardColours
