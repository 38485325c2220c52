// The window of what stands in no chapter, used as a writer does.

#include "gui/shell/windows/frmLostAndFound.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class LostAndFoundWindow : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    project_ = smallProject();
    startWith(project_);
  }

  QString rtf(const QString& name) const { return folder.path(u"Small/RTF/"_s + name); }

  frmLostAndFound& openForm() {
    trigger("mnuLostAndFound");
    auto& form = control<frmLostAndFound>("frmLostAndFound");
    EXPECT_TRUE(waitUntilActive(form));
    return form;
  }
  frmLostAndFound& form() { return control<frmLostAndFound>("frmLostAndFound"); }
  ListView& lost() { return list("ListLost"); }
  QStringList titles() {
    QStringList shown;
    for (int i = 0; i < lost().rowCount(); ++i) {
      shown.append(lost().text(i, 0));
    }
    return shown;
  }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }
  void press(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
  QString text() { return control<RichTextBox>("txtText").Text(); }
  QString info() { return panel("lblInfo"); }

  QString project_;
};

TEST_F(LostAndFoundWindow, SaysThatNothingIsLostAndGoesWithEscape) {
  const QPointer<frmLostAndFound> shown = &openForm();
  EXPECT_TRUE(control<QLabel>("lblNothing").isVisible());
  EXPECT_EQ(panel("lblNothing"), u"Every scene is in a chapter, and every file belongs to a scene."_s);
  EXPECT_FALSE(lost().isVisible());
  EXPECT_FALSE(button("cmdPutIntoChapter").isEnabled());
  EXPECT_FALSE(button("cmdRemove").isEnabled());
  QTest::keyClick(shown, Qt::Key_Escape);
  EXPECT_TRUE(soon([&] { return shown.isNull(); }));
  EXPECT_FALSE(window().ProjectChanged);
}

TEST_F(LostAndFoundWindow, ShowsEachTextWithItsWordsAndItsBeginning) {
  g_Project->ChapterByID(1)->RemoveSceneByID(1);
  writeFile(rtf(u"<b>Pier.rtf"_s), simpleRtf("\\b The\\b0  tide turned."));
  openForm();
  EXPECT_TRUE(soon([this] { return cell("ListLost", 1, 3) == u"The tide turned."_s; }));
  EXPECT_EQ(cell("ListLost", 0, 0), u"Arrival 1"_s);
  EXPECT_EQ(cell("ListLost", 0, 1), u"3"_s);
  EXPECT_EQ(cell("ListLost", 0, 3), u"one two three"_s);
  EXPECT_EQ(cell("ListLost", 1, 0), u"<b>Pier.rtf"_s);
  EXPECT_FALSE(cell("ListLost", 1, 2).isEmpty());
  EXPECT_EQ(text(), u"one two three"_s) << "the first is selected";
  EXPECT_EQ(info(), u"1 scene is in no chapter, 1 file belongs to no scene."_s);
  EXPECT_TRUE(button("cmdRemove").isEnabled());
  QTest::keyClick(&lost(), Qt::Key_Down);
  EXPECT_EQ(text(), u"The tide turned."_s);
  EXPECT_TRUE(control<RichTextBox>("txtText").formatAt(0).bold);
  EXPECT_TRUE(control<RichTextBox>("txtText").isReadOnly());
  EXPECT_FALSE(button("cmdRemove").isEnabled()) << "a file isn't removed";
  EXPECT_EQ(button("cmdRemove").toolTip(), u"Files stay on disk: only scenes can be removed."_s);
  EXPECT_TRUE(info().endsWith(button("cmdRemove").toolTip()));
}

