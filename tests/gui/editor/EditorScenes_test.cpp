// From the text into the book: scenes that are added and split, passages that become title or description, and what a
// reader outside gets.

#include "core/infra/FolderLock.h"
#include "core/infra/Paths.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/FailingDisk.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class EditorScenesTest : public EditorTest {
 protected:
  frmEditor* openWith(const RichText& text) {
    scene()->setTextRTF(writeRtf(text));
    scene()->Save();
    g_Project->SaveQN4(false);
    return open();
  }
  frmEditor* openWith(const QString& text) { return openWith(RichText::fromPlain(text)); }
  RichTextBox& pane(frmEditor& editor) { return control<RichTextBox>(editor, "txtMain"); }
  void split(frmEditor& editor, int index = 2) {
    trigger(editor, u"mnuSplitScene(%1)"_s.arg(index).toLatin1().constData());
  }
  void expectSure() { toolkit.expectBox(u"Are you sure you want to split this scene on '"_s, Answer::Yes); }
  static QList<qint32> scenesOfChapter(qint32 id = 1) {
    const auto& ids = g_Project->ChapterByID(id)->SceneIDs();
    return {ids.begin(), ids.end()};
  }
  QStringList textsOfChapter() const {
    QStringList texts;
    for (const qint32 id : scenesOfChapter()) {
      texts.append(scene(id)->ConvertedToBodyText());
    }
    return texts;
  }
  /// Without the copies of texts that a save makes.
  QMap<QString, QByteArray> filesOfBook() const {
    auto files = filesBelow(folder.path(u"Small"_s));
    files.removeIf([](const auto& file) { return file.key().startsWith(u"Autobackups/"_s); });
    return files;
  }
  void reload() { EXPECT_TRUE(g_Project->Load(folder.path(u"Small/Small.qn4"_s), false)); }
};

/// Twenty separators among formats, objects and a numbered list.
RichText motleyScenes() {
  RichText text;
  for (int i = 0; i <= 20; ++i) {
    RichText piece = RichText::fromPlain(u" the end\r\nplain, bold\r\nfirst\r\nsecond\r\nlast "_s);
    piece.formatCharacters(17, 4, [](CharFormat& format) { format.bold = true; });
    piece.formatParagraphs(23, 14, [](ParagraphFormat& format) {
      format.list.style = ListMark::Style::Decimal;
      format.leftIndent = 300;
    });
    InlineObject note{.kind = InlineObject::Kind::Footnote, .isNumbered = true};
    note.content = std::make_shared<RichText>(RichText::fromPlain(u"Note %1"_s.arg(i)));
    piece.insert(10, RichText::fromObject(std::make_shared<InlineObject>(note)));
    text.append(piece);
    text.append(i < 20 ? u"* * *"_s : QString());
  }
  return text;
}

TEST_F(EditorScenesTest, APieceKeepsAllThatTheTextHolds) {
  frmEditor* const editor = openWith(motleyScenes());
  const RichText whole = pane(*editor).namedRichText();
  expectSure();
  split(*editor, 0);
  const QList<qint32> ids = scenesOfChapter();
  ASSERT_EQ(ids.size(), 22);
  const QStringList expected = whole.text().split(u"* * *"_s);
  qsizetype at = 0;
  for (qsizetype i = 0; i < expected.size(); ++i) {
    const RichText piece = i == 0 ? pane(*editor).namedRichText() : readRtf(scene(ids[i])->TextRTF());
    EXPECT_EQ(piece, whole.slice(at, expected[i].size())) << i;
    at += expected[i].size() + 5;
  }
}

