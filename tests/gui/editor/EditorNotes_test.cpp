// What opens out of the text of a scene: notes in a window of their own, and links.

#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/NoteWindow.h"
#include "gui/views/TextObjects.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kWithNotes =
    "{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\f0\\fs30 a{\\super\\chftn}{\\footnote\\plain{\\super\\chftn} {\\b old} "
    "words}"
    "b{\\*\\atnid J}{\\*\\atnauthor Jane}{\\*\\annotation\\plain why?}\\par}";

class TextObjectsTest : public EditorTest {
 protected:
  RichTextBox& openWith(const QByteArray& rtf) {
    scene()->setTextRTF(rtf);
    editor_ = open();
    return control<RichTextBox>(*editor_, "txtMain");
  }
  void openAtCaret(qsizetype position) {
    control<RichTextBox>(*editor_, "txtMain").setSelStart(position);
    trigger(*editor_, "mnuOpenNote");
  }
  RichText noteAt(qsizetype position) {
    trigger(*editor_, "mnuSave");
    const CharFormat format = readRtf(scene()->TextRTF()).charFormatAt(position);
    return format.object && format.object->content ? *format.object->content : RichText();
  }

  frmEditor* editor_ = nullptr;
};

RichTextBox& noteIn(QWidget& window) {
  return childOf<RichTextBox>(window, u"txtNote"_s);
}

}  // namespace

TEST_F(TextObjectsTest, ANoteIsReadAndChangedInAWindowOfItsOwn) {
  openWith(kWithNotes);
  {
    const WhenModal window([](QWidget& modal) {
      EXPECT_EQ(modal.windowTitle(), u"Footnote"_s);
      EXPECT_EQ(noteIn(modal).Text(), u" old words"_s);
      EXPECT_EQ(childOf<QPushButton>(modal, u"cmdOK"_s).shortcut(), QKeySequence(u"Alt+O"_s));
      QTest::keyClicks(&noteIn(modal), u", new ones"_s);
      QTest::mouseClick(&childOf<QPushButton>(modal, u"cmdOK"_s), Qt::LeftButton);
    });
    openAtCaret(2);
  }
  const RichText note = noteAt(1);
  EXPECT_EQ(note.text(), u" old words, new ones"_s);
  EXPECT_TRUE(note.charFormatAt(1).bold);
  EXPECT_EQ(note.charFormatAt(15).fontName, u"Arial"_s) << "new text has the editor's font";
  EXPECT_TRUE(scene()->TextRTF().contains("{\\super\\chftn}{\\footnote"));
  {
    const WhenModal window([](QWidget& modal) {
      EXPECT_EQ(modal.windowTitle(), u"Comment"_s);
      EXPECT_EQ(noteIn(modal).Text(), u"why?"_s);
      QTest::keyClick(&modal, Qt::Key_Escape);
    });
    openAtCaret(3);
  }
  EXPECT_TRUE(scene()->TextRTF().contains("{\\*\\atnauthor Jane}"));
}

TEST_F(TextObjectsTest, ANoteIsUndoneByItselfAndKeepsItsColours) {
  RichTextBox& pane = openWith("{\\rtf1{\\colortbl;\\red180\\green0\\blue0;}a{\\footnote one {\\cf1 red} word}b}");
  const WhenModal window([](QWidget& modal) {
    EXPECT_TRUE(waitUntilActive(modal));
    RichTextBox& note = noteIn(modal);
    const RichText before = note.richText();
    const qsizetype red = note.Text().indexOf(u"red"_s);
    note.select(red, 5);
    QTest::keyClick(&note, Qt::Key_Delete);
    QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(note.richText(), before);
    EXPECT_TRUE(note.formatAt(red).colour);
    QTest::keyClick(&note, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_FALSE(note.Text().contains(u"red"_s));
    QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  openAtCaret(1);
  EXPECT_FALSE(pane.isEdited());
}

TEST_F(TextObjectsTest, WhoeverLeavesANoteWithChangesIsAsked) {
  RichTextBox& pane = openWith(kWithNotes);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    toolkit.expectBox(u"Do you want to save the changes?"_s, answer);
    const WhenModal window([](QWidget& modal) {
      QTest::keyClicks(&noteIn(modal), u"!"_s);
      QTest::keyClick(&modal, Qt::Key_Escape);
    });
    openAtCaret(1);
    EXPECT_EQ(pane.isEdited(), answer == Answer::Yes);
  }
  EXPECT_EQ(noteAt(1).text(), u" old words!"_s);
}

TEST_F(TextObjectsTest, LinksOpenOnlyToTheWebAndMailAndAfterTheirAddressWasShown) {
  const struct {
    QString address;
    bool mayOpen;
    Answer answer;
  } cases[] = {{u"https://example.org/a?b=1#c"_s, true, Answer::Yes}, {u"mailto:jane@example.org"_s, true, Answer::Yes},
               {u"http://example.org/"_s, true, Answer::No},          {u"file:///etc/passwd"_s, false, Answer::Yes},
               {u"javascript:alert(1)"_s, false, Answer::Yes},        {u"#chapter2"_s, false, Answer::Yes}};
  for (const auto& link : cases) {
    RichTextBox pane;
    const TextObjects objects(pane);
    const qsizetype before = toolkit.openedDocuments.size();
    toolkit.expectBox((link.mayOpen ? u"Open this address?\n\n"_s : u"This link leads to\n\n"_s) + link.address,
                      link.answer);
    Q_EMIT pane.linkActivated(link.address);
    const bool isOpened = link.mayOpen && link.answer == Answer::Yes;
    EXPECT_EQ(toolkit.openedDocuments.mid(before), isOpened ? QStringList{link.address} : QStringList())
        << link.address;
  }
}

TEST_F(TextObjectsTest, InALockedTextANoteIsReadAndNoMore) {
  RichTextBox pane;
  pane.setTextRTF(kWithNotes);
  pane.setLocked(true);
  new TextObjects(pane);
  pane.show();
  const WhenModal window([](QWidget& modal) {
    QTest::keyClicks(&noteIn(modal), u"!"_s);
    QTest::keyClick(&noteIn(modal), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(noteIn(modal).Text(), u" old words"_s);
    EXPECT_FALSE(static_cast<NoteWindow&>(modal).isChanged());
    modal.close();
  });
  pane.setSelStart(1);
  EXPECT_TRUE(pane.openAtCaret());
}

TEST_F(TextObjectsTest, AnEndThatAsksNothingKeepsWhatStandsInANoteOfANote) {
  openWith("{\\rtf1 a{\\footnote outer{\\footnote inner}}\\par}");
  const WhenModal window([this](QWidget& outer) {
    QTest::keyClicks(&noteIn(outer), u"1"_s);
    const WhenModal nested([this, &outer](QWidget& inner) {
      ASSERT_NE(&inner, &outer);
      EXPECT_TRUE(waitUntilActive(inner));
      QTest::keyClicks(&noteIn(inner), u"2"_s);
      editor_->SaveQuietly();
      QTest::keyClick(&inner, Qt::Key_S, Qt::ControlModifier);
    });
    Q_EMIT noteIn(outer).noteActivated(5);
    EXPECT_TRUE(waitUntilActive(outer));
    QTest::keyClick(&outer, Qt::Key_Return, Qt::ControlModifier);
  });
  openAtCaret(1);
  const RichText outer = readRtf(fileBytes(scene()->RTFFileWithPath())).charFormatAt(1).object->content->slice(0);
  EXPECT_EQ(outer.plainText(), u"outer1"_s);
  EXPECT_EQ(outer.charFormatAt(5).object->content->plainText(), u"inner2"_s);
}
