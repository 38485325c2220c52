// What becomes of open editors and of their words when the book is replaced, closed or left. The two books have the
// same IDs and the same texts.

#include "core/infra/Paths.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString kQuestion = u"File has been changed.  Save it?"_s;
const QString kCloseFirst = u"Please close all editor windows first"_s;
const QString kCopyIt = u"Please copy its text to keep it."_s;

QMap<QString, QByteArray> filesOf(const QString& book) {
  return filesBelow(QFileInfo(book).path());
}

}  // namespace

class OpenEditorsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    first_ = smallProject(u"First"_s);
    second_ = smallProject(u"Second"_s);
    writeSettings({u"Recent0,"_s + second_});
    start(first_);
  }

  /// The first scene's, with words typed at its end.
  frmEditor& editorWith(const QString& words) {
    window().EditSelectedScene();
    frmEditor& opened = openEditor();
    type(opened, words);
    return opened;
  }
  static void type(frmEditor& editor, const QString& words) {
    auto& pane = childOf<RichTextBox>(editor, u"txtMain"_s);
    pane.moveCursor(QTextCursor::End);
    QTest::keyClicks(&pane, words);
  }
  static bool holds(const frmEditor& editor, const QString& words) {
    return childOf<RichTextBox>(editor, u"txtMain"_s).Text().contains(words);
  }
  static QString panelOf(const frmEditor& editor, int number) {
    return childOf<QLabel>(editor, u"StatusBar1(%1)"_s.arg(number)).text();
  }

  QString first_;
  QString second_;
};

TEST_F(OpenEditorsTest, EachThatHoldsUnsavedTextIsAskedBeforeAnotherBookComes) {
  const QString created = folder.path(u"Third/Third.qn4"_s);
  struct Road {
    const char* entry;
    QString chosen;
    QString leadsTo;
  };
  for (const Road& road : {Road{"mnuLoadProj", second_, second_}, Road{"mnuRecent(2)", {}, second_},
                           Road{"mnuNewProj", created, created}}) {
    SCOPED_TRACE(road.entry);
    start(first_);
    const QMap<QString, QByteArray> others = filesOf(second_);
    const QString words = u" by "_s + QLatin1String(road.entry);
    const frmEditor& edited = editorWith(words);
    sceneAt(2)->Edit();
    toolkit.expectBox(kQuestion, Answer::Cancel);
    trigger(road.entry);
    EXPECT_EQ(g_Project->FileWithPath, first_);
    EXPECT_TRUE(edited.isVisible() && holds(edited, words));
    EXPECT_TRUE(sceneAt(1)->EditingScene() && sceneAt(2)->EditingScene());
    EXPECT_FALSE(isEnabled("mnuProject"));
    toolkit.expectBox(kQuestion, Answer::Yes);
    if (!road.chosen.isEmpty()) {
      toolkit.expectFile(road.chosen);
    }
    trigger(road.entry);
    EXPECT_EQ(g_Project->FileWithPath, road.leadsTo);
    EXPECT_FALSE(window().Editing());
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(isEnabled("mnuProject"));
    EXPECT_TRUE(filesOf(first_).value(u"RTF/RTF_00001.rtf"_s).contains(words.toLatin1()));
    EXPECT_EQ(filesOf(second_), others);
  }
}

TEST_F(OpenEditorsTest, WhatIsNotToBeSavedGoesNoSoonerThanItsBook) {
  const QMap<QString, QByteArray> before = filesOf(first_);
  const frmEditor& edited = editorWith(u" not wanted"_s);
  toolkit.expectBox(kQuestion, Answer::No);
  toolkit.expectFile({});
  trigger("mnuLoadProj");
  EXPECT_EQ(g_Project->FileWithPath, first_);
  EXPECT_TRUE(edited.isVisible() && holds(edited, u" not wanted"_s));
  EXPECT_TRUE(window().Editing());
  EXPECT_FALSE(isEnabled("mnuProject")) << "the scene is open still";
  toolkit.expectBox(kQuestion, Answer::No);
  toolkit.expectFile(second_);
  trigger("mnuLoadProj");
  EXPECT_EQ(g_Project->FileWithPath, second_);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(filesOf(first_), before);
}

TEST_F(OpenEditorsTest, AWindowWhoseBookWasClosedIsThereToBeReadAlone) {
  frmEditor& stray = editorWith({});
  EXPECT_TRUE(window().session().CloseProject());
  EXPECT_TRUE(stray.isVisible()) << "it holds nothing unsaved, and stays";
  EXPECT_EQ(panelOf(stray, 1), u"No longer in the open book"_s);
  type(stray, u" astray"_s);
  EXPECT_FALSE(holds(stray, u" astray"_s)) << "no copy would be made of it";
  auto& text = childOf<RichTextBox>(stray, u"txtMain"_s);
  const RichText before = text.richText();
  text.select(0, 3);
  for (const char* change : {"mnuCutForTitle", "mnuCutForDesc"}) {
    childOf<QAction>(stray, QLatin1String(change)).trigger();
  }
  text.setSelBold(true);
  EXPECT_EQ(text.richText(), before);
  stray.close();
  EXPECT_FALSE(stray.isVisible());
}

TEST_F(OpenEditorsTest, TheTextOfABookThatHasGoneNeverReachesAnother) {
  frmEditor& stray = editorWith(u" astray"_s);
  newProject();
  window().LoadProject(second_, false);
  const QMap<QString, QByteArray> others = filesOf(second_);
  const QByteArray text = sceneAt(1)->TextRTF();
  sceneAt(1)->Edit();
  // Its copies aren't what is looked at here.
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    for (QTimer* const copies : window->findChildren<QTimer*>(u"TimerBackup"_s)) {
      copies->stop();
    }
  }
  for (const char* save : {"mnuSave", "mnuSaveAndExit"}) {
    toolkit.expectBox(kCopyIt);
    childOf<QAction>(stray, QLatin1String(save)).trigger();
  }
  EXPECT_TRUE(soon([&] { return panelOf(stray, 3) == u"Scene: 4 words"_s; }));
  EXPECT_EQ(panelOf(stray, 2), QString()) << "the chapter is another book's";
  toolkit.expectBox(kQuestion, Answer::Yes);
  toolkit.expectBox(kCopyIt);
  stray.close();
  EXPECT_TRUE(stray.isVisible() && holds(stray, u" astray"_s)) << "it can be copied still";
  toolkit.expectBox(kQuestion, Answer::No);
  stray.close();
  EXPECT_FALSE(stray.isVisible());
  EXPECT_TRUE(sceneAt(1)->EditingScene() && sceneAt(1)->Locked()) << "that is the other book's own";
  EXPECT_EQ(sceneAt(1)->TextRTF(), text);
  EXPECT_EQ(filesOf(second_), others);
}

TEST_F(OpenEditorsTest, TheProgramDoesNotEndOverWordsThatNoBookTakes) {
  frmEditor& stray = editorWith(u" astray"_s);
  newProject();
  stray.hide();
  toolkit.expectBox(kCloseFirst);
  window().close();
  EXPECT_EQ(ended, 0);
  EXPECT_TRUE(stray.isVisible()) << "it comes forward";
  // The system doesn't ask.
  window().EndAtOnce();
  EXPECT_EQ(ended, 1);
  const auto kept = filesBelow(Paths::programFolder() + u"Rescue"_s);
  EXPECT_TRUE(std::any_of(kept.begin(), kept.end(), [](const QByteArray& text) { return text.contains(" astray"); }));
}