TEST_F(EditorScenesTest, ThePiecesStandInOrderBehindTheirSceneAndAreOnTheDiskAtOnce) {
  scene(2)->Title = u"Next"_s;
  frmEditor* const editor = openWith(u"one words # two # three"_s);
  expectSure();
  split(*editor);
  EXPECT_EQ(pane(*editor).Text(), u"one words "_s);
  EXPECT_EQ(pane(*editor).SelStart(), 10);
  EXPECT_TRUE(editor->isWindowModified()) << "the shorter text comes with the next save";
  EXPECT_EQ(control<NavigationCombo>(*editor, "cmbScene").count(), 4);
  EXPECT_EQ(control<NavigationCombo>(*editor, "cmbScene").currentIndex(), 0);
  const QList<qint32> ids = scenesOfChapter();
  const auto second = scene(ids[1]);
  EXPECT_EQ(second->Title, u"Scene"_s);
  EXPECT_EQ(second->ViewPointID(), 2);
  EXPECT_EQ(second->CharCount(), 1);
  EXPECT_EQ(second->Wordcount(), 1);
  EXPECT_TRUE(g_SceneChanges.HasChanged(ids[1], ChangeArea::MainWindow));

  const QByteArray book = fileBytes(folder.path(u"Small/Small.qn4"_s));
  EXPECT_TRUE(book.contains(second->RTFFilename().toLatin1()));
  EXPECT_EQ(textInFile(), u"one words # two # three"_s) << "words twice, and none lost";
  trigger(*editor, "mnuSaveAndExit");
  EXPECT_EQ(textInFile(), u"one words "_s);
  reload();
  EXPECT_EQ(textsOfChapter(), (QStringList{u"one words "_s, u" two "_s, u" three"_s, u"four five"_s}));
}

TEST_F(EditorScenesTest, TheWayBackEndsAtASplitSoThatNoWordsComeTwice) {
  frmEditor* const editor = openWith(u"one words # two"_s);
  type(*editor, u"x"_s);
  expectSure();
  split(*editor);
  EXPECT_EQ(panel(*editor, 3), u"Scene: 2 words"_s);
  QTest::keyClick(editor, Qt::Key_Y, Qt::ControlModifier);
  type(*editor, u"y"_s);
  for (const QString& told :
       {u"The scene is split into 2"_s, u"The split can't be undone here: its scenes are in the book"_s}) {
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pane(*editor).Text(), u"one words "_s);
    EXPECT_EQ(panel(*editor, 4), told);
  }
  EXPECT_EQ(scene(scenesOfChapter()[1])->ConvertedToBodyText(), u" twox"_s);
}

TEST_F(EditorScenesTest, ATextThatChangesWhileItIsSplitStaysWholeAndThatIsTold) {
  frmEditor* const editor = openWith(u"one # two"_s);
  toolkit.expectBox(u"Are you sure"_s, Answer::Yes);
  toolkit.expectBox(u"this scene keeps all of it. What was to be cut off stands in 1 scene behind it, too."_s);
  toolkit.onYield = [&] { type(*editor, u"x"_s); };
  split(*editor);
  EXPECT_TRUE(pane(*editor).Text().contains(u"# two"));
  EXPECT_EQ(panel(*editor, 4), QString());
}

TEST_F(EditorScenesTest, SeparatorsMayStandAnywhere) {
  struct Case {
    const char* what;
    QString text;
    QStringList pieces;
  };
  const Case cases[] = {
      {"at the very beginning", u"#a"_s, {{}, u"a"_s}},
      {"at the very end", u"a#"_s, {u"a"_s, {}}},
      {"alone", u"#"_s, {{}, {}}},
      {"side by side", u"a##b"_s, {u"a"_s, {}, u"b"_s}},
      {"on a line of its own", u"a\r\n#\r\nb"_s, {u"a\r\n"_s, u"\r\nb"_s}},
  };
  for (const Case& one : cases) {
    EditorTest::SetUp();
    frmEditor* const editor = openWith(one.text);
    expectSure();
    split(*editor);
    trigger(*editor, "mnuSaveAndExit");
    EXPECT_EQ(textsOfChapter(), one.pieces + QStringList{u"four five"_s}) << one.what;
  }
}

