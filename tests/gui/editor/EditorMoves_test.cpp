// From scene to scene: another window opens, this one saves and goes.

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QShortcut>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Act = std::function<void(frmEditor&)>;

class EditorMovesTest : public EditorTest {
 protected:
  Act press(const char* button) {
    return [this, button](frmEditor& editor) { click(editor, button); };
  }

  /// Chooses from the opened list.
  Act pick(const char* name, int row) {
    return [this, name, row](frmEditor& editor) {
      auto& combo = control<NavigationCombo>(editor, name);
      combo.showPopup();
      combo.view()->setCurrentIndex(combo.model()->index(row, 0));
      QTest::keyClick(combo.view(), Qt::Key_Return);
    };
  }

  static Act key(Qt::Key key) {
    return [key](frmEditor& editor) { QTest::keyClick(&editor, key); };
  }

  /// The scenes of the editors that are there once those that are going have gone.
  QList<qint32> editedAfterMove() {
    QList<qint32> edited;
    EXPECT_TRUE(waitFor([&] {
      deleteUnloaded();
      return editorWindows().size() <= 1;
    }));
    for (const auto& one : g_Project->Scenes) {
      if (one->EditingScene()) {
        edited.append(one->ID());
      }
    }
    return edited;
  }
};

TEST_F(EditorMovesTest, EachWayLeadsToItsSceneWithTheTextSaved) {
  struct Case {
    const char* name;
    qint32 from;
    Act act;
    qint32 to;
  };
  const Case cases[] = {
      {"next in the chapter", 1, press("cmdSaveAndNext"), 2},
      {"next chapter", 2, press("cmdSaveAndNext"), 3},
      {"behind the last chapter", 5, press("cmdSaveAndNext"), 1},
      {"previous in the chapter", 4, press("cmdSaveAndPrev"), 3},
      {"previous chapter", 3, press("cmdSaveAndPrev"), 2},
      {"before the first chapter", 1, press("cmdSaveAndPrev"), 5},
      {"scene from the list", 1, pick("cmbScene", 1), 2},
      {"chapter from the list", 1, pick("cmbChapter", 1), 3},
      {"the same chapter", 2, pick("cmbChapter", 0), 2},
      {"the same scene", 2, pick("cmbScene", 1), 2},
      {"F6", 2, key(Qt::Key_F6), 3},
      {"F6 in the last chapter", 5, key(Qt::Key_F6), 5},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.name);
    Settings().DeleteAllSettings();
    saveSmallProject(folder.path(u"Small/"_s));
    frmEditor* const editor = open(one.from);
    type(*editor, u"!"_s);
    one.act(*editor);
    const bool stays = one.from == one.to;
    if (!stays) {
      EXPECT_TRUE(textInFile(one.from).endsWith(u'!'));
      EXPECT_TRUE(scene(one.from)->SavedByEditor || scene(one.from)->EditingScene());
      EXPECT_TRUE(Settings().IsSettingPresent(u"EditorWindowWidth"_s));
      EXPECT_FALSE(control<QPushButton>(*editor, "cmdSave").isEnabled()) << "a second click would save what is going";
      EXPECT_TRUE(waitFor([&] { return !scene(one.from)->EditingScene(); }));
    } else {
      EXPECT_TRUE(control<QPushButton>(*editor, "cmdSave").isEnabled());
      trigger(*editor, "mnuSave");
    }
    EXPECT_EQ(editedAfterMove(), QList<qint32>{one.to});
    EXPECT_TRUE(scene(one.to)->Locked());
    g_Project->CloseEditorWindows();
    deleteUnloaded();
  }
}

