#include "core/planning/Deadlines.h"

#include "core/model/clsProject.h"

#include <algorithm>
#include <functional>

namespace {

constexpr qint32 kMonth = 30;

constexpr int levelOf(size_t index) {
  return static_cast<int>(index) + 1;
}

void setIfUnset(qint32& date, qint32 value) {
  if (date == 0) {
    date = value;
  }
}

}  // namespace

Deadlines Deadlines::of(const clsProject& project) {
  Deadlines deadlines;
  for (size_t i = 0; i < kLevels; ++i) {
    deadlines.levels[i] = {project.DeadlineStartDate(levelOf(i)), project.DeadlineDate(levelOf(i))};
  }
  return deadlines;
}

void Deadlines::storeIn(clsProject& project) const {
  for (size_t i = 0; i < kLevels; ++i) {
    project.setDeadlineStartDate(levelOf(i), levels[i].start);
    project.setDeadlineDate(levelOf(i), levels[i].end);
  }
}

void Deadlines::fillUnset(qint32 today) {
  qint32 begin = today;
  for (Range& range : levels) {
    setIfUnset(range.start, begin);
    setIfUnset(range.end, begin + kMonth - 1);
    begin += kMonth;
  }
  Range& last = levels.back();
  if (last.start > last.end) {
    last.start = last.end - 1;
  }
}

void Deadlines::FixDates(qint32 today) {
  for (Range& range : levels) {
    setIfUnset(range.start, today);
    setIfUnset(range.end, today);
  }
}

bool DatesOutOfOrder::any() const {
  const auto anyOf = [](const auto& flags) { return std::any_of(flags.begin(), flags.end(), std::identity()); };
  return anyOf(start) || anyOf(end);
}

DatesOutOfOrder BadValues(Deadlines& deadlines, qint32 today) {
  deadlines.FixDates(today);
  DatesOutOfOrder found;
  const auto& levels = deadlines.levels;
  for (size_t i = 1; i < levels.size(); ++i) {
    found.start[i] = levels[i].start < levels[i - 1].end;
    found.end[i] = levels[i].end < levels[i].start;
  }
  return found;
}
