#include "gui/toolkit/MemoEdit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(MemoEdit, GivesBackWhatItWasGivenUntilItIsEdited) {
  MemoEdit memo;
  for (const QString& text : {u""_s, u"one\r\ntwo"_s, u"lone\nfeed"_s, u"return\ronly"_s, u"no\u00a0break\u2028here"_s,
                              u"ends\r\n"_s, u"tab\tand\u000bmore"_s}) {
    memo.setText(text);
    EXPECT_EQ(memo.Text(), text);
  }
}

TEST(MemoEdit, AnEditedTextHasLinesThatEndInCrLfAndKeepsItsNoBreakSpaces) {
  MemoEdit memo;
  memo.setText(u"10\u00a0miles\r\nsouth"_s);
  memo.moveCursor(QTextCursor::End);
  QTest::keyClicks(&memo, u"!"_s);
  QTest::keyClick(&memo, Qt::Key_Return);
  QTest::keyClicks(&memo, u"x"_s);
  QTest::keyClick(&memo, Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClicks(&memo, u"y"_s);
  EXPECT_EQ(memo.Text(), u"10\u00a0miles\r\nsouth!\r\nx\r\ny"_s);
}

TEST(MemoEdit, PastingFromAnEmptyClipboardPutsNothingIn) {
  MemoEdit memo;
  memo.setText(u"kept"_s);
  QGuiApplication::clipboard()->setMimeData(new QMimeData);
  QTest::keyClick(&memo, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(memo.Text(), u"kept"_s);
}

}  // namespace
