// What the tabs show of a scene, what a save takes back from them, and what of it asks for a save.

#include "core/infra/cSHAREDSettings.h"
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
#include "support/WaitFor.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString kQuestion = u"File has been changed.  Save it?"_s;

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

  /// Types over what is in a text of several lines; nothing empties it.
  void typeOver(frmEditor& editor, const char* name, const QString& text) {
    auto& memo = control<MemoEdit>(editor, name);
    memo.selectAll();
    QTest::keyClick(&memo, Qt::Key_Delete);
    QTest::keyClicks(&memo, text);
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
  of.setField(1, 10);
  of.setField(2, 7);
  of.setField(4, 12);
  of.ReactionScene = true;
  of.SubPlot = true;
  of.Hour = 23;
  of.Minute = 9;
  of.LastsDays = 31000;
  of.LastsHours = 99;
  of.LastsMinutes = 45;
  frmEditor* const editor = open();
  const std::pair<const char*, const char*> cases[] = {
      {"txtTitle", "Arrival 1"},
      {"txtGoal", "a goal"},
      {"txtConflict", "a conflict\r\nin two lines"},
      {"txtOutcome", "an outcome"},
      {"txtNotes", "Check the tide."},
      {"cmbStatus", "2nd Edit"},
      {"cmbPlot", "Subplot"},
      {"cmbAction", "Reaction"},
      {"cmbFieldValue(0)", "10"},
      {"cmbFieldValue(1)", "7"},
      {"cmbFieldValue(2)", "1"},
      {"cmbFieldValue(3)", ""},
      {"lblFieldTitle(1)", "Zest & more:"},
      {"txtDay", ""},
      {"cmbHour", "23"},
      {"cmbMinute", "09"},
      {"txtLastsDays", "31000"},
      {"cmbLastsHours", ""},
      {"cmbLastsMinutes", "45"},
      {"cmbViewpoint", "Zoë"},
      {"cmbChapter", "Arrival - 1"},
      {"cmbScene", "Arrival 1 - 1"},
      {"lblGoal(0)", "Reaction"},
      {"lblConflict(0)", "Dilemma"},
      {"lblOutcome(0)", "Choice"},
  };
  for (const auto& [name, text] : cases) {
    EXPECT_EQ(shown(*editor, name), QString::fromUtf8(text)) << name;
  }
  EXPECT_EQ(listed(*editor, "ListChar(0)"), (QList<qint32>{2, 1}));
  EXPECT_EQ(listed(*editor, "ListChar(1)"), (QList<qint32>{1, 2, 3}));

  trigger(*editor, "mnuSave");
  EXPECT_EQ(std::tie(of.Goal, of.Conflict, of.Outcome, of.Notes),
            std::make_tuple(u"a goal"_s, u"a conflict\r\nin two lines"_s, u"an outcome"_s, u"Check the tide."_s));
  EXPECT_EQ(std::make_tuple(of.Status, of.Field(1), of.Field(2), of.Field(3), of.Field(4)),
            std::make_tuple(4, 10, 7, 1, 12))
      << "a rating that was never set is 1, and one beyond the list is left alone";
  EXPECT_TRUE(of.ReactionScene && of.SubPlot);
  EXPECT_EQ(std::make_tuple(of.Day, of.Hour, of.Minute, of.LastsDays, of.LastsHours, of.LastsMinutes),
            std::make_tuple(0, 23, 9, 31000, 99, 45));
  EXPECT_EQ(std::vector<qint32>(of.CharIDs().begin(), of.CharIDs().end()), (std::vector<qint32>{2, 1}));
}