TEST_F(EditorScenesTest, ACustomSeparatorIsAskedForAndIsTakenAsItStands) {
  frmEditor* const editor = openWith(u"a%-%b%-%%c"_s);
  toolkit.expectFile({});
  split(*editor, 3);
  EXPECT_EQ(scenesOfChapter().size(), 2) << "cancelled";
  toolkit.expectFile(u"%-%"_s);
  expectSure();
  split(*editor, 3);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(textsOfChapter(), (QStringList{u"a"_s, u"b"_s, u"%c"_s, u"four five"_s}));
}

TEST_F(EditorScenesTest, WhatCannotBeSplitIsLeftAsItIsAndTheReasonTold) {
  frmEditor* const editor = openWith(u"a#b"_s);
  const auto before = filesOfBook();
  toolkit.expectBox(u"I can't see any * * * separators in the text. Split cancelled."_s);
  split(*editor, 0);
  toolkit.expectBox(u"Are you sure"_s, Answer::No);
  split(*editor);
  const auto chapter = g_Project->ChapterByID(1);
  chapter->RemoveSceneByID(1);
  toolkit.expectBox(u"stands in no chapter"_s);
  split(*editor);
  chapter->InsertScene(scene(), 1);
  EXPECT_EQ(filesOfBook(), before);
  EXPECT_FALSE(editor->isWindowModified());
  g_Project->RemoveSceneByID(1);
  toolkit.expectBox(u"isn't in the open project any more"_s);
  split(*editor);
  EXPECT_EQ(pane(*editor).Text(), u"a#b"_s);
}

TEST_F(EditorScenesTest, AReadOnlyBookIsNotSplit) {
  scene()->setTextRTF(simpleRtf("a#b"));
  scene()->Save();
  newProject();
  const FolderLock elsewhere(folder.path(u"Small/"_s));
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  reload();
  toolkit.expectBox(u"The book was opened read-only"_s);
  split(*open());
  EXPECT_EQ(textsOfChapter(), (QStringList{u"a#b"_s, u"four five"_s}));
}

TEST_F(EditorScenesTest, AFailureOnTheWayLeavesTheBookAsItWas) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  struct Case {
    const char* what;
    QString text;
    qint64 room;
    bool asksForAnotherPlace;
  };
  const Case cases[] = {{"the second piece", u"a#b#"_s + u"words "_s.repeated(20000) + u"#c"_s, 50000, false},
                        {"the project file", u"a#b#c#c"_s, 2000, true}};
  for (const Case& one : cases) {
    EditorTest::SetUp();
    frmEditor* const editor = openWith(one.text);
    const auto before = filesOfBook();
    const QList<qint32> scenes = scenesOfChapter();
    FailingDisk disk(one.room);
    expectSure();
    if (one.asksForAnotherPlace) {
      toolkit.expectBox(u"Unable to save project"_s);
      toolkit.expectFile({});
      toolkit.expectBox(u"Save cancelled"_s);
    }
    toolkit.expectBox(u"The scene was not split, and nothing has changed."_s);
    split(*editor);
    disk.clear();
    EXPECT_EQ(filesOfBook(), before) << one.what;
    EXPECT_EQ(scenesOfChapter(), scenes) << one.what;
    EXPECT_EQ(g_Project->SceneCount(), 5) << one.what;
    EXPECT_EQ(pane(*editor).Text(), one.text) << one.what;
    expectSure();
    split(*editor);
    EXPECT_EQ(scenesOfChapter().size(), 5) << one.what << ": the cause has gone";
    trigger(*editor, "mnuSaveAndExit");
  }
}

