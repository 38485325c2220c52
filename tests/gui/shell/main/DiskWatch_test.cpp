#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class DiskWatchTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    path_ = smallProject();
    startWith(path_);
    hurry("TimerDisk");
    EXPECT_FALSE(button().isVisible());
  }

  QPushButton& button() { return control<QPushButton>("cmdLoadIt"); }
  bool isOffered(const QString& text) {
    return soon([&] { return button().isVisible() && panel("numberfiles").contains(text); });
  }
  bool isSettled() {
    return soon([&] { return !button().isVisible(); });
  }

  QString path_;
};

}  // namespace

TEST_F(DiskWatchTest, ATextThatAnotherProgramHasWrittenIsOfferedAndLoaded) {
  // One that is being written just now doesn't hide the other.
  writeFile(sceneAt(2)->RTFFileWithPath(), {});
  writeFile(sceneAt(1)->RTFFileWithPath(), simpleRtf("theirs, of five words now"));
  ASSERT_TRUE(isOffered(u"Another program has changed the text of 'Arrival 1'."_s));
  window().EditSelectedScene();
  toolkit.expectBox(u"Please close all editor windows first"_s);
  button().click();
  childOf<QAction>(openEditor(), u"mnuExit"_s).trigger();
  button().click();
  EXPECT_EQ(sceneAt(1)->ConvertedToBodyText().trimmed(), u"theirs, of five words now"_s);
  EXPECT_TRUE(isSettled());
  EXPECT_TRUE(soon([&] { return row("ListScenes", 0).contains(u"5"_s); }))
      << row("ListScenes", 0).join(u'|').toStdString();
  // What stands in memory alone is asked about.
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  writeFile(sceneAt(1)->RTFFileWithPath(), simpleRtf("theirs again"));
  ASSERT_TRUE(isOffered(u"Arrival 1"_s));
  toolkit.expectChoice(u"Another program has changed what you are about to save"_s, u"Keep mine"_s);
  button().click();
  EXPECT_EQ(fileBytes(sceneAt(1)->RTFFileWithPath()), simpleRtf("mine"));
  EXPECT_TRUE(isSettled());
}

TEST_F(DiskWatchTest, AProjectFileThatAnotherProgramHasWrittenIsOfferedAndLoaded) {
  const auto change = [&](const QByteArray& title) {
    writeFile(path_, fileBytes(path_).replace(chapterAt(1)->Title.toLatin1() + "</Title>", title + "</Title>"));
  };
  change("Theirs");
  ASSERT_TRUE(isOffered(u"this book's file"_s));
  button().click();
  EXPECT_EQ(chapterAt(1)->Title, u"Theirs"_s);
  EXPECT_EQ(cell("ListChapters", 0, 0), u"Theirs"_s);
  EXPECT_TRUE(isSettled());
  control<QLineEdit>("txtTitle").setText(u"Mine"_s);
  change("Again");
  ASSERT_TRUE(isOffered(u"this book's file"_s));
  toolkit.expectChoice(u"Small.qn4"_s, u"Take theirs"_s);
  button().click();
  EXPECT_TRUE(soon([&] { return chapterAt(1)->Title == u"Again"_s; }));
  EXPECT_TRUE(isSettled());
}
