#include "core/infra/ErrorReport.h"

#include "core/infra/Clock.h"
#include "core/infra/CodePage.h"
#include "core/infra/Maker.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

namespace {

const QString kEscapedBreak = u"%0D%0A"_s;
const QString kBreak = u"\r\n"_s;

/// The percent sign goes first, so that those of the others survive.
QString escaped(QString text) {
  text.replace(u"%"_s, u"%25"_s).replace(u"?"_s, u"%3F"_s).replace(u"&"_s, u"%26"_s).replace(u"#"_s, u"%23"_s);
  return text.replace(u'\n', u'\r').replace(u"\r\r"_s, u"\r"_s).replace(u"\r"_s, kEscapedBreak);
}

}  // namespace

ErrorReport ErrorReport::about(const QString& error) {
  ErrorReport report;
  report.error = error;
  report.logPath = Logging().CurrentLogFilename();
  // What is reported may still wait in the queue.
  Logging().WriteActionsToLog();
  QByteArray log;
  report.log = Files().LoadTextFile(report.logPath, log) ? CodePage::fromMarkedBytes(log) : u"No log file"_s;
  report.year = Clock::today().year();
  report.version = Subs().AppVersion();
  report.platform = Subs().GetWinPlatform();
  return report;
}

QString ErrorReport::title() const {
  return QLatin1String(Maker::kProgramTitle);
}

QString ErrorReport::mailbox() const {
  return u"bugs"_s + QString::number(year).rightJustified(4, u'0') + u'@' + QLatin1String(Maker::kMailDomain);
}

QString ErrorReport::whatFailed() const {
  return commented ? u"User: "_s + comment + kBreak + error : error;
}

QString ErrorReport::mailLink() const {
  constexpr qsizetype kLongestBody = 400;
  const QString body = u"Error Report: "_s + title() + u' ' + version + u", "_s + platform +
                       u" (Please click Attach and add the file "_s + Files().FileOnly(logPath) + u')' + kEscapedBreak +
                       kEscapedBreak + escaped(whatFailed()) + kEscapedBreak + kEscapedBreak + escaped(log);
  QString subject = u"Bug Report ("_s + title() + u" - "_s + version + u')';
  subject.replace(u" "_s, u"%20"_s);
  return u"mailto:"_s + mailbox() + u"?subject="_s + subject + u"&body="_s + body.left(kLongestBody) +
         u"&attachment=\""_s + logPath + u'"';
}

QString ErrorReport::plainText() const {
  constexpr qsizetype kRuleLength = 75;
  const QStringList lines{translated(u"If the 'submit report' button doesn't work on your system, open an email"_s),
                          translated(u"to '%1' and paste the following text into it."_s).arg(mailbox()),
                          {},
                          translated(u"Submitting a bug report helps improve the software."_s),
                          {},
                          QString(kRuleLength, u'-'),
                          {},
                          u"Error Report: "_s + title() + u' ' + version + u", "_s + platform,
                          {},
                          whatFailed(),
                          {},
                          log};
  return lines.join(kBreak);
}