TEST_F(EditorScenesTest, NewScenesGoToTheEndOrBehindThisOne) {
  frmEditor* const editor = open();
  type(*editor, u" more"_s);
  const auto add = [&](const char* entry, const QString& text) {
    const WhenModal write([&](QWidget& window) {
      auto& fresh = dynamic_cast<frmEditor&>(window);
      type(fresh, text);
      trigger(fresh, "mnuSaveAndExit");
    });
    trigger(*editor, entry);
  };
  add("mnuNewScene", u"at the end"_s);
  add("mnuInsertScene", u"behind"_s);
  EXPECT_EQ(textsOfChapter(), (QStringList{u"one two three more"_s, u"behind"_s, u"four five"_s, u"at the end"_s}));
  EXPECT_EQ(textInFile(), u"one two three more"_s) << "this one is saved first";
  const auto& list = control<NavigationCombo>(*editor, "cmbScene");
  EXPECT_EQ(list.count(), 4);
  EXPECT_EQ(list.currentIndex(), 0);
  {
    const WhenModal giveUp([](QWidget& window) { window.close(); });
    trigger(*editor, "mnuInsertScene");
  }
  EXPECT_EQ(scenesOfChapter().size(), 4);
}

TEST_F(EditorScenesTest, ASelectionBecomesTheTitleOrTheDescription) {
  frmEditor* const editor = openWith(u"The pier\r\nat night. Rain."_s);
  EXPECT_FALSE(control<QAction>(*editor, "mnuCutForTitle").isEnabled()) << "nothing is selected";
  pane(*editor).select(0, 18);
  trigger(*editor, "mnuCutForTitle");
  EXPECT_EQ(control<QLineEdit>(*editor, "txtTitle").text(), u"The pierat night"_s);
  EXPECT_EQ(pane(*editor).Text(), u". Rain."_s);
  EXPECT_TRUE(editor->isWindowModified());
  pane(*editor).select(2, 5);
  trigger(*editor, "mnuCutForDesc");
  EXPECT_EQ(control<MemoEdit>(*editor, "txtDesc").Text(), u"Rain."_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(scene()->Title, u"The pierat night"_s);
  EXPECT_EQ(scene()->DescText, u"Rain."_s);
  EXPECT_EQ(textInFile(), u". "_s);
  auto& title = control<QLineEdit>(*editor, "txtTitle");
  title.undo();
  EXPECT_EQ(title.text(), u"Arrival 1"_s) << "the title that was replaced";
}

TEST_F(EditorScenesTest, WhatIsNoTextInACutPassageStaysInTheScene) {
  frmEditor* const editor = openWith(motleyScenes().slice(0, 30));
  auto& text = pane(*editor);
  const QString words = text.Text().sliced(1, 20);
  const qsizetype note = text.Text().indexOf(QChar::ObjectReplacementCharacter);
  const auto object = text.objectAt(note);
  text.select(1, 20);
  trigger(*editor, "mnuCutForTitle");
  EXPECT_EQ(text.Text().first(2), u" \uFFFC"_s);
  EXPECT_EQ(text.objectAt(1), object);
  EXPECT_EQ(panel(*editor, 4), u"What is no text stays in the scene"_s);
  EXPECT_EQ(control<QLineEdit>(*editor, "txtTitle").text(),
            QString(words).remove(u"\r\n"_s).remove(QChar(QChar::ObjectReplacementCharacter)));
  text.select(1, 1);
  trigger(*editor, "mnuCutForDesc");
  EXPECT_EQ(text.objectAt(1), object);
  EXPECT_EQ(panel(*editor, 4), u"There are no words in the selection"_s);
}

TEST_F(EditorScenesTest, TheReaderGetsTheTextAsItStandsNow) {
  frmEditor* const editor = open();
  type(*editor, u" unsaved"_s);
  trigger(*editor, "mnuPageling");
  const QString file = Paths::programFolder() + u"plbook_temp_text.plrtf"_s;
  EXPECT_EQ(toolkit.openedDocuments, QStringList{file});
  EXPECT_EQ(rtfToPlainText(fileBytes(file)), u"one two three unsaved"_s);
  EXPECT_TRUE(editor->isWindowModified());
}

}  // namespace
