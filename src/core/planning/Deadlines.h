#pragma once

#include <QtGlobal>

#include <array>

class clsProject;

/// The date ranges of the status ladder, one for each level from 1 to 5: the first working day and the last day. Day
/// numbers; 0 is unset.
struct Deadlines {
  static constexpr size_t kLevels = 5;

  struct Range {
    qint32 start = 0;
    qint32 end = 0;

    bool operator==(const Range&) const = default;
  };

  static Deadlines of(const clsProject& project);
  void storeIn(clsProject& project) const;

  /// What is unset gets its place in five months of 30 days, one behind the other from today on. Then the last level
  /// begins before it ends: that is when the book is done.
  void fillUnset(qint32 today);
  /// What is unset becomes today.
  void FixDates(qint32 today);

  bool operator==(const Deadlines&) const = default;

  /// The first is level 1.
  std::array<Range, kLevels> levels{};
};

/// The dates that stand before one which they must follow, by level from 0.
struct DatesOutOfOrder {
  /// A start before the deadline of the level below.
  std::array<bool, Deadlines::kLevels> start{};
  /// A deadline before its own start.
  std::array<bool, Deadlines::kLevels> end{};

  bool any() const;
};

/// Runs FixDates first. The first level's own pair is left as it stands.
DatesOutOfOrder BadValues(Deadlines& deadlines, qint32 today);
