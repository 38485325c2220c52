// Names of the book's characters in the text: where they are marked, and what a double click on one opens.

#include "core/infra/cSHAREDSettings.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class CharacterMarksTest : public EditorTest {
 protected:
  void SetUp() override {
    EditorTest::SetUp();
    Settings().sSet(u"HighlightChar"_s, true);
    const auto anna = g_Project->CharByID(1);
    anna->FullName = u"Miss O'Hara"_s;
    anna->AlternateNames = u"Nan; the girl"_s;
    entityDialogs().character = [this](const SheetSubject& subject, const CharacterDetails& details,
                                       qint32) -> std::optional<CharacterDetails> {
      opened_.append(subject.id);
      marksMeanwhile_ = markedIn(*editor_);
      CharacterDetails changed = details;
      changed.Title = newTitle_.isEmpty() ? changed.Title : newTitle_;
      return changed;
    };
  }

  void openWith(const QByteArray& text) {
    scene()->setTextRTF(simpleRtf(text));
    scene()->Save();
    editor_ = open();
  }
  RichTextBox& pane(frmEditor& editor) { return control<RichTextBox>(editor, "txtMain"); }
  TextMarkLayer& layer(frmEditor& editor) { return *pane(editor).findChild<TextMarkLayer*>(); }
  QStringList markedIn(frmEditor& editor) {
    QStringList names;
    for (const TextMark& mark : layer(editor).marks()) {
      names.append(pane(editor).Text().mid(mark.start, mark.length));
    }
    return names;
  }
  void doubleClick(qsizetype position) {
    RichTextBox& text = pane(*editor_);
    QTextCursor cursor(text.document());
    cursor.setPosition(text.toDocument(position));
    const QPoint place = text.cursorRect(cursor).center();
    QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(text.viewport(), Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
  }

  frmEditor* editor_ = nullptr;
  QList<qint32> opened_;
  QStringList marksMeanwhile_;
  QString newTitle_;
};

TEST_F(CharacterMarksTest, NamesAreMarkedFromTheStartAndNothingIsEditedByThat) {
  g_Project->CharByID(3)->setTitle(u"Al"_s);
  g_Project->CharByID(3)->FullName = u"Alfred"_s;
  const QByteArray rtf = simpleRtf("Anna, Annabel, anna, the girl and Nan met Miss O'Hara and Alfred.");
  openWith("Anna, Annabel, anna, the girl and Nan met Miss O'Hara and Alfred.");
  const QStringList all{u"Anna"_s, u"Anna"_s, u"the girl"_s, u"Nan"_s, u"Miss O'Hara"_s};
  EXPECT_EQ(markedIn(*editor_), all) << "one with a title of two letters is marked nowhere";
  EXPECT_FALSE(editor_->isWindowModified());
  trigger(*editor_, "mnuSave");
  EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), rtf);
  type(*editor_, u" Nan"_s);
  trigger(*editor_, "mnuSave");
  EXPECT_EQ(markedIn(*editor_), all + QStringList{u"Nan"_s}) << "a save marks what is new";
  EXPECT_FALSE(scene()->TextRTF().contains("\\cf")) << "no mark is saved";
}

TEST_F(CharacterMarksTest, TheEntryTurnsThemOnAndOffInAllEditors) {
  openWith("Anna");
  frmEditor* const other = open(2);
  pane(*other).setSelText(u"Nan "_s);
  const auto& entry = control<QAction>(*editor_, "mnuChar");
  EXPECT_TRUE(entry.isChecked());
  trigger(*editor_, "mnuChar");
  EXPECT_EQ(markedIn(*editor_), QStringList());
  EXPECT_FALSE(control<QAction>(*other, "mnuChar").isChecked());
  EXPECT_FALSE(Settings().sGet(u"HighlightChar"_s).toBool());
  g_Project->MarkAllCharInEditorWindows();
  EXPECT_EQ(markedIn(*editor_), QStringList()) << "after a sheet was open";
  trigger(*other, "mnuChar");
  EXPECT_TRUE(entry.isChecked());
  EXPECT_EQ(markedIn(*editor_), QStringList{u"Anna"_s});
  EXPECT_EQ(markedIn(*other).value(0), u"Nan"_s);
}

TEST_F(CharacterMarksTest, ADoubleClickOpensTheSheetAndARenameShowsEverywhere) {
  openWith("Anna and Nan, the girl. Miss O'Hara. Boat");
  newTitle_ = u"Boat"_s;
  doubleClick(10);
  EXPECT_EQ(opened_, QList<qint32>{1});
  EXPECT_EQ(marksMeanwhile_, QStringList()) << "names may change";
  EXPECT_EQ(markedIn(*editor_), (QStringList{u"Nan"_s, u"the girl"_s, u"Miss O'Hara"_s, u"Boat"_s}));
  EXPECT_EQ(pane(*editor_).SelStart(), 10);
  EXPECT_EQ(pane(*editor_).SelLength(), 0);
  EXPECT_FALSE(editor_->isWindowModified());
  doubleClick(30);
  EXPECT_EQ(opened_, (QList<qint32>{1, 1})) << "a name with an apostrophe is found";
  pane(*editor_).setSelStart(16);
  trigger(*editor_, "mnuOpenNote");
  EXPECT_EQ(opened_, (QList<qint32>{1, 1, 1})) << "from the keyboard";
}

TEST_F(CharacterMarksTest, ADoubleClickOnAnythingElseSelectsTheWord) {
  openWith("Anna rwong right");
  layer(*editor_).setMarks(TextMark::Kind::Misspelling, {{5, 5, TextMark::Kind::Misspelling}});
  doubleClick(7);
  EXPECT_EQ(pane(*editor_).SelText(), u"rwong"_s);
  doubleClick(13);
  EXPECT_EQ(pane(*editor_).SelText(), u"right"_s);
  EXPECT_TRUE(opened_.isEmpty());
  g_Project->RemoveCharByID(1);
  doubleClick(2);
  EXPECT_TRUE(opened_.isEmpty()) << "whoever was called so has gone";
}

}  // namespace
