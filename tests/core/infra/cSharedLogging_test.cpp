#include "core/infra/cSharedLogging.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedFileSubs.h"
#include "support/FailingDisk.h"
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

TEST_F(cSharedLoggingTest, AnEventIsOneLine) {
  cSharedLogging log;
  log.OverrideLogFilename(path);
  log.LogEvent(u"first\r\nsecond\nthird\rend"_s);
  EXPECT_EQ(lines(), QStringList(u"1 14:03:22, first second third end"_s));
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
  EXPECT_EQ(written[19], u"1 14:03:41, 19"_s);
  EXPECT_EQ(written[20], u"1 15:03:22, DBG: last in Form_Load of module frmStoryboard"_s);
  EXPECT_EQ(log.CurrentAction(), QString());
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
