#include "core/infra/cSharedLogging.h"

#include "core/infra/Clock.h"
#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "support/FailingDisk.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A log of its own in a folder of its own, at a fixed time.
class cSharedLoggingTest : public ::testing::Test {
 protected:
  cSharedLoggingTest() { Clock::set(start); }
  ~cSharedLoggingTest() override { Clock::set({}); }

  QStringList lines() const {
    QByteArray text;
    Files().LoadTextFile(path, text);
    return QString::fromLatin1(text).split(u"\r\n"_s, Qt::SkipEmptyParts);
  }

  const QDateTime start{QDate(2026, 3, 1), QTime(14, 3, 22)};
  ScratchFolder folder;
  QString path = folder.path(u"my.log"_s);
};

}  // namespace

TEST_F(cSharedLoggingTest, ANewLogBeginsWithItsHeader) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  log.LogEvent(u"earlier"_s);
  log.LogEvent(u"Starting Application"_s, true);
  log.LogEvent(u"Added \u0416"_s);
  const QStringList expected{u"1 14:03:22, Log file created "_s,
                             u"1 14:03:22, Operating System: "_s + Subs().GetWinPlatform(),
                             u"1 14:03:22, App: tests_infra"_s,
                             u"1 14:03:22, Version: "_s + Subs().AppVersion(),
                             u"1 14:03:22, Curdir: "_s + QDir::currentPath(),
                             u"1 14:03:22, App path: "_s + QDir::cleanPath(Paths::executableFolder()),
                             u"1 14:03:22, Starting Application"_s,
                             u"1 14:03:22, Added %u0416"_s};
  EXPECT_EQ(lines(), expected);
}

TEST_F(cSharedLoggingTest, TheNumberIsThatOfTheOpenChannel) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  const int other = Channels().Open(folder.path(u"other"_s), FileChannels::Mode::Output);
  log.LogEvent(u"first\r\nsecond\nthird\rend"_s);
  Channels().Close(other);
  EXPECT_EQ(lines(), QStringList(u"2 14:03:22, first second third end"_s)) << "an event is one line";
}

TEST_F(cSharedLoggingTest, TheTwentyFirstMessageFlushesAllWithTheirOwnTimes) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  for (int i = 0; i < 20; ++i) {
    Clock::set(start.addSecs(i));
    log.AddAction(QString::number(i));
  }
  EXPECT_FALSE(Files().FileExists(path));
  EXPECT_EQ(log.CurrentAction(), u"19"_s);
  Clock::set(start.addSecs(3600));
  log.AddDebug(u"last"_s, u"Form_Load"_s, u"frmStoryboard"_s);
  const QStringList written = lines();
  ASSERT_EQ(written.size(), 21);
  EXPECT_EQ(written[0], u"1 14:03:22, 0"_s);
  EXPECT_EQ(written[19], u"1 14:03:41, 19"_s);
  EXPECT_EQ(written[20], u"1 15:03:22, DBG: last in Form_Load of module frmStoryboard"_s);
  EXPECT_EQ(log.CurrentAction(), QString());
}

TEST_F(cSharedLoggingTest, MessagesAreDecoratedWithWhatIsKnown) {
  cSharedLogging log;
  log.NOLOGGING = false;
  log.OverrideLogFilename(path);
  const auto decorated = [&](const QString& routine, const QString& module) {
    log.AddDebug(u"m"_s, routine, module);
    return log.CurrentAction();
  };
  EXPECT_EQ(decorated({}, {}), u"DBG: m"_s);
  EXPECT_EQ(decorated(u"r"_s, {}), u"DBG: m in r"_s);
  EXPECT_EQ(decorated({}, u"c"_s), u"DBG: m of module c"_s);
  log.LogError(RuntimeError(RuntimeError::DiskFull), u"Save"_s, u"clsProject"_s);
  EXPECT_EQ(lines(), QStringList({u"1 14:03:22, Error 61 (Disk full) in Save of clsProject"_s, u"1 14:03:22, DBG: m"_s,
                                  u"1 14:03:22, DBG: m in r"_s, u"1 14:03:22, DBG: m of module c"_s}));
}

TEST_F(cSharedLoggingTest, WithNoLoggingNothingIsKept) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  log.NOLOGGING = true;
  log.LogEvent(u"x"_s, true);
  log.LogError(RuntimeError(5), u"r"_s, u"c"_s);
  for (int i = 0; i < 30; ++i) {
    log.AddDebug(u"x"_s);
  }
  EXPECT_EQ(log.CurrentAction(), QString());
  EXPECT_FALSE(Files().FileExists(path));
}

TEST_F(cSharedLoggingTest, TheNameFallsBackToTheProgramsFolder) {
  cSharedLogging log;
  log.OverrideLogFilename(folder.path(u"missing/other.log"_s));
  EXPECT_EQ(log.CurrentLogFilename(), Paths::programFolder() + u"other.log"_s);
  cSharedLogging fresh;
  EXPECT_EQ(fresh.CurrentLogFilename(), QString());
  fresh.LogEvent(u"x"_s);
  EXPECT_EQ(fresh.CurrentLogFilename(), Paths::programFolder() + u"log.txt"_s);
}

