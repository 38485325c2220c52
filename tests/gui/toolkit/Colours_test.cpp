// Told colours on the grounds that desktops put behind them.

#include "gui/toolkit/Colours.h"

#include "gui/views/RowColours.h"

#include <gtest/gtest.h>

namespace {

constexpr quint32 kTold[] = {RowColours::kGreen, RowColours::kGrey, RowColours::kOrange, RowColours::kRed};

QColor shown(quint32 colour, const QColor& ground) {
  QPalette palette;
  palette.setColor(QPalette::Base, ground);
  return Colours::readable(colour, palette);
}

TEST(Colours, StandAsToldOnPaper) {
  for (const QRgb paper : {0xffffff, 0xfdf6e3, 0xf4ecd8, 0xefefef, 0xe0e0e0}) {
    for (const quint32 colour : kTold) {
      EXPECT_EQ(Colours::fromQt(shown(colour, QColor(paper))), colour) << std::hex << paper;
    }
  }
}

TEST(Colours, KeepTheirHueOnADarkGround) {
  for (const QRgb dark : {0x000000, 0x1e1e1e, 0x2b2b2b, 0x002b36, 0x2e3440, 0x3b1f2b}) {
    for (const quint32 colour : kTold) {
      const QColor told = Colours::toQt(colour);
      const QColor counterpart = shown(colour, QColor(dark));
      EXPECT_GE(Colours::contrast(counterpart, QColor(dark)), 4.5) << std::hex << colour << " on " << dark;
      EXPECT_NEAR(counterpart.hslHue(), told.hslHue(), 3) << std::hex << colour << " on " << dark;
      EXPECT_GE(counterpart.lightness(), told.lightness());
    }
    EXPECT_NE(shown(RowColours::kGreen, QColor(dark)), shown(RowColours::kRed, QColor(dark)));
  }
  EXPECT_EQ(shown(RowColours::kOrange, QColor(0x1e1e1e)), Colours::toQt(RowColours::kOrange))
      << "it reads as it is told";
}

TEST(Colours, ReadOnEveryGreyThatIsNoPaper) {
  for (int grey = 0; grey < 210; grey += 5) {
    const QColor ground(grey, grey, grey);
    EXPECT_GE(Colours::contrast(Colours::textOn(ground), ground), 4.5) << grey;
    for (const quint32 colour : kTold) {
      EXPECT_GE(Colours::contrast(shown(colour, ground), ground), 4.5) << std::hex << colour << " on " << grey;
    }
    if (grey >= 150) {
      EXPECT_NE(shown(RowColours::kGreen, ground), shown(RowColours::kRed, ground)) << "darker, and still told apart";
    }
  }
}

TEST(Colours, AreHeldAgainstWhatLiesBehindTheText) {
  QPalette palette(Qt::white);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Window, Qt::black);
  const quint32 red = RowColours::kRed;
  EXPECT_EQ(Colours::readable(red, palette), Colours::toQt(red));
  EXPECT_GE(Colours::contrast(Colours::readable(red, palette, QPalette::Window), Qt::black), 4.5);
}

}  // namespace
