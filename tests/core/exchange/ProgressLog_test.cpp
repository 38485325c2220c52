#include "core/exchange/ProgressLog.h"

#include "core/exchange/PublishingScript.h"
#include "core/infra/Clock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ProjectSaver.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A saved book, and the templates as they come with the program.
class ProgressLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Clock::set(QDateTime(QDate(2026, 11, 20), QTime(9, 5)));
    QDir().mkpath(installed_);
    for (const char* name : {"WebTemplate.txt", "Logo.png", "style.css", "copyto.sh"}) {
      const QString from = QStringLiteral(QUILLANE_SOURCE_DIR "/data/WebTemplate/") + QString::fromLatin1(name);
      writeFile(installed_ + u'/' + QString::fromLatin1(name), fileBytes(from));
    }
    g_SettingsFile = folder_.path(u"settings.ini"_s);
    saveSmallProject(folder_.path());
    ASSERT_TRUE(g_Project->Load(folder_.path(u"Small.qn4"_s), false));
  }
  void TearDown() override {
    behindEachSave() = nullptr;
    newProject();
    QDir(installed_).removeRecursively();
    g_SettingsFile.clear();
    Clock::set({});
  }

  QString log(const QString& name) const { return folder_.path(u"Logs/"_s + name); }
  /// What was logged since this was last called.
  static QString logged() {
    Logging().WriteActionsToLog();
    const QString text = QString::fromLatin1(fileBytes(Logging().CurrentLogFilename()));
    QFile::remove(Logging().CurrentLogFilename());
    return text;
  }
  QByteArray page() const { return fileBytes(log(u"index.html"_s)); }

  ScriptedToolkit toolkit_;
  ScratchFolder folder_;
  const QString installed_ = Paths::programFolder() + u"WebTemplate"_s;
};

}  // namespace

TEST_F(ProgressLogTest, KeepsTheDaysCountsAndAPage) {
  chapterAt(1)->Title = u"Ünder\r\nall"_s;
  g_Project->Title = u"Пьеса & \"$WORDCOUNT\""_s;
  sceneAt(2)->Unused = true;
  WriteProgressLog();
  EXPECT_EQ(QDir(log({})).entryList(QDir::Files),
            (QStringList{u"2026-11-20 - Small.txt"_s, u"copyto.sh"_s, u"index.html"_s, u"logo.png"_s, u"style.css"_s,
                         u"WebTemplate.txt"_s}));
  const QString counts = QString::fromUtf8(fileBytes(log(u"2026-11-20 - Small.txt"_s)).sliced(3));
  EXPECT_TRUE(
      counts.startsWith(u"Word count summary for project: Пьеса & \"$WORDCOUNT\" by N. Öbody\r\n\r\n\r\n"
                        "Description   Words\r\nÜnder all, 3 \r\nDeparture, 4 \r\nCut scenes, 0 \r\n\r\n"
                        "Total word count: 7 (Date: "_s))
      << counts.toStdString();
  EXPECT_TRUE(counts.contains(u")\r\nTotal word count (inc Unused): 12 (Date: "_s));
  EXPECT_TRUE(counts.endsWith(u", 2026\r\n"_s));
  EXPECT_TRUE(page().contains("<h1>&#1055;&#1100;&#1077;&#1089;&#1072; &amp; &quot;$WORDCOUNT&quot;</h1>"));
  EXPECT_TRUE(page().contains("<strong>7</strong>") && !page().contains("$LASTMOD")) << page();

  // A second save of the day; what the writer has changed stays, what went comes back.
  sceneAt(2)->Unused = false;
  writeFile(log(u"style.css"_s), "mine");
  QFile::remove(log(u"logo.png"_s));
  writeFile(log(u"WebTemplate.txt"_s), "\xE9 $wordcount $WORDCOUNT$WORDCOUNT");
  WriteProgressLog();
  EXPECT_EQ(QDir(log({})).entryList(QDir::Files).size(), 6);
  EXPECT_TRUE(QString::fromUtf8(fileBytes(log(u"2026-11-20 - Small.txt"_s))).contains(u"Total word count: 9 "_s));
  EXPECT_EQ(fileBytes(log(u"style.css"_s)), "mine");
  EXPECT_EQ(fileBytes(log(u"logo.png"_s)), fileBytes(installed_ + u"/Logo.png"_s));
  EXPECT_EQ(page(), "\xE9 $wordcount 99");

  // Nothing to fill in, or far too much, leaves the page as it is; without one nobody is asked to publish it.
  writeFile(log(u"copyto.sh"_s), "#!/bin/sh\necho\n");
  for (const QByteArray& none : {QByteArray(" \r\n"), QByteArray(2'000'000, 'x')}) {
    writeFile(log(u"WebTemplate.txt"_s), none);
    EXPECT_FALSE(WriteProgressLog());
    EXPECT_EQ(page(), "\xE9 $wordcount 99");
  }
}

