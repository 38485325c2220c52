#include "gui/toolkit/cSharedProgress.h"

#include "support/Required.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QWidget* progressWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"cSharedProgress"_s) {
      return window;
    }
  }
  return nullptr;
}

TEST(Progress, MakesNoWindowUntilItIsShownAndThenShowsTheLatestCaption) {
  cSharedProgress progress;
  progress.setCaption(u"Loading Scene 1"_s);
  progress.setCaption(u"Loading Scene 2"_s);
  EXPECT_EQ(progressWindow(), nullptr);
  progress.Show();
  QWidget* const window = progressWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(window->isModal());
  const auto* const caption = &childOf<QLabel>(*window, u"lblCaption"_s);
  EXPECT_EQ(caption->text(), u"Loading Scene 2"_s);
  progress.setCaption(u"Scene <3>"_s);
  EXPECT_EQ(caption->text(), u"Scene <3>"_s);
  progress.Hide();
  EXPECT_FALSE(window->isVisible());
  progress.setCaption(u"behind the scene"_s);
  progress.Show();
  EXPECT_EQ(caption->text(), u"behind the scene"_s);
}

TEST(Progress, BearsTheLossOfTheWindowThatItStandsOver) {
  auto under = std::make_unique<QWidget>();
  under->show();
  ASSERT_TRUE(waitUntilActive(*under));
  {
    cSharedProgress progress;
    progress.Show();
    under.reset();
    EXPECT_EQ(progressWindow(), nullptr);
    progress.setCaption(u"Loading Scene 9"_s);
    progress.Hide();
    progress.Show();
    EXPECT_NE(progressWindow(), nullptr);
  }
  EXPECT_EQ(progressWindow(), nullptr) << "it goes with the object";
}

}  // namespace
