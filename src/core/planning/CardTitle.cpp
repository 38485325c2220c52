#include "core/planning/CardTitle.h"

#include "core/planning/BoardGrid.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <vector>

namespace {

/// No line takes so many units.
constexpr qsizetype kMoreThanALine = 512;

/// Where each letter ends, as its reader sees letters.
std::vector<qsizetype> lettersOf(QStringView text) {
  std::vector<qsizetype> ends;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
  for (qsizetype end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
    ends.push_back(end);
  }
  return ends;
}

/// Letters of a line: the first that is too much begins the next. Found by halving, not by one letter after another.
qsizetype lineEnd(QStringView rest, const CardTitle::Measure& measure) {
  const std::vector<qsizetype> ends = lettersOf(rest.left(kMoreThanALine));
  const auto fits = [&](qsizetype end) { return measure(rest.left(end)) + CardTitle::kLeft < BoardGrid::kCardWidth; };
  const auto tooMuch = std::partition_point(ends.begin() + 1, ends.end(), fits);
  return *(tooMuch - 1);
}

}  // namespace

QStringList CardTitle::lines(const QString& title, int most, const Measure& measure) {
  constexpr double kUsable = BoardGrid::kCardWidth - 2 * kLeft;
  if (title.size() < kMoreThanALine && measure(title) <= kUsable) {
    return {title};
  }
  QStringList found;
  QStringView rest(title);
  while (!rest.isEmpty() && found.size() < most) {
    const qsizetype end = lineEnd(rest, measure);
    found.append(rest.left(end).toString());
    rest = rest.mid(end);
  }
  return found;
}