TEST_F(ProgressLogTest, WritesNowhereButInTheBooksFolder) {
  const ScratchFolder elsewhere;
  writeFile(elsewhere.path(u"mine"_s), "mine");
  ASSERT_TRUE(QFile::link(elsewhere.path(), folder_.path(u"Logs"_s)));
  WriteProgressLog();
  EXPECT_EQ(QDir(elsewhere.path()).entryList(QDir::Files), QStringList(u"mine"_s));
  QFile::remove(folder_.path(u"Logs"_s));

  // Nor into its own files.
  const QMap<QString, QByteArray> book = filesBelow(folder_.path());
  const QStringList targets{u"Small.qn4"_s, u"RTF/RTF_00001.rtf"_s, u"new"_s};
  QDir().mkpath(log({}));
  ASSERT_TRUE(QFile::link(folder_.path(targets[0]), log(u"index.html"_s)));
  ASSERT_TRUE(QFile::link(folder_.path(targets[1]), log(u"2026-11-20 - Small.txt"_s)));
  ASSERT_TRUE(QFile::link(folder_.path(targets[2]), log(u"logo.png"_s)));
  WriteProgressLog();
  EXPECT_EQ(filesBelow(folder_.path()), book);
  EXPECT_TRUE(QFile::exists(log(u"style.css"_s)));
  QDir(log({})).removeRecursively();
  ASSERT_TRUE(QFile::link(folder_.path(u"RTF"_s), folder_.path(u"Logs"_s)));
  WriteProgressLog();
  QFile::remove(folder_.path(u"Logs"_s));
  EXPECT_EQ(filesBelow(folder_.path()), book);

  QDir(installed_).removeRecursively();
  QDir(log({})).removeRecursively();
  WriteProgressLog();
  EXPECT_EQ(QDir(log({})).entryList(QDir::Files), QStringList(u"2026-11-20 - Small.txt"_s));
  QDir(log({})).removeRecursively();
  g_Project->FileWithPath.clear();
  WriteProgressLog();
  EXPECT_FALSE(QFile::exists(log({})));
}

TEST_F(ProgressLogTest, AChangedScriptRunsOnlyWhereTheWriterSaidSo) {
  EXPECT_FALSE(WriteProgressLog());
  for (const char* nothing : {"#!/bin/sh\r\n# An older template\r\n", "", " \n#"}) {
    writeFile(log(u"copyto.sh"_s), nothing);
    EXPECT_FALSE(WriteProgressLog()) << nothing;
  }
  writeFile(log(u"copyto.sh"_s), "#!/bin/sh\necho one\n");
  ASSERT_TRUE(WriteProgressLog());
  EXPECT_TRUE(toolkit_.programsRun.isEmpty());
  toolkit_.expectBox(u"This project has a publishing script"_s, Answer::No);
  PublishingScript::ask();
  EXPECT_EQ(toolkit_.lastButtons, Buttons::NoUnlessYes);
  EXPECT_FALSE(WriteProgressLog());
  EXPECT_TRUE(toolkit_.programsRun.isEmpty());

  // Another script is another question.
  writeFile(log(u"copyto.sh"_s), "#!/bin/sh\necho two\n");
  toolkit_.expectBox(u"copyto.sh"_s, Answer::Yes);
  PublishingScript::ask();
  PublishingScript::ask();
  WriteProgressLog();
  ASSERT_EQ(toolkit_.programsRun.size(), 2);
  EXPECT_TRUE(toolkit_.programsRun[0].contains(u"Logs/copyto.sh"_s));

  // A link isn't what was asked about, nor can everything be run.
  QFile::rename(log(u"copyto.sh"_s), log(u"other.sh"_s));
  ASSERT_TRUE(QFile::link(log(u"other.sh"_s), log(u"copyto.sh"_s)));
  WriteProgressLog();
  QFile::remove(log(u"copyto.sh"_s));
  writeFile(log(u"copyto.sh"_s), "echo by what?\n");
  toolkit_.expectBox(u"copyto.sh"_s, Answer::Yes);
  PublishingScript::ask();
  EXPECT_EQ(toolkit_.programsRun.size(), 2);
  EXPECT_TRUE(toolkit_.openedDocuments.isEmpty());
  QFile::rename(log(u"other.sh"_s), log(u"copyto.sh"_s));

  // And another folder.
  const ScratchFolder copy;
  QDir().mkpath(copy.path(u"Logs"_s));
  ASSERT_TRUE(QFile::copy(log(u"copyto.sh"_s), copy.path(u"Logs/copyto.sh"_s)));
  writeFile(copy.path(u"Logs/WebTemplate.txt"_s), "page");
  g_Project->FileWithPath = copy.path(u"Small.qn4"_s);
  EXPECT_TRUE(WriteProgressLog());
}

TEST_F(ProgressLogTest, AFailureIsLoggedOnceAndTheSaveWasDone) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  ASSERT_TRUE(g_Project->SaveQN4(false));
  const QMap<QString, QByteArray> book = filesBelow(folder_.path());
  const auto save = [&] {
    logged();
    EXPECT_TRUE(g_Project->SaveQN4(false));
    auto files = filesBelow(folder_.path());
    files.remove(u"Logs"_s);
    EXPECT_EQ(files, book);
    return logged().count(u"Logs"_s);
  };
  behindEachSave() = [] {
    const FailingDisk full;
    WriteProgressLog();
  };
  EXPECT_GT(save(), 0);
  EXPECT_TRUE(QDir(log({})).entryList(QDir::Files | QDir::Hidden).isEmpty());

  QDir(log({})).removeRecursively();
  writeFile(folder_.path(u"Logs"_s), "a file");
  behindEachSave() = &WriteProgressLog;
  EXPECT_LE(save(), 2);
}

TEST_F(ProgressLogTest, OnlyASaveOfTheBookIsLogged) {
  const ScratchFolder elsewhere;
  int logs = 0;
  behindEachSave() = [&logs] { ++logs; };
  EXPECT_TRUE(ProjectSaver(*g_Project).saveCopy(elsewhere.path(u"copy.qnc4"_s)));
  EXPECT_TRUE(g_Project->SaveQNC4(false));
  EXPECT_EQ(logs, 0);
  EXPECT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(logs, 1);
}
