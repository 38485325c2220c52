#include "core/infra/cSharedGetDate.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cSharedGetDate";

cSharedGetDate::Window& installed() {
  static cSharedGetDate::Window window;
  return window;
}

void logOrder(const DateEntry& entry) {
  Logging().AddDebug(u"Using format: "_s + entry.orderString() + u", Monthfield: "_s +
                     QString::number(Dates().SysDateMonthField()) + u", Dayfield: "_s +
                     QString::number(Dates().SysDateDayField()));
}

bool isWithin(const QDate& date, const QDate& limit) {
  return date.year() == limit.year() && date.month() == limit.month() && date.day() <= limit.day();
}

}  // namespace

void cSharedGetDate::installWindow(Window window) {
  installed() = std::move(window);
}

qint32 cSharedGetDate::GetDate(const QString& prompt, qint32 start) const {
  const bool monthFirst = Dates().SysDateMonthField() <= Dates().SysDateDayField();
  DateEntry entry(monthFirst, Dates().DateSeparator(), start == 0 ? Clock::today() : Clock::dateOf(start));
  logOrder(entry);
  const QString caption =
      prompt.isEmpty() ? translated(u"Enter the date (%1)"_s).arg(translated(entry.orderString())) : prompt;
  Guard("GetDate", kModule)([&] {
    if (installed()) {
      installed()(entry, caption);
    }
  });
  return entry.result() ? Clock::dayNumber(*entry.result()) : 0;
}

qint32 cSharedGetDate::GetDateUpTo(const QString& prompt, qint32 limit) const {
  const QDate last = Clock::dateOf(limit);
  for (qint32 day = GetDate(prompt, limit); day != 0; day = GetDate(prompt, limit)) {
    if (isWithin(Clock::dateOf(day), last)) {
      return day;
    }
    toolkit().MsgBox(translated(u"The date must be in the current month (up to %1)"_s)
                         .arg(formatByPattern(last, u"DD-MMM-YYYY"_s, QLocale())));
  }
  return 0;
}
