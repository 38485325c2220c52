// Characters that come into the scene and go out of it, by mouse and by keys.

#include "core/model/Globals.h"
#include "core/model/StoryCast.h"
#include "core/model/clsProject.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/EditorWindow.h"
#include "gui/shell/RowDrag.h"
#include "gui/views/ListView.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"

#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class CharactersTabTest : public EditorTest {
 protected:
  frmEditor* openTab(qint32 id) {
    frmEditor* const editor = open(id);
    control<QTabWidget>(*editor, "TabStrip1").setCurrentIndex(5);
    return editor;
  }
  ListView& inScene(frmEditor& editor) { return control<ListView>(editor, "ListChar(0)"); }
  ListView& all(frmEditor& editor) { return control<ListView>(editor, "ListChar(1)"); }
  static void select(ListView& list, const QList<int>& rows) {
    list.clearSelection();
    for (const int row : rows) {
      list.selectionModel()->select(list.model()->index(row, 0),
                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  static void press(ListView& list, Qt::Key key) {
    list.setFocus();
    QTest::keyClick(&list, key);
  }
  QString viewpoint(frmEditor& editor) { return control<EditorCombo>(editor, "cmbViewpoint").currentText(); }
  QList<qint32> castOf(qint32 id) { return {scene(id)->CharIDs().begin(), scene(id)->CharIDs().end()}; }

  RowDrag drag;
};

TEST_F(CharactersTabTest, ADropAddsAndTakesOutAndIsSavedAtOnce) {
  frmEditor* const editor = openTab(3);
  type(*editor, u" unsaved"_s);
  select(all(*editor), {1, 2});
  EXPECT_TRUE(drag.drop(all(*editor), inScene(*editor), -1));
  EXPECT_EQ(castOf(3), (QList<qint32>{2, 3}));
  EXPECT_EQ(viewpoint(*editor), u"Zoë"_s) << "the first one tells a scene that nobody told";
  EXPECT_EQ(inScene(*editor).rows().tags(), castOf(3));
  EXPECT_TRUE(g_SceneChanges.HasChanged(3, ChangeArea::MainWindow));
  EXPECT_FALSE(g_Project->HoldsUnsaved());
  EXPECT_EQ(textInFile(3), u"six seven eight nine"_s) << "the text waits for its own save";
  EXPECT_TRUE(editor->isWindowModified());

  select(inScene(*editor), {0});
  EXPECT_TRUE(drag.drop(inScene(*editor), all(*editor), 0));
  EXPECT_EQ(castOf(3), QList<qint32>{3});
  EXPECT_EQ(viewpoint(*editor), u"Пётр"_s);
  trigger(*editor, "mnuSaveAndExit");
  ASSERT_TRUE(g_Project->Load(folder.path(u"Small/Small.qn4"_s), false));
  EXPECT_EQ(castOf(3), QList<qint32>{3});
}

TEST_F(CharactersTabTest, KeysDoTheSame) {
  frmEditor* const editor = openTab(3);
  select(all(*editor), {0});
  press(all(*editor), Qt::Key_Insert);
  EXPECT_EQ(castOf(3), QList<qint32>{1});
  press(all(*editor), Qt::Key_Insert);
  EXPECT_EQ(panel(*editor, 4), u"In this scene already"_s);
  select(inScene(*editor), {0});
  press(inScene(*editor), Qt::Key_Delete);
  EXPECT_EQ(castOf(3), QList<qint32>());
  EXPECT_EQ(viewpoint(*editor), QString());
}

TEST_F(CharactersTabTest, WhoWasDeletedWhileChosenDoesNotTellTheScene) {
  frmEditor* const editor = open();
  QTest::keyClick(&control<EditorCombo>(*editor, "cmbViewpoint"), Qt::Key_Down);
  ASSERT_EQ(viewpoint(*editor), u"Anna"_s);
  StoryCast::remove(CastKind::Character, 1);
  editor->SaveQuietly();
  EXPECT_EQ(castOf(1), QList<qint32>{2});
}

TEST_F(CharactersTabTest, WhatCannotBeSavedIsSaid) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  frmEditor* const editor = openTab(3);
  select(all(*editor), {0});
  {
    const FailingDisk disk(100);
    toolkit.expectBox(u"Unable to save project"_s);
    toolkit.expectFile({});
    toolkit.expectBox(u"Save cancelled"_s);
    press(all(*editor), Qt::Key_Insert);
  }
  EXPECT_EQ(castOf(3), QList<qint32>{1});
  EXPECT_EQ(panel(*editor, 4), u"Changed, but not saved yet"_s);
  EXPECT_TRUE(g_Project->HoldsUnsaved()) << "it is asked about at the end";
  g_Project->RemoveSceneByID(3);
  press(all(*editor), Qt::Key_Insert);
  EXPECT_EQ(panel(*editor, 4), u"This scene isn't in the open project any more"_s);
}

}  // namespace
