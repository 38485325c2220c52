// Panel 1 of the status bar: what was saved, and what wasn't until it is.

#include "core/infra/Clock.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class SavedStateTest : public ShellTest {
 protected:
  static void setTime(int hour, int minute) { Clock::set(QDateTime({2024, 3, 4}, {hour, minute, 59})); }
  QString shown() { return panel("numberfiles"); }
};

TEST_F(SavedStateTest, EverySaveIsSaidWithItsTime) {
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject());
  EXPECT_EQ(shown(), QString());
  setTime(14, 5);
  trigger("mnuSaveProj");
  EXPECT_EQ(shown(), u"Saved 14:05"_s);
  window().showMessage(u"Something else"_s);
  EXPECT_EQ(shown(), u"Something else"_s);
  setTime(14, 6);
  window().SaveProject(false);
  EXPECT_EQ(shown(), u"Saved 14:06"_s);
  setTime(14, 7);
  window().EditSelectedScene();
  childOf<QAction>(openEditor(), u"mnuSave"_s).trigger();
  EXPECT_TRUE(soon([this] { return shown() == u"Saved 14:07"_s; })) << "an editor's";
  openEditor().close();
  setTime(14, 8);
  g_Project->SaveQN4(false);
  EXPECT_TRUE(soon([this] { return shown() == u"Saved 14:08"_s; })) << "a dialog's";
  toolkit.expectFile({});
  trigger("mnuLoadProj");
  EXPECT_EQ(shown(), u"Saved 14:08"_s);
  window().LoadProject(other, false);
  EXPECT_EQ(shown(), QString());
}

TEST_F(SavedStateTest, WhatFailedStandsUntilItIsMended) {
  const QString path = smallProject();
  startWith(path);
  const QString aside = path + u".aside"_s;
  ASSERT_TRUE(QFile::rename(path, aside) && QDir().mkpath(path));
  toolkit.expectBox(u"Unable to save project."_s);
  toolkit.expectFile({});
  toolkit.expectBox(u"Save cancelled."_s);
  trigger("mnuSaveProj");
  const QString failure = shown();
  EXPECT_TRUE(failure.startsWith(u"Not saved"_s)) << failure.toStdString();
  auto& moment = control<QTimer>("TimerMessage");
  window().status().setHint(u"A hint"_s);
  EXPECT_EQ(shown(), u"A hint"_s);
  window().status().setHint({});
  EXPECT_EQ(shown(), failure);
  EXPECT_FALSE(moment.isActive());
  moment.setInterval(0);
  window().showMessage(u"A message"_s);
  EXPECT_EQ(shown(), u"A message"_s);
  EXPECT_TRUE(soon([&] { return shown() == failure; }));
  window().status().setOffer(u"Another program"_s, {});
  EXPECT_TRUE(shown().startsWith(failure));
  window().status().setOffer({}, {});
  // A scene's own file isn't the book.
  sceneAt(1)->setTextRTF(simpleRtf("a text"));
  sceneAt(1)->Save();
  window().followEditing();
  EXPECT_EQ(shown(), failure);
  ASSERT_TRUE(QDir().rmdir(path) && QFile::rename(aside, path));
  setTime(9, 30);
  window().SaveProject(false);
  EXPECT_EQ(shown(), u"Saved 09:30"_s);
}

TEST_F(SavedStateTest, ATextThatCouldNotBeWrittenIsMendedByItsOwnSave) {
  startWith(smallProject());
  const QString file = sceneAt(1)->RTFFileWithPath();
  ASSERT_TRUE(QFile::remove(file) && QDir().mkpath(file));
  window().EditSelectedScene();
  frmEditor& edited = openEditor();
  QTest::keyClicks(&childOf<RichTextBox>(edited, u"txtMain"_s), u"typed "_s);
  toolkit.expectBox(u"The text of this scene could not be written to "_s + file);
  childOf<QAction>(edited, u"mnuSave"_s).trigger();
  EXPECT_TRUE(soon([this] { return shown().startsWith(u"Not saved: "_s); }));
  ASSERT_TRUE(QDir().rmdir(file));
  setTime(16, 0);
  childOf<QAction>(edited, u"mnuSave"_s).trigger();
  EXPECT_TRUE(soon([this] { return shown() == u"Saved 16:00"_s; })) << shown().toStdString();
}
