#pragma once

#include <QString>

#include <optional>

class clsProject;

/// What a writer means to write in a period: its days are day numbers, the target is a net amount.
struct WordTarget {
  qint32 startDate = 0;
  qint32 endDate = 0;
  /// Words that the book had at the start.
  qint32 startCount = 0;
  qint32 words = 0;

  /// A period that isn't set begins today and ends in thirty days.
  static WordTarget of(const clsProject& project, qint32 today);
  void storeIn(clsProject& project) const;

  bool operator==(const WordTarget&) const = default;
};

/// A number as people write it, by the locale or with a point; nothing at all is 0. Throws RuntimeError 13 for what is
/// no number and 6 for one that is out of 32 bits.
double typedNumber(const QString& text);
/// The same as a whole number, half to even.
qint32 typedCount(const QString& text);

/// What the figures are worked out from. A number is missing where none was typed.
struct TargetInput {
  qint32 startDate = 0;
  qint32 endDate = 0;
  std::optional<double> startCount;
  std::optional<double> target;
  /// Words that the book has now.
  qint32 projectWords = 0;
};

/// How far the target is reached, and what each day asks for.
struct TargetShare {
  qint64 done = 0;
  qint64 target = 0;
  qint64 startCount = 0;
  qint64 perDay = 0;

  qint64 left() const { return target - done; }
  qint64 total() const { return startCount + target; }
  qint64 middle() const { return startCount + target / 2; }
  /// "120 words done (2.4%)".
  QString text() const;
};

struct TargetFigures {
  std::optional<qint32> daysLeft;
  /// Nothing where it can't be worked out, and where more than the target is written.
  std::optional<TargetShare> share;
  /// One line for the writer.
  QString status;
};

/// Before its start a period counts with both its days; once it is running today doesn't count any more.
TargetFigures targetFigures(const TargetInput& input, qint32 today);

/// What the project's target asks for, in a line; nothing where it has none.
QString targetSummary(const clsProject& project, qint32 projectWords, qint32 today);
