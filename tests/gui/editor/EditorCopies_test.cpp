// What the editor does between the saves: copies of the text in the day's folder, and the scene in memory.

#include "core/infra/Clock.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/persist/RescueFolder.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString kQuestion = u"File has been changed.  Save it?"_s;

class EditorCopies : public EditorTest {
 protected:
  ~EditorCopies() override { Clock::set({}); }

  /// The timer comes round.
  void tick(frmEditor& editor) {
    auto& timer = control<QTimer>(editor, "TimerBackup");
    timer.start(0);
    ASSERT_TRUE(waitFor([&] { return timer.interval() > 0; }));
    EXPECT_EQ(timer.interval(), 60000);
    EXPECT_TRUE(timer.isActive());
  }
  void typeAndTick(frmEditor& editor, const QString& text) {
    type(editor, text);
    tick(editor);
  }
  static QDir copies() { return QDir(g_Project->TodaysBackupFolder()); }
  static QStringList copyNames() { return copies().entryList({u"*.rtf"_s}, QDir::Files); }
  static QByteArray copy(const QString& name = u"RTF_00001_Scene_1.rtf"_s) {
    return fileBytes(copies().filePath(name));
  }
  static QString words(const QByteArray& rtf) { return rtfToPlainText(rtf); }
  static void setTime(int hour, int minute, int second = 0) {
    Clock::set(QDateTime(QDate(2026, 3, 9), QTime(hour, minute, second)));
  }
};

TEST_F(EditorCopies, TheFirstIsTheTextAsItIsAndNoneFollowsWithoutAChange) {
  setTime(13, 5, 7);
  frmEditor* const editor = open();
  tick(*editor);
  EXPECT_EQ(copy(), scene()->TextRTF());
  EXPECT_EQ(panel(*editor, 1), u"Autosaved: 13:05:07"_s);
  QFile::remove(copies().filePath(u"RTF_00001_Scene_1.rtf"_s));
  setTime(13, 6);
  tick(*editor);
  EXPECT_EQ(copyNames(), QStringList());
  EXPECT_EQ(panel(*editor, 1), u"Autosaved: 13:05:07"_s);
}

TEST_F(EditorCopies, WhatIsTypedReachesTheSceneInMemoryAndTheCopyAndNotItsFile) {
  const QByteArray file = scene()->TextRTF();
  frmEditor* const editor = open();
  QTest::keyClicks(&control<QLineEdit>(*editor, "txtTitle"), u"New: "_s);
  typeAndTick(*editor, u" and four"_s);
  EXPECT_EQ(scene()->ConvertedToBodyText(), u"one two three and four"_s);
  EXPECT_EQ(scene()->Title, u"New: Arrival 1"_s);
  EXPECT_EQ(copy(), scene()->TextRTF());
  EXPECT_TRUE(scene()->RTFChanged() && editor->isWindowModified());
  EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), file);
  EXPECT_EQ(scene()->Wordcount(), 3) << "the count is the saved text's";
  trigger(*editor, "mnuSave");
  EXPECT_EQ(scene()->Wordcount(), 5);
  EXPECT_TRUE(panel(*editor, 1).startsWith(u"Saved: "_s));
  EXPECT_FALSE(editor->isWindowModified());
}

TEST_F(EditorCopies, WhatIsDroppedAtTheEndLeavesTheSceneAsItWas) {
  scene()->ChangeViewpointByID(1);
  const QByteArray before = scene()->TextRTF();
  for (const bool bookSaved : {false, true}) {
    SCOPED_TRACE(bookSaved);
    frmEditor* const editor = open();
    QTest::keyClicks(&control<QLineEdit>(*editor, "txtTitle"), u"New: "_s);
    type(*editor, u" dropped"_s);
    QTest::keyClick(&control<QWidget>(*editor, "cmbViewpoint"), Qt::Key_Down);
    tick(*editor);
    EXPECT_NE(scene()->TextRTF(), before);
    EXPECT_TRUE(!bookSaved || g_Project->SaveQN4(false));
    toolkit.expectBox(kQuestion, Answer::No);
    editor->close();
    EXPECT_EQ(scene()->TextRTF(), before);
    EXPECT_EQ(scene()->Title, u"Arrival 1"_s);
    EXPECT_EQ(scene()->ViewPointID(), 1);
    EXPECT_EQ(scene()->RTFChanged(), bookSaved);
    EXPECT_TRUE(g_Project->SaveQN4(false));
    EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), before);
    EXPECT_EQ(words(copy()), u"one two three dropped"_s) << "whoever thinks better of it";
    deleteUnloaded();
  }
}