TEST_F(EditorTabsTest, ASaveTakesUpEachFieldAndTheToldOnesAskForOne) {
  struct Case {
    const char* control;
    std::vector<Qt::Key> keys;
    bool marks;
    std::function<QString(clsScene&)> taken = {};
    const char* text = nullptr;
  };
  const auto number = [](auto member) { return [member](clsScene& of) { return QString::number(of.*member); }; };
  const auto text = [](auto member) { return [member](clsScene& of) { return of.*member; }; };
  const Case cases[] = {
      {"txtTitle", {Qt::Key_X}, true, text(&clsScene::Title), "Arrival 1x"},
      {"txtDesc", {Qt::Key_X}, true, text(&clsScene::DescText), "x"},
      {"txtNotes", {Qt::Key_X}, true, text(&clsScene::Notes), "xCheck the tide."},
      {"txtConflict", {Qt::Key_X}, true, text(&clsScene::Conflict), "x"},
      {"txtOutcome", {Qt::Key_X}, true, text(&clsScene::Outcome), "x"},
      {"txtGoal", {Qt::Key_Right}, true},
      {"txtGoal", {Qt::Key_Tab}, false},
      {"txtDesc", {Qt::Key_Right}, false},
      {"cmbAction", {Qt::Key_Down}, true, number(&clsScene::ReactionScene), "1"},
      {"cmbPlot", {Qt::Key_Down}, true, number(&clsScene::SubPlot), "1"},
      {"cmbStatus", {Qt::Key_Down}, true, number(&clsScene::Status), "3"},
      {"cmbViewpoint", {Qt::Key_Down}, true, [](clsScene& of) { return QString::number(of.ViewPointID()); }, "1"},
      {"cmbViewpoint", {Qt::Key_Shift}, true},
      {"cmbFieldValue(2)",
       {Qt::Key_Down, Qt::Key_Down},
       false,
       [](clsScene& of) { return QString::number(of.Field(3)); },
       "3"},
      {"txtDay", {Qt::Key_4, Qt::Key_2}, false, number(&clsScene::Day), "42"},
      {"txtDay", {Qt::Key_9, Qt::Key_9, Qt::Key_9, Qt::Key_9, Qt::Key_9}, false, number(&clsScene::Day), "32767"},
      {"cmbHour", {Qt::Key_Down}, false, number(&clsScene::Hour), "8"},
      {"cmbMinute", {Qt::Key_Down}, false, number(&clsScene::Minute), "1"},
      {"txtLastsDays", {Qt::Key_3}, false, number(&clsScene::LastsDays), "3"},
      {"cmbLastsHours", {Qt::Key_Down}, false, number(&clsScene::LastsHours), "1"},
      {"cmbLastsMinutes", {Qt::Key_Down}, false, number(&clsScene::LastsMinutes), "46"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.control);
    saveSmallProject(folder.path(u"Small/"_s));
    frmEditor* const editor = open();
    if (one.control == std::string_view("txtTitle")) {
      control<QLineEdit>(*editor, "txtTitle").end(false);
    }
    for (const Qt::Key key : one.keys) {
      press(*editor, one.control, key);
    }
    EXPECT_EQ(editor->isWindowModified(), one.marks);
    EXPECT_EQ(editor->HoldsUnsaved(), one.marks);
    trigger(*editor, "mnuSave");
    EXPECT_FALSE(editor->isWindowModified());
    if (one.taken) {
      EXPECT_EQ(one.taken(*scene()), QString::fromLatin1(one.text));
    }
    editor->close();
    deleteUnloaded();
  }
}

TEST_F(EditorTabsTest, ARatingThatWasChosenAndNotSavedGoesWithoutAQuestion) {
  frmEditor* const editor = open();
  press(*editor, "cmbFieldValue(0)", Qt::Key_Down);
  editor->close();
  EXPECT_EQ(scene()->Field(1), 1);
}

