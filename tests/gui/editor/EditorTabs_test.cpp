// What the tabs show of a scene, what a save takes back from them, and what of it asks for a save.

#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/ListView.h"
#include "support/SampleProject.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

class EditorTabsTest : public EditorTest {
 protected:
  void TearDown() override {
    entityDialogs() = {};
    EditorTest::TearDown();
  }

  /// What a control of any kind shows.
  QString shown(frmEditor& editor, const char* name) {
    auto& widget = control<QWidget>(editor, name);
    if (const auto* combo = qobject_cast<QComboBox*>(&widget)) {
      return combo->currentText();
    }
    if (const auto* memo = qobject_cast<MemoEdit*>(&widget)) {
      return memo->Text();
    }
    if (const auto* text = qobject_cast<QPlainTextEdit*>(&widget)) {
      return text->toPlainText();
    }
    if (const auto* label = qobject_cast<QLabel*>(&widget)) {
      return label->text();
    }
    return dynamic_cast<QLineEdit&>(widget).text();
  }

  void showTab(frmEditor& editor, int tab) { control<QTabWidget>(editor, "TabStrip1").setCurrentIndex(tab); }

  /// A key in the control, wherever its tab is.
  void press(frmEditor& editor, const char* name, Qt::Key key) {
    QTest::keyClick(&control<QWidget>(editor, name), key);
  }

  /// All that the book's file would hold of the scene.
  QByteArray stored() const {
    QByteArray xml;
    scene()->DataAsXML(xml, false);
    return xml;
  }

  /// The tags of one of the two lists of characters.
  QList<qint32> listed(frmEditor& editor, const char* name) { return control<ListView>(editor, name).rows().tags(); }
};

TEST_F(EditorTabsTest, AllFieldsAreShownAndGoBackAsTheyWere) {
  clsScene& of = *scene();
  g_Project->setFieldTitle(2, u"Zest & more"_s);
  of.Goal = u"a goal"_s;
  of.Conflict = u"a conflict\r\nin two lines"_s;
  of.Outcome = u"an outcome"_s;
  of.Status = 4;
  for (const auto& [field, value] : {std::pair{1, 10}, {2, 7}, {3, 1}, {4, 12}}) {
    of.setField(field, static_cast<qint16>(value));
  }
  of.ReactionScene = true;
  of.SubPlot = true;
  of.Hour = 23;
  of.Minute = 9;
  of.LastsDays = 31000;
  of.LastsHours = 99;
  of.LastsMinutes = 45;
  const QByteArray before = stored();
  frmEditor* const editor = open();
  const std::pair<const char*, const char*> cases[] = {
      {"txtConflict", "a conflict\r\nin two lines"},
      {"cmbStatus", "2nd Edit"},
      {"cmbFieldValue(0)", "10"},
      {"cmbFieldValue(3)", ""},
      {"lblFieldTitle(1)", "Zest & more:"},
      {"lblFieldTitle(2)", "Rating 3:"},
      {"txtDay", ""},
      {"cmbMinute", "09"},
      {"cmbLastsHours", ""},
      {"lblConflict(0)", "Dilemma"},
  };
  for (const auto& [name, text] : cases) {
    EXPECT_EQ(shown(*editor, name), QString::fromUtf8(text)) << name;
  }
  EXPECT_EQ(listed(*editor, "ListChar(0)"), (QList<qint32>{2, 1}));
  EXPECT_EQ(listed(*editor, "ListChar(1)"), (QList<qint32>{1, 2, 3}));
  trigger(*editor, "mnuSave");
  EXPECT_EQ(stored(), before) << "what a list doesn't hold is left alone";
}

TEST_F(EditorTabsTest, ASaveTakesUpEachFieldAndTheToldOnesAskForOne) {
  struct Case {
    std::vector<const char*> controls;
    Qt::Key key;
    bool marks;
    bool changes;
  };
  const Case cases[] = {
      {{"txtTitle", "txtDesc", "txtNotes", "txtGoal", "txtConflict", "txtOutcome"}, Qt::Key_X, true, true},
      {{"cmbAction", "cmbPlot", "cmbStatus", "cmbViewpoint"}, Qt::Key_Down, true, true},
      {{"cmbFieldValue(2)", "cmbHour", "cmbMinute", "cmbLastsHours", "cmbLastsMinutes"}, Qt::Key_Down, false, true},
      {{"txtDay", "txtLastsDays"}, Qt::Key_4, false, true},
      {{"txtTitle", "txtGoal"}, Qt::Key_Right, true, false},
      {{"txtDesc"}, Qt::Key_Right, false, false},
      {{"txtTitle", "txtGoal"}, Qt::Key_Tab, false, false},
      {{"cmbViewpoint"}, Qt::Key_Shift, true, false},
  };
  const auto expectCase = [&](const char* name, const Case& one) {
    SCOPED_TRACE(name);
    saveSmallProject(folder.path(u"Small/"_s));
    scene()->setField(3, 1);
    frmEditor* const editor = open();
    trigger(*editor, "mnuSave");
    const QByteArray before = stored();
    press(*editor, name, one.key);
    EXPECT_EQ(editor->isWindowModified(), one.marks);
    EXPECT_EQ(editor->HoldsUnsaved(), one.marks);
    trigger(*editor, "mnuSave");
    EXPECT_FALSE(editor->isWindowModified());
    EXPECT_EQ(stored() != before, one.changes);
    editor->close();
    deleteUnloaded();
  };
  for (const Case& one : cases) {
    for (const char* const name : one.controls) {
      expectCase(name, one);
    }
  }
}