TEST_F(EditorCopies, ANewSceneThatIsNotWantedGoesAlthoughTheTimerSawIt) {
  toolkit.expectBox(kQuestion, Answer::No);
  const WhenModal write([&](QWidget& window) {
    auto& editor = dynamic_cast<frmEditor&>(window);
    typeAndTick(editor, u"not wanted"_s);
    editor.close();
  });
  EXPECT_FALSE(g_Project->CreateNewScene(1, 0));
}

TEST_F(EditorCopies, ATextThatWasTakenBackKeepsItsBytesAndItsOriginalIsKeptBeforeAnythingIsLost) {
  const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f7 Courier;}}{\\header h}\\f7 one\\par}";
  scene()->setTextRTF(rtf);
  scene()->Save(false, true);
  frmEditor* const editor = open();
  typeAndTick(*editor, u"x"_s);
  EXPECT_EQ(words(copy()), u"onex"_s);
  EXPECT_EQ(copy(u"RTF_00001_Original.rtf"_s), rtf);
  QTest::keyClick(&control<RichTextBox>(*editor, "txtMain"), Qt::Key_Backspace);
  tick(*editor);
  EXPECT_EQ(scene()->TextRTF(), rtf);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), rtf);
}

TEST_F(EditorCopies, WordsOfAnEarlierRunArePutAsideBeforeTheCopyIsWrittenOver) {
  const QString name = u"RTF_00001_Scene_1.rtf"_s;
  QDir().mkpath(copies().path());
  const auto leave = [&](const QByteArray& words, const QDateTime& when) {
    writeFile(copies().filePath(name), simpleRtf(words));
    QFile file(copies().filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(when, QFileDevice::FileModificationTime));
  };
  const QDateTime late(QDate(2126, 3, 9), QTime(21, 4));
  const auto openAndTick = [&] {
    frmEditor* const editor = open();
    tick(*editor);
    typeAndTick(*editor, u"!"_s);
    trigger(*editor, "mnuSaveAndExit");
    deleteUnloaded();
  };
  leave("typed before the crash", late);
  openAndTick();
  leave("and again", late);
  openAndTick();
  leave("older than the scene", QDateTime(QDate(2020, 1, 1), QTime(1, 1)));
  openAndTick();
  EXPECT_EQ(copyNames(), (QStringList{name, u"RTF_00001_Scene_1_9.04pm.rtf"_s, u"RTF_00001_Scene_1_9.04pm_2.rtf"_s}));
  EXPECT_EQ(copy(u"RTF_00001_Scene_1_9.04pm.rtf"_s), simpleRtf("typed before the crash"));
  EXPECT_EQ(copy(u"RTF_00001_Scene_1_9.04pm_2.rtf"_s), simpleRtf("and again"));
  EXPECT_EQ(words(copy()), u"one two three!!!"_s);
}

TEST_F(EditorCopies, AllCopiesOfANewSceneAtIntervalsGetTheNameOfItsFile) {
  Settings().sSet(u"AutoBackupSequential"_s, true);
  Settings().sSet(u"SequentialFrequency"_s, 0);
  {
    const WhenModal write([&](QWidget& window) {
      auto& editor = dynamic_cast<frmEditor&>(window);
      for (int minute = 1; minute < 4; ++minute) {
        setTime(9, minute);
        typeAndTick(editor, u"words"_s);
      }
      // One name is taken.
      writeFile(copies().filePath(u"RTF_00006_Scene_3_9.02am.rtf"_s), "other");
      trigger(editor, "mnuSaveAndExit");
    });
    EXPECT_TRUE(g_Project->CreateNewScene(1, 0));
  }
  EXPECT_EQ(copyNames(), (QStringList{u"_Scene_3_9.02am.rtf"_s, u"RTF_00006_Scene_3_9.01am.rtf"_s,
                                      u"RTF_00006_Scene_3_9.02am.rtf"_s, u"RTF_00006_Scene_3_9.03am.rtf"_s}));
}

