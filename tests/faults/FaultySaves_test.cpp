// Saves that are killed, or in which a call fails, at any call by which they change a file. Whatever happens, every
// text, title and plan is the old one or the new one, and nothing goes wrong without a word.
//
// All points are tried with QUILLANE_ALL_FAULTS set, else a sample with a fixed seed.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "faults/ChangedBook.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct SaveRun {
  bool killed = false;
  int status = -1;
  QString said;
  int calls = 0;
};

class FaultySaves : public ::testing::Test {
 protected:
  void SetUp() override {
    saveSmallProject(original_.path(u"book"_s));
    book_ = filesBelow(original_.path(u"book"_s));
    ASSERT_EQ(book_.size(), 6);
    for (qint32 id = 1; id <= 5; ++id) {
      oldTexts_.push_back(g_Project->SceneByID(id)->TextRTF());
    }
    oldTitle_ = g_Project->Title;
    oldGoal_ = g_Project->SceneByID(2)->Goal;
    newProject();
  }

  /// A fresh copy of the book is changed and saved by a process of its own, with the fault at one of its calls; 0 for
  /// none.
  SaveRun save(int at, const QString& how) {
    QDir(folder()).removeRecursively();
    for (auto file = book_.cbegin(); file != book_.cend(); ++file) {
      const QString path = folder() + u'/' + file.key();
      QDir().mkpath(QFileInfo(path).path());
      writeFile(path, *file);
    }
    const QString programs = QCoreApplication::applicationDirPath();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, programs + u"/libfaultycalls.so"_s);
    environment.insert(u"FAULT_BELOW"_s, folder());
    environment.insert(u"FAULT_COUNT"_s, scratch_.path(u"count"_s));
    if (at > 0) {
      environment.insert(u"FAULT_AT"_s, QString::number(at));
      environment.insert(u"FAULT_HOW"_s, how);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(programs + u"/save_a_book"_s, {folder() + u"/Small.qn4"_s, u"again"_s});
    EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString();
    return {process.exitStatus() == QProcess::CrashExit, process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput()), fileBytes(scratch_.path(u"count"_s)).toInt()};
  }

  /// The book opens without a word, and holds the old or the new of everything; what stands in one file is of one age.
  void expectOldOrNew(const QString& when) {
    ScriptedToolkit nothingIsTold;
    newProject();
    ASSERT_TRUE(g_Project->Load(folder() + u"/Small.qn4"_s, false)) << when;
    const bool isNew = g_Project->Title == kNewTitle;
    EXPECT_TRUE(isNew || g_Project->Title == oldTitle_) << when;
    EXPECT_EQ(g_Project->SceneByID(2)->Goal, isNew ? kNewGoal : oldGoal_) << when;
    ASSERT_EQ(g_Project->SceneCount(), isNew ? 6 : 5) << when;
    for (qint32 id = 1; id <= 5; ++id) {
      const QByteArray& text = g_Project->SceneByID(id)->TextRTF();
      const bool changed = std::find(kChangedScenes.begin(), kChangedScenes.end(), id) != kChangedScenes.end();
      const bool isOld = text == oldTexts_[static_cast<size_t>(id) - 1];
      EXPECT_TRUE(isOld || (changed && text == newText(id))) << when << ", scene " << id << ": " << text;
      EXPECT_TRUE(!isNew || !changed || !isOld) << when << ", scene " << id << " is older than its book";
    }
    if (isNew) {
      EXPECT_EQ(g_Project->SceneByID(6)->TextRTF(), newText(6)) << when;
    }
  }

  QString folder() const { return scratch_.path(u"book"_s); }

  ScratchFolder original_;
  ScratchFolder scratch_;
  QMap<QString, QByteArray> book_;
  std::vector<QByteArray> oldTexts_;
  QString oldTitle_;
  QString oldGoal_;
};

}  // namespace

TEST_F(FaultySaves, AKilledSaveLeavesTheOldBookOrTheNewOne) {
  const int calls = save(0, {}).calls;
  ASSERT_GT(calls, 20) << "the calls are not seen";
  expectOldOrNew(u"without a fault"_s);
  ASSERT_EQ(g_Project->Title, kNewTitle);
  for (int point = 1; point <= calls; ++point) {
    const SaveRun run = save(point, u"kill"_s);
    EXPECT_TRUE(run.killed) << "at call " << point << " of " << calls;
    expectOldOrNew(u"killed at call %1 of %2"_s.arg(point).arg(calls));
  }
}

TEST_F(FaultySaves, ACallThatFailsIsToldAndTheNextSaveWritesEverything) {
  const int calls = save(0, {}).calls;
  ASSERT_GT(calls, 20) << "the calls are not seen";
  for (const int failure : {ENOSPC, EIO, EACCES, EROFS}) {
    for (int point = 1; point <= calls; ++point) {
      const QString when = u"call %1 of %2 fails with %3"_s.arg(point).arg(calls).arg(failure);
      const SaveRun run = save(point, QString::number(failure));
      EXPECT_FALSE(run.killed) << when;
      EXPECT_EQ(run.status, 0) << when << "; " << run.said;
      // What is not on the disk is told, or known to be due.
      EXPECT_TRUE(!run.said.startsWith(u"not saved"_s)) << when << ": without a word";
      expectOldOrNew(when);
      EXPECT_EQ(g_Project->Title, kNewTitle) << when << ": the next save did not write it";
    }
  }
}
