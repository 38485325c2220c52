#include "core/planning/WordTarget.h"

#include "core/infra/Clock.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"

#include <QLocale>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kMonth = 30;
/// Keeps a division by a target of 0 away. It shows in the percents of small targets.
constexpr double kNearlyNothing = 0.0001;

qint32 daysLeft(const TargetInput& input, qint32 today) {
  return today > input.startDate ? input.endDate - today : input.endDate - input.startDate + 1;
}

/// Half to even.
qint64 rounded(double value) {
  return static_cast<qint64>(std::nearbyint(value));
}

}  // namespace

WordTarget WordTarget::of(const clsProject& project, qint32 today) {
  return {project.WordTargetStartDate < 1 ? today : project.WordTargetStartDate,
          project.WordTargetEndDate < 1 ? today + kMonth : project.WordTargetEndDate, project.WordCountStart,
          project.WordTarget};
}

void WordTarget::storeIn(clsProject& project) const {
  project.WordTargetStartDate = startDate;
  project.WordTargetEndDate = endDate;
  project.WordCountStart = startCount;
  project.WordTarget = words;
}

double typedNumber(const QString& text) {
  const QString typed = text.trimmed();
  if (typed.isEmpty()) {
    return 0;
  }
  bool isNumber = false;
  double value = QLocale().toDouble(typed, &isNumber);
  if (!isNumber) {
    value = QLocale::c().toDouble(typed, &isNumber);
  }
  if (!isNumber || !std::isfinite(value)) {
    throw RuntimeError(RuntimeError::TypeMismatch);
  }
  if (std::abs(value) > std::numeric_limits<qint32>::max()) {
    throw RuntimeError(RuntimeError::Overflow);
  }
  return value;
}

qint32 typedCount(const QString& text) {
  return static_cast<qint32>(rounded(typedNumber(text)));
}

QString TargetShare::text() const {
  const double percents = 100 * static_cast<double>(done) / (static_cast<double>(target) + kNearlyNothing);
  // No minus in front of nothing.
  const double tenths = std::round(percents * 10) / 10 + 0.0;
  return translated(u"%L1 words done (%L2%)"_s).arg(done).arg(tenths, 0, 'f', 1);
}

TargetFigures targetFigures(const TargetInput& input, qint32 today) {
  const qint32 days = daysLeft(input, today);
  if (days <= 0) {
    return {{}, {}, translated(u"Please ensure the end date is ahead of today's date"_s)};
  }
  if (!input.target) {
    return {days, {}, translated(u"Words to Write must be a number"_s)};
  }
  if (*input.target == 0) {
    return {days, {}, translated(u"Need a TARGET word count"_s)};
  }
  if (!input.startCount) {
    return {days, {}, translated(u"Starting Count must be a number"_s)};
  }
  TargetShare share{rounded(input.projectWords - *input.startCount), rounded(*input.target), rounded(*input.startCount),
                    0};
  if (share.left() < 0) {
    return {days, {}, translated(u"Word count achieved"_s)};
  }
  share.perDay = rounded(static_cast<double>(share.left()) / days);
  return {days, share, translated(u"You need to write %L1 more words"_s).arg(share.left())};
}

QString targetSummary(const clsProject& project, qint32 projectWords, qint32 today) {
  const WordTarget target = WordTarget::of(project, today);
  if (target.words == 0) {
    return {};
  }
  const TargetFigures figures = targetFigures(
      {target.startDate, target.endDate, double(target.startCount), double(target.words), projectWords}, today);
  if (!figures.share) {
    return translated(u"Daily word target: %1"_s).arg(figures.status);
  }
  return translated(u"Daily word target: %L1 words a day until %2"_s)
      .arg(figures.share->perDay)
      .arg(Dates().ShortFormatDate(Clock::dateOf(target.endDate)));
}
