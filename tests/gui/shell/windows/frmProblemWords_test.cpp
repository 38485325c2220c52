// The list of problem words, from the main window's menu to the settings file and back.

#include "gui/shell/windows/frmProblemWords.h"

#include "core/spell/ProblemWords.h"
#include "gui/shell/MainWindow.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class ProblemWordsTest : public ShellTest {
 protected:
  frmProblemWords& open() {
    if (!isRunning_) {
      startWith(smallProject());
      isRunning_ = true;
    }
    trigger("mnuUDW(0)");
    auto& form = required(window().findChild<frmProblemWords*>(), u"frmProblemWords"_s);
    EXPECT_TRUE(waitUntilActive(form));
    list_ = &childOf<QListWidget>(form, u"lstWords"_s);
    return form;
  }
  QStringList shown() const {
    QStringList words;
    for (int row = 0; row < list_->count(); ++row) {
      words.append(list_->item(row)->text());
    }
    return words;
  }
  void press(frmProblemWords& form, const char* button) {
    QTest::mouseClick(&childOf<QPushButton>(form, QString::fromLatin1(button)), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void add(frmProblemWords& form, const QString& word) {
    toolkit.expectFile(word);
    press(form, "cmdAdd");
  }

  QListWidget* list_ = nullptr;
  bool isRunning_ = false;
};

TEST_F(ProblemWordsTest, WordsAreAddedChangedAndTakenOffAndKeptOnDiskAtOnce) {
  writeSettings({u"AskedAboutAutoUpdates,-1"_s, u"BadWord0,very"_s, u"BadWord1,just"_s, u"BadWord3,quite"_s});
  frmProblemWords& form = open();
  EXPECT_EQ(shown(), QStringList({u"very"_s, u"just"_s, u"quite"_s}));
  EXPECT_EQ(list_->currentRow(), 0);
  add(form, u" then "_s);
  add(form, {});
  EXPECT_EQ(shown(), QStringList({u"very"_s, u"just"_s, u"quite"_s, u" then "_s}));
  EXPECT_EQ(list_->currentRow(), 3);
  list_->setFocus();
  list_->setCurrentRow(1);
  toolkit.expectFile(u"Just"_s);
  QTest::keyClick(list_, Qt::Key_F2);
  toolkit.expectFile({});
  press(form, "cmdEdit");
  list_->setFocus();
  list_->setCurrentRow(0);
  QTest::keyClick(list_, Qt::Key_Delete);
  const QStringList kept{u"Just"_s, u"quite"_s, u" then "_s};
  EXPECT_EQ(shown(), kept);
  press(form, "cmdOK");
  EXPECT_EQ(ProblemWords::load(), kept);
  EXPECT_EQ(control<QAction>("mnuUDW(1)").data().toString() + control<QAction>("mnuUDW(3)").data().toString(),
            u"Just then "_s)
      << "and looked for by the menu";
  EXPECT_TRUE(settingsText().contains(u"BADWORD1,Just"_s));
  EXPECT_FALSE(settingsText().contains(u"BADWORD0"_s));
}

TEST_F(ProblemWordsTest, ThirtyAreTheMost) {
  frmProblemWords& form = open();
  EXPECT_FALSE(childOf<QPushButton>(form, u"cmdEdit"_s).isEnabled());
  EXPECT_FALSE(childOf<QPushButton>(form, u"cmdDelete"_s).isEnabled());
  for (int number = 1; number <= 30; ++number) {
    add(form, u"word"_s + QString::number(number));
  }
  toolkit.expectBox(u"Only 30 words allowed."_s);
  press(form, "cmdAdd");
  press(form, "cmdOK");
  EXPECT_EQ(ProblemWords::load().size(), 30);
  EXPECT_EQ(ProblemWords::load().last(), u"word30"_s);
}

TEST_F(ProblemWordsTest, ChangesAreNotDroppedUnasked) {
  frmProblemWords& form = open();
  add(form, u"very"_s);
  toolkit.expectBox(u"Discard the changes?"_s, Answer::No);
  press(form, "cmdExit");
  EXPECT_TRUE(form.isVisible());
  toolkit.expectBox(u"Discard the changes?"_s, Answer::Yes);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_EQ(ProblemWords::load(), QStringList());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  press(open(), "cmdExit");
  EXPECT_EQ(window().findChild<frmProblemWords*>(), nullptr) << "nothing to ask about";
}

}  // namespace
