// The menu for the looks of the text: the default font and the two colours.

#include "core/infra/cSHAREDSettings.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorColours.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/FontLists.h"
#include "gui/views/frmPickFont.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class EditorFormatTest : public EditorTest {
 protected:
  RichTextBox& pane(frmEditor& editor) { return control<RichTextBox>(editor, "txtMain"); }
  void pickColour(frmEditor& editor, const char* action, std::optional<quint32> colour) {
    toolkit.expectColour(colour);
    trigger(editor, action);
  }
};

TEST_F(EditorFormatTest, TheDefaultFontIsChosenFromListsAndTheSelectionTakesIt) {
  Settings().sSet(u"EditorFontName"_s, u"Nowhere Serif [Adobe]"_s);
  Settings().sSet(u"EditorFontSize"_s, u"40"_s);
  frmEditor* const editor = open();
  const QString family = fontFamilies().last();
  pane(*editor).select(0, 3);
  {
    const WhenModal cancel([&](QWidget& window) {
      EXPECT_EQ(childOf<QListWidget>(window, u"lstFonts"_s).currentItem()->text(),
                u"Nowhere Serif (replaced by %1)"_s.arg(standInFor(u"Nowhere Serif"_s)));
      EXPECT_EQ(childOf<QListWidget>(window, u"lstSizes"_s).currentItem()->text(), u"40"_s);
      QTest::keyClick(&window, Qt::Key_Escape);
    });
    trigger(*editor, "mnuSelectFont");
  }
  EXPECT_FALSE(editor->isWindowModified());
  {
    const WhenModal choose([&](QWidget& window) {
      auto& fonts = childOf<QListWidget>(window, u"lstFonts"_s);
      auto& sizes = childOf<QListWidget>(window, u"lstSizes"_s);
      fonts.setCurrentRow(fonts.count() - 1);
      sizes.setCurrentItem(sizes.findItems(u"14"_s, Qt::MatchExactly).first());
      QTest::keyClick(&sizes, Qt::Key_Return);
    });
    trigger(*editor, "mnuSelectFont");
  }
  EXPECT_EQ(DefaultFont::fromSettings(), (DefaultFont{family, 14}));
  EXPECT_EQ(control<QComboBox>(*editor, "cmbFont").currentText(), family);
  EXPECT_EQ(pane(*editor).font().family(), family) << "text that states no font has the default one";
  const RichText text = pane(*editor).richText();
  EXPECT_EQ(text.charFormatAt(1).fontName, family);
  EXPECT_EQ(text.charFormatAt(1).halfPoints, 28);
  EXPECT_EQ(text.charFormatAt(5).fontName, u"Arial"_s) << "which is stated";
  trigger(*editor, "mnuSave");
}

TEST_F(EditorFormatTest, ColoursTakeEffectAtOnceAreKeptAndMakeNoUnsavedText) {
  frmEditor* const other = open(2);
  frmEditor* const editor = open();
  const auto stated = [&] { return pane(*editor).richText().charFormatAt(1).colour; };
  pickColour(*editor, "mnuBGColour", 0xE0FFFF);
  EXPECT_EQ(pane(*editor).BackColor(), 0xE0FFFFU);
  EXPECT_EQ(Settings().sGet(u"EditorBG"_s), QString::number(0xE0FFFF));
  click(*other, "cmdSave");
  EXPECT_EQ(EditorColours::fromSettings().EditorBG, 0xE0FFFFU) << "put back by an editor that kept the old one";
  pickColour(*editor, "mnuFGColour", 0x802010);
  EXPECT_EQ(stated(), 0x802010U);
  EXPECT_EQ(Settings().sGet(u"EditorFG"_s), QString::number(0x802010));
  pickColour(*editor, "mnuFGColour", {});
  EXPECT_EQ(stated(), 0x802010U);
  EXPECT_FALSE(editor->isWindowModified());
  type(*editor, u"!"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(readRtf(scene()->TextRTF()).charFormatAt(1).colour, 0x802010U);
  trigger(*editor, "mnuAutomaticColours");
  EXPECT_EQ(stated(), std::nullopt);
  EXPECT_EQ(pane(*editor).palette(), QApplication::palette());
  type(*editor, u"!"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(readRtf(scene()->TextRTF()).charFormatAt(1).colour, std::nullopt);
}

TEST_F(EditorFormatTest, WhatTheDesktopShowsIsNoColourOfTheUsersOwn) {
  const QPalette desktop = QApplication::palette();
  QPalette dark(desktop);
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Base, Qt::black);
  QApplication::setPalette(dark);
  frmEditor* const editor = open();
  pickColour(*editor, "mnuFGColour", 0xFFFFFF);
  type(*editor, u"!"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(readRtf(scene()->TextRTF()).charFormatAt(1).colour, std::nullopt) << "white words on paper";
  QApplication::setPalette(desktop);
}

}  // namespace
