#include "core/infra/Clock.h"

#include <chrono>

namespace {

QDateTime& fixedTime() {
  static QDateTime time;
  return time;
}

const QDate kDayZero(1899, 12, 30);

}  // namespace

namespace Clock {

QDateTime now() {
  return fixedTime().isValid() ? fixedTime() : QDateTime::currentDateTime();
}

QDate today() {
  return now().date();
}

qint64 ticks() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void set(const QDateTime& time) {
  fixedTime() = time;
}

qint32 dayNumber(const QDate& date) {
  return static_cast<qint32>(kDayZero.daysTo(date));
}

QDate dateOf(qint32 dayNumber) {
  return kDayZero.addDays(dayNumber);
}

}  // namespace Clock
