// The search of the main window through the whole book, and the problem words of its menu.

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/frmFind.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class SearchCommandsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    writeSettings({u"AskedAboutAutoUpdates,-1"_s, u"BadWord1,fox"_s, u"BadWord3, & so"_s});
    startWith(smallProject());
    write(1, "The fox saw a Fox.");
    write(2, "no animal");
    write(3, "foxfox looked");
    write(4, "ten");
    write(5, "They looked. As foxes");
  }
  static void write(qint32 scene, const QByteArray& words) {
    sceneAt(scene)->setTextRTF(simpleRtf(words));
    sceneAt(scene)->Save();
  }
  frmFind& dialog() { return required(window().findChild<frmFind*>(), u"frmFind"_s); }
  frmFind& ask(const QString& text) {
    trigger("mnuFind");
    EXPECT_TRUE(waitUntilActive(dialog()));
    childOf<QComboBox>(dialog(), u"cmbFind"_s).setEditText(text);
    return dialog();
  }
  void press(const char* button) { childOf<QPushButton>(dialog(), QString::fromLatin1(button)).click(); }
  RichTextBox& body() { return control<RichTextBox>("txtBody"); }
  /// The rows of chapter and scene that are selected, where in the text the hit stands, and the hit.
  QString hit() {
    return u"%1 %2 %3 %4"_s.arg(list("ListChapters").SelectedRow() + 1)
        .arg(list("ListScenes").SelectedRow() + 1)
        .arg(body().SelStart())
        .arg(body().SelText());
  }
  void expectHits(const char* entry, const QStringList& hits) {
    for (const QString& expected : hits) {
      trigger(entry);
      EXPECT_EQ(hit(), expected);
    }
  }
  void expectMiss(const char* entry) {
    toolkit.expectBox(u"No match"_s);
    trigger(entry);
  }
};

