// An editor whose book can't be written to: whatever the road, the text stays in the window, the failure is said, and
// the next save after the cause has gone works.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"
#include "faults/SmallDisk.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kDisk = 4 * 1024 * 1024;

struct Trouble {
  const char* name;
  std::function<void()> begin;
  std::function<void()> end;
};

struct Road {
  const char* name;
  std::function<void(frmEditor&)> take;
};

class EditorDisk : public EditorTest {
 protected:
  void SetUp() override {
    EditorTest::SetUp();
    if (!disk_.refused().isEmpty()) {
      GTEST_SKIP() << "a file system can't be mounted here: " << disk_.refused().toStdString();
    }
    QFile::setPermissions(disk_.path(), kAll);
    saveSmallProject(book());
  }

  QString book() const { return disk_.path() + u"/Small"_s; }

  std::vector<Trouble> troubles() {
    const auto writable = [this](bool on) {
      for (const QString& place : {book(), book() + u"/RTF"_s}) {
        QFile::setPermissions(place, on ? kAll : kAll & ~(QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
      }
      on ? user_.reset() : void(user_.emplace());
    };
    const auto away = [](const QString& place) { EXPECT_TRUE(QDir().rename(place, place + u" away"_s)); };
    const auto back = [](const QString& place) { EXPECT_TRUE(QDir().rename(place + u" away"_s, place)); };
    const QString texts = book() + u"/RTF"_s;
    const QString copies = book() + u"/Autobackups"_s;
    return {
        {"full disk", [this] { EXPECT_TRUE(disk_.fill(0)); }, [this] { disk_.makeRoom(); }},
        {"read-only folder", [=] { writable(false); }, [=] { writable(true); }},
        {"vanished folder", [=, this] { away(book()); }, [=, this] { back(book()); }},
        {"folder that is a file",
         [=] {
           away(texts);
           writeFile(texts, "no folder");
           QDir(copies).removeRecursively();
           writeFile(copies, "no folder");
         },
         [=] {
           EXPECT_TRUE(QFile::remove(texts) && QFile::remove(copies));
           back(texts);
         }},
    };
  }

  std::vector<Road> roads() {
    const auto told = [this](auto take) {
      return [this, take](frmEditor& editor) {
        toolkit.expectBox(u"The text of this scene could not be written to "_s);
        take(editor);
      };
    };
    return {
        {"mnuSave", told([this](frmEditor& editor) { trigger(editor, "mnuSave"); })},
        {"cmdSave", told([this](frmEditor& editor) { click(editor, "cmdSave"); })},
        {"SaveQuietly", [](frmEditor& editor) { editor.SaveQuietly(); }},
        {"mnuSaveAndExit", told([this](frmEditor& editor) { trigger(editor, "mnuSaveAndExit"); })},
        {"cmdSaveAndExit", told([this](frmEditor& editor) { click(editor, "cmdSaveAndExit"); })},
        {"cmdSaveAndNext", told([this](frmEditor& editor) { click(editor, "cmdSaveAndNext"); })},
        {"close",
         [this](frmEditor& editor) {
           toolkit.expectBox(u"File has been changed.  Save it?"_s, Answer::Yes);
           toolkit.expectBox(u"The text of this scene could not be written to "_s);
           editor.close();
         }},
    };
  }

  void tick(frmEditor& editor) {
    auto& timer = control<QTimer>(editor, "TimerBackup");
    timer.start(0);
    ASSERT_TRUE(waitFor([&] { return timer.interval() > 0; }));
  }

 private:
  SmallDisk disk_{kDisk};

  static constexpr QFile::Permissions kAll = QFile::Permissions::fromInt(0x7777);
  std::optional<OrdinaryUser> user_;
};

TEST_F(EditorDisk, KeepsNoSaveFromWorkingOnceTheTroubleIsOver) {
  for (const Trouble& trouble : troubles()) {
    for (const Road& road : roads()) {
      SCOPED_TRACE(std::string(trouble.name) + ", " + road.name);
      frmEditor* const editor = open();
      type(*editor, u"!"_s);
      const QString words = control<RichTextBox>(*editor, "txtMain").Text();
      trouble.begin();
      road.take(*editor);
      trouble.end();
      EXPECT_TRUE(editor->isVisible() && editor->isWindowModified());
      EXPECT_EQ(control<RichTextBox>(*editor, "txtMain").Text(), words);
      EXPECT_EQ(panel(*editor, 1), u"Not saved yet"_s);
      trigger(*editor, "mnuSave");
      EXPECT_FALSE(editor->isWindowModified());
      EXPECT_EQ(textInFile(), words);
      editor->close();
      deleteUnloaded();
      ASSERT_TRUE(editorWindows().isEmpty());
    }
  }
}

TEST_F(EditorDisk, ThatTakesNoCopyIsToldAndTheNextCopyIsTriedAgain) {
  for (const Trouble& trouble : troubles()) {
    SCOPED_TRACE(trouble.name);
    frmEditor* const editor = open();
    type(*editor, u"!"_s);
    const QString words = control<RichTextBox>(*editor, "txtMain").Text();
    trouble.begin();
    tick(*editor);
    trouble.end();
    EXPECT_TRUE(panel(*editor, 1).startsWith(u"Autosave failed: "_s)) << panel(*editor, 1).toStdString();
    tick(*editor);
    EXPECT_TRUE(panel(*editor, 1).startsWith(u"Autosaved: "_s));
    EXPECT_EQ(rtfToPlainText(fileBytes(g_Project->TodaysBackupFolder() + u"RTF_00001_Scene_1.rtf"_s)), words);
    trigger(*editor, "mnuSaveAndExit");
    deleteUnloaded();
  }
}

}  // namespace
