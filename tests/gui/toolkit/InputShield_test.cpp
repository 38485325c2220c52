// Input that is held back, and what gets through all the same.

#include "gui/toolkit/InputShield.h"

#include "gui/toolkit/QtToolkit.h"
#include "support/ModalHelper.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class InputShieldTest : public ::testing::Test {
 protected:
  void SetUp() override {
    line_ = new QLineEdit(&window_);
    window_.setCentralWidget(line_);
    auto* const save = new QAction(&window_);
    save->setShortcut(Qt::CTRL | Qt::Key_S);
    QObject::connect(save, &QAction::triggered, &window_, [this] { ++saves_; });
    window_.addAction(save);
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(waitUntilActive(window_));
    line_->setFocus();
  }

  QPushButton* stopButton() const { return window_.findChild<QPushButton*>(u"cmdStop"_s); }

  QtToolkit toolkit_;
  QMainWindow window_;
  QLineEdit* line_ = nullptr;
  int saves_ = 0;
  int stops_ = 0;
};

TEST_F(InputShieldTest, NothingThatIsTypedOrClickedArrivesUntilItHasGone) {
  const auto act = [this] {
    QTest::keyClicks(line_, u"ab"_s);
    QTest::keyClick(line_, Qt::Key_S, Qt::ControlModifier);
  };
  {
    const auto hold = toolkit_.holdInput();
    act();
    EXPECT_EQ(line_->text() + QString::number(saves_), u"0"_s);
  }
  act();
  EXPECT_EQ(line_->text() + QString::number(saves_), u"ab1"_s);
}

TEST_F(InputShieldTest, AQuestionAmidIsAnswered) {
  const auto hold = toolkit_.holdInput();
  const WhenModal yes([](QWidget& box) {
    // The mnemonics of a window that isn't active lead nowhere.
    EXPECT_TRUE(waitUntilActive(box));
    QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier);
  });
  EXPECT_EQ(toolkit_.MsgBox(u"Overwrite?"_s, Buttons::YesNo), Answer::Yes);
}

TEST_F(InputShieldTest, TheModalWindowThatBeganTheWorkWaitsAsWell) {
  QDialog list(&window_);
  auto* const line = new QLineEdit(&list);
  list.setModal(true);
  list.show();
  ASSERT_TRUE(waitUntilActive(list));
  const auto hold = toolkit_.holdInput();
  QTest::keyClicks(line, u"ab"_s);
  EXPECT_EQ(line->text(), QString());
  const WhenModal yes([](QWidget& box) {
    EXPECT_TRUE(waitUntilActive(box));
    QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier);
  });
  EXPECT_EQ(toolkit_.MsgBox(u"Overwrite?"_s, Buttons::YesNo), Answer::Yes);
}

TEST_F(InputShieldTest, TheStopButtonIsClickedThroughIt) {
  const auto hold = toolkit_.holdInput();
  const auto progress = toolkit_.makeProgressWindow();
  progress->offerStop([this] { ++stops_; });
  progress->Show();
  ASSERT_NE(stopButton(), nullptr);
  QTest::mouseClick(stopButton(), Qt::LeftButton);
  EXPECT_EQ(stops_, 1);
  QTest::mouseClick(stopButton(), Qt::LeftButton);
  QTest::keyClick(stopButton()->window(), Qt::Key_Escape);
  EXPECT_EQ(stops_, 1) << "it is told once";
}

TEST_F(InputShieldTest, EscapeStopsWhicheverWindowHasTheKeyboard) {
  const auto outer = toolkit_.holdInput();
  const auto inner = toolkit_.holdInput();
  const auto progress = toolkit_.makeProgressWindow();
  progress->offerStop([this] { ++stops_; });
  progress->Show();
  QTest::keyClicks(line_, u"ab"_s);
  EXPECT_EQ(stops_, 0);
  QTest::keyClick(line_, Qt::Key_Escape);
  EXPECT_EQ(stops_, 1);
  EXPECT_EQ(line_->text(), QString());
}

TEST_F(InputShieldTest, AWorkThatCannotBeStoppedHasNoButtonAndIgnoresEscape) {
  const auto hold = toolkit_.holdInput();
  const auto progress = toolkit_.makeProgressWindow();
  progress->Show();
  EXPECT_EQ(stopButton(), nullptr);
  QTest::keyClick(line_, Qt::Key_Escape);
  EXPECT_TRUE(window_.isVisible());
}

}  // namespace