TEST_F(SearchCommandsTest, EveryMatchIsShownInTheOrderOfTheBookAndThenNoMore) {
  ask(u"fox"_s);
  EXPECT_FALSE(childOf<QPushButton>(dialog(), u"cmdReplace"_s).isVisible());
  press("cmdFind");
  EXPECT_EQ(hit(), u"1 1 4 fox"_s);
  EXPECT_TRUE(body().isVisible());
  EXPECT_EQ(window().focusWidget(), &body());
  EXPECT_EQ(list("ListScenes").SelectedTags().size(), 1);
  window().activateWindow();
  ASSERT_TRUE(waitUntilActive(window()));
  QTest::keyClick(&body(), Qt::Key_F3);
  EXPECT_EQ(hit(), u"1 1 14 Fox"_s);
  expectHits("cmdFindNext", {u"2 1 0 fox"_s, u"2 1 3 fox"_s, u"3 1 16 fox"_s});
  expectMiss("cmdFindNext");
  expectMiss("cmdFindNext");
  EXPECT_EQ(list("ListChapters").SelectedRow(), 2);
  // From the end, past the last hit, which is the only one of its scene.
  expectHits("mnuFindPrev", {u"2 1 3 fox"_s, u"2 1 0 fox"_s, u"1 1 14 Fox"_s});
  QTest::keyClick(&body(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(hit(), u"1 1 4 fox"_s);
  expectMiss("mnuFindPrev");
  // From the end of the scene where it stands.
  expectHits("mnuFindPrev", {u"1 1 14 Fox"_s});
}

TEST_F(SearchCommandsTest, AnotherSearchBeginsAtTheFirstChapterAndTheSameOneGoesOn) {
  ask(u"fox"_s);
  press("cmdFind");
  press("cmdFind");
  EXPECT_EQ(hit(), u"1 1 14 Fox"_s);
  childOf<QCheckBox>(dialog(), u"chkCaseSensitive"_s).click();
  press("cmdFind");
  EXPECT_EQ(hit(), u"1 1 4 fox"_s);
  press("cmdFind");
  EXPECT_EQ(hit(), u"2 1 0 fox"_s);
  press("cmdFindPrev");
  EXPECT_EQ(hit(), u"1 1 4 fox"_s);
  ask(u"looked"_s);
  press("cmdFind");
  EXPECT_EQ(hit(), u"2 1 7 looked"_s);
  // The dialog begins anew each time that it is asked for.
  ask(u"looked"_s);
  press("cmdFind");
  EXPECT_EQ(hit(), u"2 1 7 looked"_s);
}

TEST_F(SearchCommandsTest, ItGoesOnFromWhatTheWriterSelectsAndFollowsWhatMoves) {
  ask(u"fox"_s);
  press("cmdFind");
  dialog().close();
  click(list("ListChapters"), 2);
  expectHits("cmdFindNext", {u"3 1 16 fox"_s});
  click(list("ListChapters"), 1);
  expectHits("cmdFindNext", {u"2 1 0 fox"_s});
  const QList<qint32> ids(chapterAt(2)->SceneIDs().begin(), chapterAt(2)->SceneIDs().end());
  chapterAt(2)->RemoveSceneByID(ids[0]);
  chapterAt(2)->Addscene(sceneAt(3));
  window().RefreshAll();
  expectHits("cmdFindNext", {u"2 2 3 fox"_s});
  // Another book is searched from its start, though its scenes have the same numbers.
  const QString other = smallProject(u"Other"_s);
  window().LoadProject(other, false);
  write(1, "A fox");
  expectHits("cmdFindNext", {u"1 1 2 fox"_s});
}

TEST_F(SearchCommandsTest, AHitIsSelectedWhereItIsShownAmongObjectsAndHiddenWordsAndIsScrolledTo) {
  QByteArray long_("{\\*\\bkmkstart m}");
  long_ += QByteArray("line\\par ").repeated(300);
  long_ += "{\\v not read}{\\b n}e{\\*\\bkmkend m}edle{\\*\\bkmkstart n}\\par ";
  long_ += QByteArray("line\\par ").repeated(300);
  write(2, long_);
  click(list("ListScenes"), 1);
  ask(u"needle"_s);
  press("cmdFind");
  EXPECT_EQ(body().SelText().remove(QChar(QChar::ObjectReplacementCharacter)), u"needle"_s);
  EXPECT_TRUE(body().viewport()->rect().contains(body().cursorRect()));
  EXPECT_GT(body().verticalScrollBar()->value(), 0);
}

TEST_F(SearchCommandsTest, ProblemWordsContinueWhereTheSearchStands) {
  click(list("ListChapters"), 1);
  expectHits("mnuFindLooked", {u"2 1 7 looked"_s, u"2 1 7 looked"_s});
  expectHits("cmdFindNext", {u"3 1 5 looked"_s});
  expectHits("mnuFindAs", {u"3 1 11 . As "_s});
  click(list("ListChapters"), 0);
  EXPECT_EQ(control<QAction>("mnuUDW(1)").text().remove(u'&'), u"Search for 'fox'"_s);
  EXPECT_EQ(control<QAction>("mnuUDW(2)").data().toString(), u" & so"_s);
  // Behind the last hit, where a predefined word begins its scene anew.
  expectHits("mnuUDW(1)", {u"1 1 4 fox"_s, u"1 1 14 Fox"_s});
  EXPECT_FALSE(isEnabled("UseF3ToFindNext"));
  EXPECT_EQ(control<QAction>("UseF3ToFindNext").statusTip(), QString());
}

TEST_F(SearchCommandsTest, WithoutATextItAsksAndABookWithoutAMatchSaysSo) {
  trigger("cmdFindNext");
  EXPECT_TRUE(dialog().isVisible());
  dialog().close();
  trigger("mnuFindPrev");
  EXPECT_TRUE(dialog().isVisible());
  childOf<QComboBox>(dialog(), u"cmbFind"_s).setEditText(u"never there"_s);
  toolkit.expectBox(u"No match"_s);
  press("cmdFind");
  for (const qint32 id : {1, 2, 3}) {
    g_Project->RemoveChapterByID(id);
  }
  window().RefreshAll();
  expectMiss("cmdFindNext");
  expectMiss("mnuFindPrev");
}
