// The list of words: what it shows, how a click on a title sorts it, and how the editor opens it.

#include "gui/views/frmWordCount.h"

#include "core/infra/clsHashTable.h"
#include "core/text/modWordcount.h"
#include "gui/editor/EditorStatusBar.h"
#include "gui/editor/EditorWindow.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

QTreeView& listIn(const frmWordCount& form) {
  return childOf<QTreeView>(form, u"ListView1"_s);
}

QString shownIn(const frmWordCount& form) {
  const QAbstractItemModel& rows = *listIn(form).model();
  QStringList shown;
  for (int row = 0; row < rows.rowCount(); ++row) {
    shown += rows.index(row, 0).data().toString() + u' ' + rows.index(row, 1).data().toString();
  }
  return shown.join(u", "_s);
}

QString sumsOf(const frmWordCount& form) {
  return childOf<QLabel>(form, u"lblInfo"_s).text();
}

void clickTitle(const frmWordCount& form, int column) {
  QHeaderView* const header = listIn(form).header();
  const QPoint at(header->sectionViewportPosition(column) + header->sectionSize(column) / 3, header->height() / 2);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
}

TEST_F(EditorTest, WordsStandInTheOrderOfTheTableOrByCountAndATitleSortsThem) {
  clsHashTable table;
  BreakAndHash(table, u"zebra apple apple. Éclair egg egg egg eleven-egg zebra sea"_s);
  frmWordCount form;
  form.FillForm(table);
  EXPECT_EQ(shownIn(form), u"Zebra 2, Apple 2, Éclair 1, Egg 4, Eleven 1, Sea 1"_s);
  EXPECT_EQ(sumsOf(form), u"Total words: 11 Unique: 6"_s);
  form.FillForm(table, true);
  EXPECT_EQ(shownIn(form), u"Egg 4, Zebra 2, Apple 2, Éclair 1, Eleven 1, Sea 1"_s);
  EXPECT_EQ(toolkit.pointer, Pointer::Normal);
  form.show();
  ASSERT_TRUE(waitUntilShown(form));
  QTreeView& list = listIn(form);
  list.setCurrentIndex(list.model()->index(0, 0));
  clickTitle(form, 1);
  EXPECT_TRUE(shownIn(form).endsWith(u"Zebra 2, Apple 2, Egg 4"_s));
  EXPECT_EQ(list.currentIndex().data(), u"Egg"_s) << "the selection stays with its word";
  clickTitle(form, 1);
  EXPECT_TRUE(shownIn(form).startsWith(u"Egg 4, Zebra 2"_s)) << "by number, not by digits";
  clickTitle(form, 0);
  EXPECT_TRUE(shownIn(form).startsWith(u"Apple 2, "_s) && shownIn(form).endsWith(u"Zebra 2"_s));
  const QHeaderView& header = *list.header();
  EXPECT_TRUE(header.sortIndicatorSection() == 0 && header.sortIndicatorOrder() == Qt::AscendingOrder);
  QTest::keyClick(&list, Qt::Key_1, Qt::ControlModifier);
  EXPECT_TRUE(shownIn(form).startsWith(u"Zebra 2, "_s) && shownIn(form).endsWith(u"Apple 2"_s));
}

TEST_F(EditorTest, NumbersHaveTheSeparatorsOfTheWritersLanguage) {
  clsHashTable table;
  BreakAndHash(table, u"tide "_s.repeated(1234));
  frmWordCount form;
  form.FillForm(table, true);
  EXPECT_EQ(shownIn(form), u"Tide 1,234"_s);
  EXPECT_EQ(sumsOf(form), u"Total words: 1,234 Unique: 1"_s);
  scene()->setTextRTF(simpleRtf(QByteArray("tide ").repeated(1234)));
  const frmEditor* const editor = open();
  EXPECT_EQ(panel(*editor, EditorStatusBar::sceneWords), u"Scene: 1,234 words"_s);
  EXPECT_EQ(panel(*editor, EditorStatusBar::chapterWords), u"Chapter: 1,236 words"_s);
}

TEST_F(EditorTest, ShowsTheWordUsageOfTheTextAsItStandsInTheWindow) {
  frmEditor* const editor = open();
  type(*editor, u" Two. ten times ten don't"_s);
  trigger(*editor, "mnuTop20");
  const QPointer<frmWordCount> form = editor->findChild<frmWordCount*>();
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->isModal());
  EXPECT_TRUE(shownIn(*form).startsWith(u"Two 2, Ten 2, "_s)) << shownIn(*form);
  EXPECT_TRUE(shownIn(*form).contains(u"Don’t 1"_s));
  EXPECT_EQ(sumsOf(*form), u"Total words: 8 Unique: 6"_s);
  QTest::keyClick(form, Qt::Key_Escape);
  deleteUnloaded();
  EXPECT_EQ(form, nullptr);
  scene(2)->setTextRTF({});
  frmEditor* const other = open(2);
  trigger(*other, "mnuTop20");
  const frmWordCount* const empty = other->findChild<frmWordCount*>();
  EXPECT_EQ(empty == nullptr ? QString() : sumsOf(*empty), u"Total words: 0 Unique: 0"_s);
}

}  // namespace