TEST_F(cSharedLoggingTest, ALogThatCannotBeErasedIsAppendedTo) {
  Files().WriteTextFile(path, QByteArray("1 00:00:00, old\r\n"));
  QFile::setPermissions(path, QFile::Permissions(0x6666));
  QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
  cSharedLogging log;
  log.OverrideLogFilename(path);
  {
    const OrdinaryUser user;
    if (!user.limited()) {
      GTEST_SKIP() << "permissions don't refuse here";
    }
    log.LogEvent(u"Starting Application"_s, true);
  }
  EXPECT_EQ(lines(), QStringList({u"1 00:00:00, old"_s, u"1 14:03:22, Starting Application"_s}));
}

TEST_F(cSharedLoggingTest, ALineThatComesAgainIsCounted) {
  {
    cSharedLogging log;
    log.OverrideLogFilename(path);
    for (int i = 0; i < 100; ++i) {
      Clock::set(start.addSecs(i));
      log.AddAction(u"storm"_s);
    }
    EXPECT_EQ(lines().size(), 1) << "not one line for each flush";
    log.LogError(RuntimeError(RuntimeError::DiskFull), u"Save"_s, u"clsProject"_s);
    log.AddAction(u"storm"_s);
    log.WriteActionsToLog();
    EXPECT_EQ(lines().constLast(), u"1 14:05:01, last line repeated 16 times"_s);
    log.LogEvent(u"last"_s);
    log.LogEvent(u"last"_s);
    log.AddAction(u"queued"_s);
  }
  EXPECT_EQ(lines(), QStringList({u"1 14:03:22, storm"_s, u"1 14:04:45, last line repeated 83 times"_s,
                                  u"1 14:05:01, Error 61 (Disk full) in Save of clsProject"_s, u"1 14:04:46, storm"_s,
                                  u"1 14:05:01, last line repeated 16 times"_s, u"1 14:05:01, last"_s,
                                  u"1 14:05:01, last line repeated 1 time"_s, u"1 14:05:01, queued"_s}));
}

TEST_F(cSharedLoggingTest, AFullLogSaysSoAndTakesOnlyTheEnd) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  const QString part(1024 * 1024, u'x');
  for (int i = 0; i < 12; ++i) {
    log.LogEvent(part + QString::number(i));
  }
  log.AddDebug(u"later"_s);
  log.LogEnd();
  QStringList written = lines();
  EXPECT_LE(Files().FileSize(path), 10 * 1024 * 1024 + 200);
  ASSERT_EQ(written.size(), 11);
  EXPECT_TRUE(written[8].endsWith(u"x8"_s)) << "what came first stays";
  EXPECT_EQ(written[9], u"1 14:03:22, The log has reached 10 MB. Nothing more of this run is written"_s);
  EXPECT_EQ(written[10], u"1 14:03:22, Program ended"_s);
  log.LogEvent(u"Starting Application"_s, true);
  log.LogEvent(u"fits again"_s);
  EXPECT_EQ(lines().constLast(), u"1 14:03:22, fits again"_s);
}

TEST_F(cSharedLoggingTest, LinesWaitUntilTheyHaveReachedTheFile) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  cSharedLogging log;
  log.OverrideLogFilename(path);
  log.AddAction(u"one"_s);
  log.AddAction(u"two"_s);
  {
    const FailingDisk full;
    log.WriteActionsToLog();
  }
  EXPECT_EQ(log.CurrentAction(), u"two"_s);
  log.WriteActionsToLog();
  EXPECT_EQ(lines(), QStringList({u"1 14:03:22, one"_s, u"1 14:03:22, two"_s}));
}

TEST_F(cSharedLoggingTest, ALogThatCannotBeWrittenCostsOnlyTheLines) {
  QDir(folder.path()).mkdir(u"my.log"_s);
  cSharedLogging log;
  log.OverrideLogFilename(path);
  log.LogEvent(u"x"_s, true);
  for (int i = 0; i < 3000; ++i) {
    log.AddDebug(QString::number(i));
  }
  EXPECT_EQ(log.CurrentAction(), u"DBG: 2999"_s);
  QDir(folder.path()).rmdir(u"my.log"_s);
  log.WriteActionsToLog();
  const QStringList written = lines();
  ASSERT_EQ(written.size(), 1000) << "the newest wait for the next attempt";
  EXPECT_EQ(written.constLast(), u"1 14:03:22, DBG: 2999"_s);
}

TEST(Guard, LogsAnyFailureAndGoesOn) {
  const Guard guard("Form_Load", "frmStoryboard");
  EXPECT_TRUE(guard([] {}));
  const auto logged = [&](const auto& statement) {
    EXPECT_FALSE(guard(statement));
    return Logging().CurrentAction();
  };
  const QString where = u" in Form_Load of module frmStoryboard"_s;
  Logging().WriteActionsToLog();
  EXPECT_EQ(logged([] { throw RuntimeError(RuntimeError::TypeMismatch); }), u"DBG: Type mismatch (13)"_s + where);
  EXPECT_EQ(logged([] { throw std::bad_alloc(); }), u"DBG: Out of memory (7)"_s + where);
  EXPECT_EQ(logged([] { throw std::out_of_range("vector::at"); }), u"DBG: vector::at (51)"_s + where);
  EXPECT_EQ(logged([] { throw 5; }), u"DBG: Internal error (51)"_s + where);
}

TEST(cSHAREDShowError, HandsTheTextToTheReporter) {
  ScriptedToolkit person;
  person.expectErrorReport(u"Error 61 - Disk full in SaveProject of clsProject"_s);
  ShowError().ShowErrObj(RuntimeError(RuntimeError::DiskFull), u"SaveProject"_s, u"clsProject"_s);
}