TEST_F(EditorTabsTest, WhatChangesInTheBookReachesOpenEditorsAndTakesNoChoiceAway) {
  frmEditor* const editor = open();
  press(*editor, "cmbViewpoint", Qt::Key_Down);
  press(*editor, "cmbStatus", Qt::Key_Down);
  QTest::keyClicks(&control<MemoEdit>(*editor, "txtDesc"), u"typed"_s);
  control<QLineEdit>(*editor, "txtTitle").setText(u"Typed title"_s);
  scene()->AddCharByID(3);
  g_Project->CharByID(1)->setTitle(u"Anne"_s);
  g_Project->ChapterByID(1)->Title = u"Landing"_s;
  g_Project->UpdateCombosInEditorWindows();
  EXPECT_EQ(shown(*editor, "cmbViewpoint"), u"Anne"_s);
  EXPECT_EQ(shown(*editor, "cmbStatus"), u"1st Edit"_s);
  EXPECT_EQ(shown(*editor, "txtDesc"), u"typed"_s);
  EXPECT_EQ(shown(*editor, "cmbScene"), u"Typed title - 1"_s);
  EXPECT_EQ(shown(*editor, "cmbChapter"), u"Landing - 1"_s);
  EXPECT_EQ(panel(*editor, 5), u"Landing"_s);
  EXPECT_EQ(listed(*editor, "ListChar(0)"), (QList<qint32>{2, 1, 3}));
  scene()->RemoveCharByID(1);
  g_Project->UpdateCombosInEditorWindows();
  EXPECT_EQ(shown(*editor, "cmbViewpoint"), u"Zoë"_s) << "who isn't in the scene any more can't tell it";
  trigger(*editor, "mnuSave");
  EXPECT_EQ(scene()->ViewPointID(), 2);
}

TEST_F(EditorTabsTest, ASceneOfNobodyStaysSo) {
  frmEditor* const editor = open(3);
  EXPECT_EQ(shown(*editor, "cmbViewpoint"), QString());
  EXPECT_EQ(shown(*editor, "lblFullName"), u"No viewpoint character"_s);
  click(*editor, "cmdEditChar");
  EXPECT_EQ(panel(*editor, 4), u"No viewpoint character is selected"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(scene(3)->CharCount(), 0);
}

TEST_F(EditorTabsTest, CharactersAreEditedFromEachPlaceThatShowsThem) {
  QList<qint32> asked;
  entityDialogs().character = [&](const SheetSubject& subject, const CharacterDetails& details,
                                  qint32) -> std::optional<CharacterDetails> {
    asked.append(subject.id);
    CharacterDetails renamed = details;
    renamed.Title += u'!';
    return renamed;
  };
  frmEditor* const editor = open();
  g_SceneChanges.ResetChangedByArea(1);
  click(*editor, "cmdEditChar");
  EXPECT_EQ(shown(*editor, "cmbViewpoint"), u"Zoë!"_s);
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, ChangeArea::MainWindow));
  showTab(*editor, 5);
  auto& all = control<ListView>(*editor, "ListChar(1)");
  all.SelectRow(2);
  QTest::keyClick(&all, Qt::Key_Return);
  auto& inScene = control<ListView>(*editor, "ListChar(0)");
  QTest::mouseDClick(inScene.viewport(), Qt::LeftButton, {}, inScene.visualRect(inScene.rows().index(1, 0)).center());
  EXPECT_EQ(asked, (QList<qint32>{2, 3, 1}));
}

TEST_F(EditorTabsTest, TheKeyboardFollowsTheEye) {
  frmEditor* const editor = open();
  auto& text = control<RichTextBox>(*editor, "txtMain");
  control<QWidget>(*editor, "cmbChapter").setFocus();
  QStringList way;
  while (way.size() < 19) {
    QWidget* const here = editor->focusWidget();
    way.append(here->objectName());
    QTest::keyClick(here, Qt::Key_Tab, here == &text ? Qt::ControlModifier : Qt::NoModifier);
  }
  EXPECT_EQ(way.join(u' '),
            u"cmbChapter cmbScene cmdSaveAndPrev cmdSaveAndNext cmbFont cmbFontSize cmdBold cmdItalic "
            "cmdUnderline cmdHide txtMain qt_tabwidget_tabbar txtTitle txtDesc cmbViewpoint cmdAddChar "
            "cmdEditChar cmdSave cmdSaveAndExit"_s);
}

TEST_F(EditorTabsTest, AKeyLeadsToAListAndToATab) {
  frmEditor* const editor = open();
  const auto& strip = control<QTabWidget>(*editor, "TabStrip1");
  auto& chapters = control<QComboBox>(*editor, "cmbChapter");
  QTest::keyClick(editor, Qt::Key_H, Qt::AltModifier);
  EXPECT_TRUE(chapters.hasFocus());
  QTest::keyClick(editor, Qt::Key_G, Qt::AltModifier);
  EXPECT_EQ(strip.currentIndex(), 2);
  EXPECT_TRUE(strip.tabBar()->hasFocus()) << "what is typed next would go into the text";
}

}  // namespace