TEST_F(EditorMovesTest, AnEmptyChapterGetsAScene) {
  const std::pair<qint32, Act> cases[] = {
      {2, press("cmdSaveAndNext")}, {1, press("cmdSaveAndPrev")}, {2, pick("cmbChapter", 1)}, {2, key(Qt::Key_F6)}};
  for (const auto& [from, act] : cases) {
    saveSmallProject(folder.path(u"Small/"_s));
    for (const qint32 id : {3, 4}) {
      g_Project->ChapterByID(2)->RemoveSceneByID(id);
      g_Project->RemoveSceneByID(id);
    }
    g_Project->ChapterByID(3)->RemoveSceneByID(5);
    frmEditor* const editor = open(from);
    act(*editor);
    EXPECT_TRUE(waitFor([&, id = from] { return !scene(id)->EditingScene(); }));
    const QList<qint32> edited = editedAfterMove();
    ASSERT_EQ(edited.size(), 1);
    EXPECT_EQ(scene(edited[0])->Title, u"New Scene"_s);
    EXPECT_TRUE(QFile::exists(scene(edited[0])->RTFFileWithPath()));
    g_Project->CloseEditorWindows();
    deleteUnloaded();
  }
}

TEST_F(EditorMovesTest, TheOnlySceneOfABookIsSavedAndItsWindowCloses) {
  for (const qint32 id : {2, 1}) {
    g_Project->RemoveChapterByID(id + 1);
  }
  g_Project->ChapterByID(1)->RemoveSceneByID(2);
  frmEditor* const editor = open();
  type(*editor, u"!"_s);
  click(*editor, "cmdSaveAndNext");
  EXPECT_EQ(editedAfterMove(), QList<qint32>{1});
  EXPECT_TRUE(waitFor([&] { return !scene()->EditingScene(); }));
  EXPECT_EQ(textInFile(), u"one two three!"_s);
}

TEST_F(EditorMovesTest, AnEditorOfTheOtherSceneThatIsOpenComesForward) {
  frmEditor* const editor = open();
  frmEditor* const other = open(2);
  type(*other, u" typed"_s);
  other->showMinimized();
  click(*editor, "cmdSaveAndNext");
  EXPECT_EQ(editedAfterMove(), QList<qint32>{2});
  EXPECT_EQ(editorWindows(), QList<frmEditor*>{other});
  EXPECT_FALSE(other->isMinimized());
  EXPECT_EQ(control<RichTextBox>(*other, "txtMain").Text(), u"four five typed"_s);
}

TEST_F(EditorMovesTest, WhatCannotBeSavedKeepsTheWindowAndItsPlace) {
  frmEditor* const editor = open();
  type(*editor, u"!"_s);
  const QString file = scene()->RTFFileWithPath();
  ASSERT_TRUE(QFile::remove(file) && QDir().mkpath(file));
  for (const Act& act : {press("cmdSaveAndNext"), pick("cmbScene", 1), pick("cmbChapter", 2), key(Qt::Key_F6)}) {
    toolkit.expectBox(u"The text of this scene could not be written to "_s + file);
    act(*editor);
    EXPECT_TRUE(editor->isVisible() && editor->HoldsUnsaved());
    EXPECT_EQ(control<NavigationCombo>(*editor, "cmbScene").currentText(), u"Arrival 1 - 1"_s);
    EXPECT_EQ(control<NavigationCombo>(*editor, "cmbChapter").currentText(), u"Arrival - 1"_s);
    EXPECT_TRUE(control<QPushButton>(*editor, "cmdSaveAndNext").isEnabled());
  }
  EXPECT_EQ(editorWindows(), QList<frmEditor*>{editor});
  ASSERT_TRUE(QDir().rmdir(file));
  trigger(*editor, "mnuSave");
  EXPECT_EQ(textInFile(), u"one two three!"_s);
}

TEST_F(EditorMovesTest, WhatIsTypedWhileTheNextWindowOpensIsSavedTooAndNoFurtherOneOpens) {
  frmEditor* const editor = open();
  toolkit.onYield = [&] {
    type(*editor, u" late"_s);
    Q_EMIT editor->findChild<QShortcut*>()->activated();
  };
  click(*editor, "cmdSaveAndNext");
  EXPECT_EQ(editedAfterMove(), QList<qint32>{2});
  EXPECT_EQ(textInFile(), u"one two three late"_s);
}

}  // namespace
