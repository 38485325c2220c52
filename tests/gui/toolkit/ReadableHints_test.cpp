#include "gui/toolkit/ReadableHints.h"

#include "gui/toolkit/Colours.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

/// As desktops make one that says nothing of hints.
QPalette paletteOf(QRgb ground, QRgb text) {
  QPalette palette((QColor(ground)));
  palette.setColor(QPalette::Base, QColor(ground));
  palette.setColor(QPalette::Text, QColor(text));
  palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  return palette;
}

double contrastOfHints() {
  const QPalette palette = QApplication::palette();
  return Colours::contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base));
}

}  // namespace

TEST(ReadableHints, ReadOnEveryGroundAndFollowTheDesktop) {
  const QPalette former = QApplication::palette();
  {
    const ReadableHints hints;
    for (const auto& [ground, text] :
         {std::pair{0x232629U, 0xeff0f1U}, {0xffffffU, 0x000000U}, {0x002b36U, 0x93a1a1U}, {0xfdf6e3U, 0x657b83U}}) {
      QApplication::setPalette(paletteOf(ground, text));
      EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor(ground));
      EXPECT_GE(contrastOfHints(), 4.5) << std::hex << ground;
    }
  }
  QApplication::setPalette(former);
}

TEST(ReadableHints, LeaveAColourThatReads) {
  QPalette palette = paletteOf(0x232629, 0xeff0f1);
  palette.setColor(QPalette::PlaceholderText, QColor(0xc0ffc0));
  EXPECT_EQ(ReadableHints::readable(palette), QColor(0xc0ffc0));
  palette.setColor(QPalette::Button, QColor(0x909090));
  EXPECT_NE(ReadableHints::readable(palette, QPalette::Button), QColor(0xc0ffc0))
      << "it reads on the other ground alone";
}