TEST_F(EditorCopies, WhatIsTypedIntoThePlanHasACopyOfItsOwn) {
  const QString name = u"RTF_00001_Scene_1_Plan.rtf"_s;
  frmEditor* const editor = open();
  typeAndTick(*editor, u"x"_s);
  EXPECT_FALSE(copyNames().contains(name)) << "nothing was typed there";
  QTest::keyClicks(&control<QWidget>(*editor, "txtDesc"), u"They meet"_s);
  tick(*editor);
  EXPECT_TRUE(words(copy(name)).startsWith(u"Title\r\nArrival 1\r\n\r\nDescription\r\nThey meet"_s))
      << words(copy(name));
}

TEST_F(EditorCopies, APlanThatNeverReachedTheBookIsPutAsideAndOneThatDidIsNot) {
  const QString name = u"RTF_00001_Scene_1_Plan.rtf"_s;
  QDir().mkpath(copies().path());
  writeFile(copies().filePath(name), simpleRtf("of a run that was cut off"));
  ASSERT_TRUE(g_Project->SaveQN4(false)) << "for whatever other reason";
  for (const char* words : {"They meet", "Again"}) {
    frmEditor* const editor = open();
    QTest::keyClicks(&control<QWidget>(*editor, "txtDesc"), QLatin1String(words));
    tick(*editor);
    trigger(*editor, "mnuSaveAndExit");
    deleteUnloaded();
  }
  const QStringList plans = copyNames().filter(u"_Plan"_s);
  ASSERT_EQ(plans.size(), 2);
  EXPECT_EQ(copy(plans[0] == name ? plans[1] : plans[0]), simpleRtf("of a run that was cut off"));
}

TEST_F(EditorCopies, ANoteThatIsBeingWrittenIsInTheCopyAndNotYetInTheText) {
  const QByteArray rtf = "{\\rtf1 a{\\footnote old}b}";
  scene()->setTextRTF(rtf);
  scene()->Save(false, true);
  frmEditor* const editor = open();
  {
    const WhenModal write([&](QWidget& window) {
      QTest::keyClicks(&childOf<QWidget>(window, u"txtNote"_s), u"new words"_s);
      tick(*editor);
      EXPECT_TRUE(copy().contains("new words"));
      window.close();
    });
    toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::No);
    control<RichTextBox>(*editor, "txtMain").setSelStart(1);
    trigger(*editor, "mnuOpenNote");
  }
  EXPECT_EQ(scene()->TextRTF(), rtf);
}

