// Undo and redo in the editor's window: keys, menu, the fields beside the text.

#include "core/infra/cSHAREDSettings.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class EditorUndoTest : public EditorTest {
 protected:
  void SetUp() override {
    EditorTest::SetUp();
    scene()->setTextRTF(writeRtf(RichText::fromPlain(u"One two three")));
    editor_ = open();
    pane_ = &control<RichTextBox>(*editor_, "txtMain");
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(editor_->focusWidget(), key, modifiers);
  }
  bool isEnabled(const char* entry) { return control<QAction>(*editor_, entry).isEnabled(); }
  bool isEnabledInMenu(const char* entry) {
    Q_EMIT control<QMenu>(*editor_, "mnuEdit").aboutToShow();
    return isEnabled(entry);
  }

  frmEditor* editor_ = nullptr;
  RichTextBox* pane_ = nullptr;
};

TEST_F(EditorUndoTest, KeysAndEntriesTakeTheTextBackAndAgainAndAreThereWhenThereIsSomethingToDo) {
  EXPECT_FALSE(isEnabled("mnuUndo")) << "the text that was opened is the first state";
  type(*editor_, u"xy"_s);
  EXPECT_TRUE(isEnabled("mnuUndo"));
  EXPECT_FALSE(isEnabled("mnuRedo"));
  press(Qt::Key_Z);
  EXPECT_EQ(pane_->Text(), u"One two threex"_s);
  trigger(*editor_, "mnuUndo");
  EXPECT_EQ(pane_->Text(), u"One two three"_s);
  EXPECT_FALSE(isEnabled("mnuUndo"));
  press(Qt::Key_Y);
  press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(pane_->Text(), u"One two threexy"_s);
  EXPECT_FALSE(isEnabled("mnuRedo"));
  trigger(*editor_, "mnuSave");
  EXPECT_EQ(textInFile(), u"One two threexy"_s);
  press(Qt::Key_Z);
  EXPECT_TRUE(editor_->isWindowModified());
  trigger(*editor_, "mnuSaveAndExit");
  EXPECT_EQ(textInFile(), u"One two threex"_s);
}

TEST_F(EditorUndoTest, FormatsAreTakenBackFromTheBarAndTheKeys) {
  pane_->select(4, 3);
  press(Qt::Key_B);
  QTest::mouseClick(&control<QToolButton>(*editor_, "cmdItalic"), Qt::LeftButton);
  pane_->setSelFontSize(20);
  EXPECT_TRUE(pane_->formatAt(5).bold && pane_->formatAt(5).italic);
  for (int i = 0; i < 3; ++i) {
    press(Qt::Key_Z);
  }
  EXPECT_EQ(pane_->formatAt(5), pane_->formatAt(0));
  EXPECT_FALSE(isEnabled("mnuUndo"));
  EXPECT_FALSE(pane_->isEdited());
}

TEST_F(EditorUndoTest, AFormatForWhatIsTypedNextIsNoChangeAndIsTakenBackBeforeTheWords) {
  type(*editor_, u"x"_s);
  trigger(*editor_, "mnuSave");
  for (const Qt::Key key : {Qt::Key_B, Qt::Key_I, Qt::Key_U}) {
    press(key);
  }
  pane_->setSelFontSize(20);
  pane_->setSelFontName(u"Nowhere Serif"_s);
  EXPECT_FALSE(editor_->isWindowModified());
  press(Qt::Key_Z);
  EXPECT_EQ(pane_->Text(), u"One two threex"_s);
  EXPECT_FALSE(pane_->SelBold() || pane_->SelItalic() || pane_->SelUnderline() || pane_->SelFontSize() == 20);
  press(Qt::Key_B);
  QTest::keyClicks(pane_, u"y"_s);
  EXPECT_TRUE(editor_->isWindowModified() && pane_->formatAt(14).bold);
  press(Qt::Key_Z);
  press(Qt::Key_Z);
  EXPECT_EQ(pane_->Text(), u"One two three"_s);
}

TEST_F(EditorUndoTest, AFieldThatIsWrittenInUndoesItsOwnWordsAndLeavesTheTextAlone) {
  type(*editor_, u"x"_s);
  const QString text = pane_->Text();
  auto& title = control<QLineEdit>(*editor_, "txtTitle");
  const QString before = title.text();
  title.setFocus();
  title.end(false);
  EXPECT_FALSE(isEnabledInMenu("mnuUndo")) << "nothing was written here yet";
  QTest::keyClicks(&title, u" more"_s);
  EXPECT_TRUE(isEnabledInMenu("mnuUndo"));
  press(Qt::Key_Z);
  EXPECT_EQ(title.text(), before);
  press(Qt::Key_Y);
  EXPECT_EQ(title.text(), before + u" more"_s);
  trigger(*editor_, "mnuUndo");
  EXPECT_EQ(title.text(), before);

  auto& notes = control<QPlainTextEdit>(*editor_, "txtDesc");
  const QString described = notes.toPlainText();
  notes.setFocus();
  QTest::keyClicks(&notes, u"more"_s);
  press(Qt::Key_Z);
  EXPECT_EQ(notes.toPlainText(), described);
  press(Qt::Key_Y);
  EXPECT_NE(notes.toPlainText(), described);
  EXPECT_EQ(pane_->Text(), text);

  control<QToolButton>(*editor_, "cmdHide").setFocus();
  press(Qt::Key_Z);
  EXPECT_NE(pane_->Text(), text) << "elsewhere in the window the keys are the text's";
}

TEST_F(EditorUndoTest, WhatAnInputMethodIsStillPuttingTogetherIsNeitherSavedNorCounted) {
  pane_->moveCursor(QTextCursor::End);
  QInputMethodEvent composing(u" ni hao"_s, {});
  QCoreApplication::sendEvent(pane_, &composing);
  EXPECT_FALSE(isEnabled("mnuUndo"));
  EXPECT_FALSE(editor_->isWindowModified());
  trigger(*editor_, "mnuSave");
  EXPECT_EQ(textInFile(), u"One two three"_s);
  EXPECT_EQ(panel(*editor_, 3), u"Scene: 3 words"_s);
  QInputMethodEvent composed;
  composed.setCommitString(u" 你好"_s);
  QCoreApplication::sendEvent(pane_, &composed);
  trigger(*editor_, "mnuSave");
  EXPECT_EQ(textInFile(), u"One two three 你好"_s);
  press(Qt::Key_Z);
  EXPECT_EQ(pane_->Text(), u"One two three"_s);
}

}  // namespace
