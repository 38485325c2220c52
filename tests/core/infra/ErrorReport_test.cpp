#include "core/infra/ErrorReport.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ErrorReport sample() {
  ErrorReport report;
  report.error = u"Broke & fell?"_s;
  report.log = u"100%\r\nnext"_s;
  report.logPath = u"/home/a b/log.txt"_s;
  report.year = 2026;
  report.version = u"4.0.0"_s;
  report.platform = u"Linux"_s;
  return report;
}

const QString kTo = u"mailto:bugs2026@brackenlight.example?subject=Bug%20Report%20(Quillane%20-%204.0.0)&body="_s;
const QString kStart =
    u"Error Report: Quillane 4.0.0, Linux (Please click Attach and add the file log.txt)%0D%0A%0D%0A"_s;
const QString kEnd = u"&attachment=\"/home/a b/log.txt\""_s;

}  // namespace

TEST(ErrorReport, ACommentCountsOnceTheUserHasTyped) {
  ErrorReport report = sample();
  report.comment = u"I #typed\n\nthis"_s;
  EXPECT_EQ(report.mailLink(), kTo + kStart + u"Broke %26 fell%3F%0D%0A%0D%0A100%25%0D%0Anext"_s + kEnd);
  report.commented = true;
  EXPECT_TRUE(report.mailLink().contains(u"%0D%0AUser: I %23typed%0D%0Athis%0D%0ABroke"_s));
  EXPECT_TRUE(report.plainText().contains(u"\r\n\r\nUser: I #typed\n\nthis\r\nBroke & fell?\r\n\r\n100%\r\nnext"_s));
}

TEST(ErrorReport, ItTakesTheLogThatIsInUse) {
  Logging().LogEvent(u"Added \u0416"_s);
  Logging().AddDebug(u"what failed"_s);
  const QString log = ErrorReport::about(u"x"_s).log;
  EXPECT_TRUE(log.contains(u"Added \u0416\r\n"_s));
  EXPECT_TRUE(log.endsWith(u"DBG: what failed\r\n"_s)) << "what is still queued belongs to the report";
  Files().EraseFile(Logging().CurrentLogFilename());
  EXPECT_EQ(ErrorReport::about(u"x"_s).log, u"No log file"_s);
}