TEST_F(EditorCopies, FilesAtIntervalsComeAtTheFirstCheckAndThenAfterSoManyRunsOfTheTimer) {
  Settings().sSet(u"AutoBackupSequential"_s, true);
  Settings().sSet(u"SequentialFrequency"_s, u" 3 "_s);
  frmEditor* const editor = open();
  QStringList expected;
  for (int minute = 0; minute < 8; ++minute) {
    setTime(minute < 4 ? 0 : 12, minute);
    typeAndTick(*editor, u"x"_s);
    EXPECT_EQ(panel(*editor, 1), u"Autosaved: "_s + Clock::now().toString(u"HH:mm:ss"_s));
    if (minute % 3 == 0) {
      expected += u"RTF_00001_Scene_1_12.0%1%2.rtf"_s.arg(minute).arg(minute < 4 ? u"am"_s : u"pm"_s);
    }
    EXPECT_EQ(copyNames(), expected) << minute;
  }
  EXPECT_EQ(words(copy(expected.last())), u"one two threexxxxxxx"_s);
  // Typing has stopped: what has no file yet gets one when it is due.
  for (int minute = 8; minute < 20; ++minute) {
    setTime(12, minute);
    tick(*editor);
  }
  expected.insert(1, u"RTF_00001_Scene_1_12.09pm.rtf"_s);
  QStringList names = copyNames();
  std::sort(names.begin(), names.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(names, expected);
  EXPECT_EQ(words(copy(u"RTF_00001_Scene_1_12.09pm.rtf"_s)), u"one two threexxxxxxxx"_s);
}

TEST_F(EditorCopies, ASaveBringsThePlanToTheDiskWhenThatHasChangedAndANewSceneToo) {
  const QString book = g_Project->FileWithPath;
  const auto inFile = [&](const QString& words) { return QString::fromUtf8(fileBytes(book)).contains(words); };
  ASSERT_TRUE(g_Project->SaveQN4(false));
  frmEditor* const editor = open();
  const QByteArray whole = fileBytes(book);
  type(*editor, u"!"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(fileBytes(book), whole) << "the text is not in there";
  QTest::keyClicks(&control<QWidget>(*editor, "txtDesc"), u"They meet"_s);
  tick(*editor);
  EXPECT_FALSE(inFile(u"They%20meet"_s));
  trigger(*editor, "mnuSaveAndExit");
  EXPECT_TRUE(inFile(u"They%20meet"_s));
  {
    const WhenModal write([&](QWidget& window) {
      auto& added = dynamic_cast<frmEditor&>(window);
      type(added, u"new words"_s);
      trigger(added, "mnuSave");
      const auto shown = scene(g_Project->ChapterByID(1)->SceneID(3));
      EXPECT_TRUE(!shown->RTFFilename().isEmpty() && inFile(shown->RTFFilename()));
      window.close();
    });
    EXPECT_TRUE(g_Project->CreateNewScene(1, 0));
  }
}

TEST_F(EditorCopies, ABookWithoutAPlaceHasWhatIsTypedInTheRescueFolder) {
  const QString place = QDir::currentPath();
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"here"_s) && QDir::setCurrent(folder.path(u"here"_s)));
  g_Project->FileWithPath.clear();
  frmEditor* const editor = open();
  tick(*editor);
  EXPECT_EQ(panel(*editor, 1), u"Last Autosave: None"_s);
  typeAndTick(*editor, u" kept"_s);
  EXPECT_TRUE(panel(*editor, 1).startsWith(u"Autosaved: "_s));
  EXPECT_TRUE(RescueFolder(*g_Project).holds(*scene()));
  EXPECT_TRUE(QDir::setCurrent(place));
  EXPECT_TRUE(filesBelow(folder.path(u"here"_s)).isEmpty());
}

// The timers come round in the middle of the saves too, where those yield.
TEST_F(EditorCopies, TwoEditorsAndTheBookAreSavedSideBySide) {
  makeLargerProject(12, 3);
  g_Project->FileWithPath = folder.path(u"Side/Small.qn4"_s);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  const std::array editors{open(1), open(2)};
  for (int round = 0; round < 12; ++round) {
    for (size_t i = 0; i < editors.size(); ++i) {
      type(*editors[i], u" %1"_s.arg(round * 2 + static_cast<int>(i)));
      control<QTimer>(*editors[i], "TimerBackup").start(0);
    }
    toolkit.onYield = [] { QCoreApplication::processEvents(); };
    ASSERT_TRUE(g_Project->SaveQN4(round % 2 == 0));
    for (size_t i = 0; i < editors.size(); ++i) {
      ASSERT_TRUE(waitFor([&] { return control<QTimer>(*editors[i], "TimerBackup").interval() > 0; }));
      const auto id = static_cast<qint32>(i) + 1;
      const QString shown = control<RichTextBox>(*editors[i], "txtMain").Text();
      EXPECT_EQ(scene(id)->ConvertedToBodyText(), shown);
      EXPECT_EQ(words(copy(u"RTF_0000%1_Scene_%1.rtf"_s.arg(id))), shown);
      if (round % 3 == static_cast<int>(i)) {
        trigger(*editors[i], "mnuSave");
        EXPECT_EQ(textInFile(id), shown);
      }
    }
  }
  const QStringList shown{control<RichTextBox>(*editors[0], "txtMain").Text(),
                          control<RichTextBox>(*editors[1], "txtMain").Text()};
  trigger(*editors[0], "mnuSaveAndExit");
  trigger(*editors[1], "mnuSaveAndExit");
  ASSERT_TRUE(g_Project->SaveQN4(false) && g_Project->Load(folder.path(u"Side/Small.qn4"_s), false));
  EXPECT_EQ((QStringList{scene(1)->ConvertedToBodyText(), scene(2)->ConvertedToBodyText()}), shown);
  EXPECT_TRUE(shown[0].endsWith(u" 20 22"_s) && shown[1].endsWith(u" 21 23"_s));
}

}  // namespace
