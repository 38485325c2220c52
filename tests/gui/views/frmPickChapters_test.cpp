#include "gui/views/frmPickChapters.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PickChaptersTest : public ::testing::Test {
 protected:
  void SetUp() override { makeSmallProject(); }
  void TearDown() override { newProject(); }

  static QComboBox& combo(const QWidget& form, int number) {
    return childOf<QComboBox>(form, u"Combo"_s + QString::number(number));
  }
  static void press(const QWidget& form, const QString& button) { childOf<QPushButton>(form, button).click(); }
  void show(const WhenModal::Act& act) {
    const WhenModal whenUp(act);
    form_.ShowRange();
  }
  QList<qint32> range() const { return {form_.FirstChapter, form_.LastChapter}; }

  ScriptedToolkit toolkit_;
  frmPickChapters form_;
};

}  // namespace

TEST_F(PickChaptersTest, GivesTheRangeOrAllOrNone) {
  show([](const QWidget& form) {
    EXPECT_EQ(combo(form, 1).currentText(), u"1 - Arrival"_s);
    EXPECT_EQ(combo(form, 2).currentText(), u"3 - Cut scenes"_s);
    combo(form, 1).setCurrentIndex(1);
    combo(form, 2).setCurrentIndex(1);
    press(form, u"cmdOk"_s);
  });
  EXPECT_FALSE(form_.Cancelled);
  EXPECT_EQ(range(), (QList<qint32>{2, 2}));
  show([](const QWidget& form) {
    combo(form, 1).setCurrentIndex(2);
    press(form, u"cmdAll"_s);
  });
  EXPECT_FALSE(form_.Cancelled);
  EXPECT_EQ(range(), (QList<qint32>{1, 3}));
  show([](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
  EXPECT_TRUE(form_.Cancelled);
}

TEST_F(PickChaptersTest, ALastChapterBeforeTheFirstIsRefusedAndTheWindowStays) {
  toolkit_.expectBox(u"Last file must come after first file. Please change one or the other."_s);
  show([](QWidget& form) {
    combo(form, 2).setCurrentIndex(0);
    combo(form, 1).setCurrentIndex(2);
    press(form, u"cmdOk"_s);
    EXPECT_TRUE(form.isVisible());
    press(form, u"cmdCancel"_s);
  });
  EXPECT_TRUE(form_.Cancelled);
}

TEST_F(PickChaptersTest, ABookWithoutChaptersHasNothingToPick) {
  newProject();
  form_.Cancelled = false;
  toolkit_.expectBox(u"Your project does not contain any chapters"_s);
  form_.ShowRange();
  EXPECT_TRUE(form_.Cancelled);
}
