#include "gui/editor/EditorColours.h"

#include "core/infra/cSHAREDSettings.h"
#include "gui/toolkit/RichTextBox.h"

#include <QApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorColoursTest : public ::testing::Test {
 protected:
  void SetUp() override { Settings().DeleteAllSettings(); }
};

TEST_F(EditorColoursTest, ComeBackFromTheSettingsInAnySpelling) {
  EXPECT_EQ(EditorColours::fromSettings().EditorBG, 0x80000005U);
  EXPECT_EQ(EditorColours::fromSettings().textColour(), std::nullopt) << "without settings";
  EditorColours{0x80000005U, 0x0000FFU}.toSettings();
  EXPECT_EQ(EditorColours::fromSettings().EditorBG, 0x80000005U);
  EXPECT_EQ(EditorColours::fromSettings().textColour(), 0x0000FFU);
  const std::pair<QString, quint32> spellings[] = {
      {u" 255 "_s, 255}, {u"-2147483640 "_s, 0x80000008U}, {u"2147483656"_s, 0x80000008U},
      {u" 0 "_s, 0},     {u"red"_s, 0x80000008U},          {u"1e30"_s, 0x80000008U}};
  for (const auto& spelling : spellings) {
    Settings().sSet(u"EditorFG"_s, spelling.first);
    EXPECT_EQ(EditorColours::fromSettings().EditorFG, spelling.second) << spelling.first;
  }
}

TEST_F(EditorColoursTest, AutomaticTextIsReadableOnABackgroundOfTheUsersOwn) {
  const QPalette desktop = QApplication::palette();
  QPalette dark;
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Base, Qt::black);
  QApplication::setPalette(dark);
  {
    RichTextBox pane;
    EditorColours{0xE0FFFFU, Colours::systemWindowText}.applyTo(pane);
    EXPECT_EQ(pane.palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0xE0));
    EXPECT_EQ(pane.palette().color(QPalette::Text), QColor(Qt::black));
    RichTextBox plain;
    EditorColours{}.applyTo(plain);
    EXPECT_EQ(plain.palette().color(QPalette::Text), QColor(Qt::white));
  }
  QApplication::setPalette(desktop);
}

}  // namespace