TEST_F(LostAndFoundWindow, PutsAllThatIsSelectedAtTheEndOfTheChapter) {
  g_Project->ChapterByID(1)->RemoveSceneByID(1);
  writeFile(rtf(u"Pier.rtf"_s), simpleRtf("The tide turned."));
  list("ListChapters").SelectRow(1);
  openForm();
  auto& chapters = control<QComboBox>("cmbChapter");
  EXPECT_EQ(chapters.currentText(), u"2. Departure"_s) << "the one that the main window shows";
  EXPECT_EQ(chapters.itemText(2), u"3. Cut scenes"_s);
  QTest::keyClick(&lost(), Qt::Key_A, Qt::ControlModifier);
  press("cmdPutIntoChapter");
  const clsChapter& chapter = *chapterAt(2);
  ASSERT_EQ(chapter.SceneCount(), 4);
  EXPECT_EQ(chapter.SceneByIndex(3)->Title, u"Arrival 1"_s);
  EXPECT_EQ(chapter.SceneByIndex(4)->Title, u"Pier"_s);
  EXPECT_EQ(info(), u"2 texts were put at the end of \"2. Departure\"."_s);
  EXPECT_TRUE(control<QLabel>("lblNothing").isVisible());
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_EQ(list("ListScenes").rowCount(), 4) << "the main window has followed";
}

TEST_F(LostAndFoundWindow, ARemovedSceneLeavesItsFileWhichIsLostThen) {
  sceneAt(2)->Title = u" "_s;
  g_Project->ChapterByID(1)->RemoveSceneByID(2);
  const auto before = filesBelow(folder.path(u"Small"_s));
  openForm();
  toolkit.expectBox(u"Remove \"Untitled scene\" from the project? Its file RTF_00002.rtf stays on disk."_s, Answer::No);
  press("cmdRemove");
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes);
  EXPECT_EQ(titles(), QStringList{u"Untitled scene"_s});
  EXPECT_FALSE(window().ProjectChanged);
  toolkit.expectBox(u"Remove \"Untitled scene\""_s, Answer::Yes);
  press("cmdRemove");
  EXPECT_FALSE(g_Project->SceneByID(2)->InScenes());
  EXPECT_EQ(titles(), QStringList{u"RTF_00002.rtf"_s});
  EXPECT_EQ(text(), u"four five"_s);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_EQ(filesBelow(folder.path(u"Small"_s)), before);
  press("cmdPutIntoChapter");
  EXPECT_EQ(chapterAt(1)->SceneByIndex(2)->RTFFilename(), u"RTF_00002.rtf"_s);
  EXPECT_EQ(filesBelow(folder.path(u"Small"_s)), before);
}

TEST_F(LostAndFoundWindow, RemovesNoSceneThatIsOpenOrIsNotInItsFile) {
  g_Project->ChapterByID(1)->RemoveSceneByID(1);
  g_Project->ChapterByID(1)->RemoveSceneByID(2);
  g_Project->SceneByID(1)->Edit();
  g_Project->SceneByID(2)->setTextRTF(simpleRtf("not yet written"));
  openForm();
  toolkit.expectBox(u"Please close all editor windows first"_s);
  press("cmdRemove");
  lost().SelectRow(1);
  toolkit.expectBox(u"The text of \"Arrival 2\" isn't in a file yet"_s);
  press("cmdRemove");
  EXPECT_EQ(g_Project->SceneCount(), 5);
  form().close();
  openEditor().close();
}

TEST_F(LostAndFoundWindow, SaysWhatCantBeReadAndWhichFileStays) {
  writeFile(rtf(u"Gone.rtf"_s), simpleRtf("x"));
  writeFile(rtf(u"Маяк.rtf"_s), simpleRtf("light"));
  openForm();
  QFile::remove(rtf(u"Gone.rtf"_s));
  QTest::keyClick(&lost(), Qt::Key_A, Qt::ControlModifier);
  toolkit.expectBox(u"These files could not be read:\nGone.rtf"_s);
  press("cmdPutIntoChapter");
  EXPECT_EQ(titles(), QStringList{u"Маяк.rtf"_s});
  EXPECT_TRUE(info().endsWith(u"and the old ones stay."_s));
  EXPECT_EQ(chapterAt(1)->SceneCount(), 3);
}

TEST_F(LostAndFoundWindow, WithoutAChapterThereIsNowhereToPutIt) {
  writeFile(rtf(u"Pier.rtf"_s), simpleRtf("x"));
  g_Project->Chapters.Clear();
  openForm();
  EXPECT_EQ(titles().size(), 6);
  EXPECT_FALSE(button("cmdPutIntoChapter").isEnabled());
  EXPECT_EQ(button("cmdPutIntoChapter").toolTip(), u"There is no chapter yet."_s);
}