TEST_F(EditorTabsTest, TheOverviewMirrorsWhatTheOtherTabsShow) {
  frmEditor* const editor = open();
  press(*editor, "cmbAction", Qt::Key_Down);
  press(*editor, "cmbFieldValue(0)", Qt::Key_Down);
  typeOver(*editor, "txtDesc", u"Told anew"_s);
  typeOver(*editor, "txtOutcome", u"She stays."_s);
  showTab(*editor, 7);
  // Even while it is looked at.
  control<QLineEdit>(*editor, "txtTitle").setText(u"Another title"_s);
  const std::pair<const char*, QString> cases[] = {
      {"lblOVTitle", u"Another title"_s},
      {"txtOVDesc", u"Told anew"_s},
      {"lblOVAction", u"Reaction"_s},
      {"lblOVPlot", u"Main plot"_s},
      {"lblOVStatus", u"Draft"_s},
      {"lblOVRating(0)", g_Project->FieldTitle(1) + u": 2"_s},
      {"lblOVRating(3)", g_Project->FieldTitle(4) + u": 1"_s},
      {"lblGoal(1)", u"R"_s},
      {"lblConflict(1)", u"D"_s},
      {"lblOutcome(1)", u"C"_s},
      {"lblOVGoal", scene()->Goal},
      {"lblOVOutcome", u"She stays."_s},
  };
  for (const auto& [name, text] : cases) {
    EXPECT_EQ(shown(*editor, name), text) << name;
  }
  EXPECT_EQ(control<QWidget>(*editor, "lblOVGoal").accessibleName(), u"Reaction"_s);
}

TEST_F(EditorTabsTest, TheStripHasSignsForWhatIsFilledIn) {
  scene()->Notes.clear();
  frmEditor* const editor = open();
  const auto& strip = control<QTabWidget>(*editor, "TabStrip1");
  const auto signs = [&] { return std::make_pair(!strip.tabIcon(2).isNull(), !strip.tabIcon(4).isNull()); };
  EXPECT_EQ(signs(), std::make_pair(true, false));
  EXPECT_EQ(strip.tabBar()->accessibleTabName(2), u"Goals, filled in"_s);
  typeOver(*editor, "txtNotes", u"A note"_s);
  typeOver(*editor, "txtGoal", {});
  trigger(*editor, "mnuSave");
  EXPECT_EQ(signs(), std::make_pair(false, true));
}

TEST_F(EditorTabsTest, TheTabThatASaveButtonLeftIsShownAgain) {
  for (const auto& [stored, opened] : {std::pair{99, 0}, {-3, 0}, {6, 6}}) {
    Settings().sSet(u"EditorDefaultTab"_s, stored);
    frmEditor* const editor = open();
    EXPECT_EQ(control<QTabWidget>(*editor, "TabStrip1").currentIndex(), opened) << stored;
    showTab(*editor, 3);
    click(*editor, "cmdSaveAndExit");
    deleteUnloaded();
    EXPECT_EQ(Settings().sGet(u"EditorDefaultTab"_s).toInt(), 3);
  }
}

TEST_F(EditorTabsTest, ViewpointDetailsTellOfWhoIsSelected) {
  const auto zoe = g_Project->CharByID(2);
  zoe->AlternateNames = u"Z;The kid"_s;
  zoe->DescText = u"Tall."_s;
  zoe->Goals = u"Out."_s;
  zoe->Bio = u"Born."_s;
  zoe->Notes = u"Check."_s;
  frmEditor* const editor = open();
  const auto details = [&] {
    return QStringList{shown(*editor, "lblFullName"), shown(*editor, "lblAltNames"), shown(*editor, "txtCharDesc"),
                       shown(*editor, "txtCharNotes")};
  };
  EXPECT_EQ(details(), (QStringList{u"Full name: Zoë Marsh"_s, u"AKA: Z;The kid"_s,
                                    u"Tall.\n\nGOALS: Out.\n\nBIO: Born."_s, u"Notes: Check."_s}));
  press(*editor, "cmbViewpoint", Qt::Key_Down);
  EXPECT_EQ(details(), (QStringList{u"Full name: Anna Marsh"_s, u"AKA: "_s, u"No description"_s, u"No notes."_s}));
  toolkit.expectBox(kQuestion, Answer::No);
  editor->close();
  EXPECT_EQ(scene()->ViewPointID(), 2);
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
                                  qint32 tab) -> std::optional<CharacterDetails> {
    EXPECT_EQ(tab, 0);
    asked.append(subject.id);
    CharacterDetails renamed = details;
    renamed.Title += u'!';
    return renamed;
  };
  QList<int> lists;
  entityDialogs().list = [&](int mode, qint32 arg) {
    lists.append(mode);
    EXPECT_EQ(arg, 0);
    g_Project->CharByID(3)->setTitle(u"Peter"_s);
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
  showTab(*editor, 6);
  for (const char* const place : {"lblAltNames", "lblFullName"}) {
    QTest::mouseDClick(&control<QLabel>(*editor, place), Qt::LeftButton);
  }
  for (const char* const place : {"txtCharDesc", "txtCharNotes"}) {
    QTest::mouseDClick(control<QPlainTextEdit>(*editor, place).viewport(), Qt::LeftButton);
  }
  EXPECT_EQ(asked, (QList<qint32>{2, 3, 1, 1, 1, 2})) << "there is no fourth character";
  EXPECT_EQ(panel(*editor, 4), u"There is no such character"_s);
  click(*editor, "cmdAddChar");
  EXPECT_EQ(lists, QList<int>{kListCharacters});
  EXPECT_EQ(all.text(all.rowOfTag(3), 0), u"Peter"_s);
}

