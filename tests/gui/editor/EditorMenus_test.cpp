// What the Edit menu and the pop-up of the text offer: clipboard and word lookup.

#include "core/infra/cSHAREDSettings.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/PrintedPages.h"
#include "support/SquareLetters.h"
#include "support/WaitFor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class EditorMenusTest : public EditorTest {
 protected:
  void SetUp() override {
    EditorTest::SetUp();
    scene()->setTextRTF("{\\rtf1 one {\\b bold} word\\par}");
    editor_ = open();
    pane_ = &control<RichTextBox>(*editor_, "txtMain");
    QGuiApplication::clipboard()->clear();
  }

  frmEditor* editor_ = nullptr;
  RichTextBox* pane_ = nullptr;
};

TEST_F(EditorMenusTest, WhatIsCutOrCopiedKeepsItsFormatHereAndIsPlainElsewhere) {
  pane_->select(4, 4);
  trigger(*editor_, "mnuCopy");
  const QMimeData& held = required(QGuiApplication::clipboard()->mimeData(), u"clipboard"_s);
  EXPECT_EQ(held.text(), u"bold"_s);
  EXPECT_FALSE(held.hasHtml());
  pane_->setSelStart(0);
  trigger(*editor_, "mnuPaste");
  EXPECT_EQ(pane_->Text(), u"boldone bold word"_s);
  EXPECT_TRUE(pane_->formatAt(0).bold);
  pane_->select(0, 4);
  trigger(*editor_, "mnuCut");
  EXPECT_EQ(pane_->Text(), u"one bold word"_s);
  EXPECT_TRUE(editor_->isWindowModified());
}

TEST_F(EditorMenusTest, TheMenuActsInTheFieldThatHasTheKeyboard) {
  auto& title = control<QLineEdit>(*editor_, "txtTitle");
  title.setText(u"a title"_s);
  title.setFocus();
  title.selectAll();
  pane_->select(0, 3);
  trigger(*editor_, "mnuCut");
  EXPECT_EQ(title.text(), QString());
  EXPECT_EQ(pane_->Text(), u"one bold word"_s);
  QGuiApplication::clipboard()->setText(u"new"_s);
  trigger(*editor_, "mnuPaste");
  EXPECT_EQ(title.text(), u"new"_s);
  control<QPushButton>(*editor_, "cmdSave").setFocus();
  trigger(*editor_, "mnuCopy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one"_s) << "no field has it";
}

TEST_F(EditorMenusTest, AWordIsLookedUpWhereTheSettingsSay) {
  const auto lookUp = [&](qsizetype start, qsizetype length) {
    pane_->select(start, length);
    trigger(*editor_, "mnuDictionary");
  };
  toolkit.expectBox(u"Please select a word"_s);
  lookUp(0, 0);
  toolkit.expectBox(u"Please select a single word"_s);
  lookUp(0, 8);
  lookUp(3, 6);
  EXPECT_EQ(toolkit.openedDocuments.last(), u"https://en.wiktionary.org/wiki/Special:Search?search=bold"_s);
  EXPECT_EQ(Settings().sGet(u"DictionaryURL"_s), u"https://en.wiktionary.org/wiki/Special:Search?search=@@@"_s);
  trigger(*editor_, "mnuThesaurus");
  EXPECT_EQ(toolkit.openedDocuments.last(), u"https://en.wiktionary.org/wiki/Special:Search?search=Thesaurus:bold"_s);
  EXPECT_TRUE(Settings().IsSettingPresent(u"ThesaurusURL"_s));

  Settings().sSet(u"DictionaryURL"_s, u"http://words.example/@@@?again=@@@"_s);
  pane_->setRichText(RichText::fromPlain(u" 100%&é?/ "_s));
  lookUp(0, 10);
  EXPECT_EQ(toolkit.openedDocuments.last(),
            u"http://words.example/100%25%26%C3%A9%3F%2F?again=100%25%26%C3%A9%3F%2F"_s);
}

TEST_F(EditorMenusTest, KeysOfTheText) {
  pane_->setSelStart(5);
  const Qt::Alignment before = pane_->alignment();
  QTest::keyClick(pane_, Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(pane_->SelText(), u"old"_s);
  for (const Qt::Key key : {Qt::Key_L, Qt::Key_E, Qt::Key_R}) {
    QTest::keyClick(pane_, key, Qt::ControlModifier);
  }
  EXPECT_EQ(pane_->SelText(), u"old"_s);
  EXPECT_EQ(pane_->alignment(), before);
  QTest::keyClick(pane_, Qt::Key_Tab);
  EXPECT_EQ(pane_->Text(), u"one b\t word"_s);
}

}  // namespace

TEST_F(EditorMenusTest, TheSceneIsPrintedAsTheBookHoldsIt) {
  const PrintedPages pages;
  type(*editor_, u" unsaved"_s);
  auto& timer = control<QTimer>(*editor_, "TimerBackup");
  for (const QString& text : {u"   one bold word"_s, u"   one bold word unsaved"_s}) {
    const WhenModal whenUp([](QWidget& printer) { childOf<QPushButton>(printer, u"cmdOk"_s).click(); });
    trigger(*editor_, "mnuPrintScene");
    const QStringList printed = textsOf(pages.documents.back().pages.at(0));
    EXPECT_TRUE(printed.contains(text)) << printed.join(u'|');
    // What was typed is kept in the book when the timer comes round.
    timer.start(0);
    ASSERT_TRUE(waitFor([&] { return timer.interval() > 0; }));
  }
}