TEST_F(EditorTabsTest, HelpTellsOfRatings) {
  frmEditor* const editor = open();
  showTab(*editor, 1);
  toolkit.expectBox(u"You can rate four aspects of this scene from 1 (low) to 10 (high)."_s);
  click(*editor, "cmdHelp");
}

TEST_F(EditorTabsTest, TheTextFillsTheWindowAndStaysSoForTheNextOne) {
  frmEditor* editor = open();
  const auto hidden = [&] { return !control<QTabWidget>(*editor, "TabStrip1").isVisible(); };
  const int height = control<RichTextBox>(*editor, "txtMain").height();
  EXPECT_FALSE(hidden());
  QTest::mouseClick(&control<QToolButton>(*editor, "cmdHide"), Qt::LeftButton);
  EXPECT_TRUE(hidden() && !control<QPushButton>(*editor, "cmdSave").isVisible());
  EXPECT_TRUE(control<RichTextBox>(*editor, "txtMain").hasFocus());
  EXPECT_TRUE(waitFor([&] { return control<RichTextBox>(*editor, "txtMain").height() > height + 100; }));
  editor->close();
  deleteUnloaded();
  editor = open();
  EXPECT_TRUE(hidden());
  QTest::mouseClick(&control<QToolButton>(*editor, "cmdHide"), Qt::LeftButton);
  EXPECT_FALSE(hidden());
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

TEST_F(EditorTabsTest, NoTwoControlsThatAreSeenTogetherHaveTheSameKey) {
  frmEditor* const editor = open();
  QStringList captions;
  for (const QAction* const menu : editor->menuBar()->actions()) {
    captions.append(menu->text());
  }
  for (const QAbstractButton* const button : editor->findChildren<QAbstractButton*>()) {
    captions.append(button->text());
  }
  const auto& strip = control<QTabWidget>(*editor, "TabStrip1");
  for (int tab = 0; tab < strip.count(); ++tab) {
    captions.append(strip.tabText(tab));
  }
  for (const QLabel* const label : editor->findChildren<QLabel*>()) {
    captions.append(label->buddy() != nullptr && label->isVisible() ? label->text() : QString());
  }
  QStringList keys;
  for (const QString& caption : captions) {
    const QKeySequence key = QKeySequence::mnemonic(caption);
    EXPECT_TRUE(key.isEmpty() || !keys.contains(key.toString())) << caption;
    keys.append(key.toString());
  }
  EXPECT_TRUE(keys.contains(u"Alt+H"_s) && keys.contains(u"Alt+D"_s));
  auto& chapters = control<QComboBox>(*editor, "cmbChapter");
  QTest::keyClick(editor, Qt::Key_H, Qt::AltModifier);
  EXPECT_TRUE(chapters.hasFocus());
  QTest::keyClick(editor, Qt::Key_G, Qt::AltModifier);
  EXPECT_EQ(strip.currentIndex(), 2);
}

}  // namespace
