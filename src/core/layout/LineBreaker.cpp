#include "core/layout/LineBreaker.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace {

/// What words take together may differ so much from what they take in their line, as a part of its width.
constexpr double kDoubt = 0.015;
/// A longer run without a blank is no word, and is looked at only as far as a line reaches.
constexpr qsizetype kLongestWord = 120;
constexpr qsizetype kFarAway = 4096;

std::u16string_view unitsOf(QStringView text) {
  return {text.utf16(), static_cast<size_t>(text.size())};
}

/// Letters and what belongs to them aren't parted: the nearest place at or before `cut`, else the first behind it.
qsizetype wholeLetters(QStringView text, qsizetype cut) {
  constexpr qsizetype kAround = 64;
  QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text.data(), qMin(text.size(), cut + kAround));
  letters.setPosition(cut);
  if (letters.isAtBoundary()) {
    return cut;
  }
  const qsizetype before = letters.toPreviousBoundary();
  if (before > 0) {
    return before;
  }
  letters.setPosition(cut);
  const qsizetype behind = letters.toNextBoundary();
  return behind > 0 ? behind : text.size();
}

}  // namespace

LineBreaker::LineBreaker(const TextMeasure& measure, PrintFont font)
    : measure_(measure),
      font_(std::move(font)),
      lineHeight_(measure.lineHeight(font_)),
      blank_(measure.width(u" ", font_)) {}

LineBreaker::Line LineBreaker::lineAt(QStringView paragraph, qsizetype from, double width) const {
  const QStringView rest = paragraph.mid(from);
  double sum = 0;
  qsizetype lastBlank = -1;
  bool anyWord = false;
  for (qsizetype at = 0;;) {
    const qsizetype end = endOfWord(rest, at, width);
    const QStringView word = rest.mid(at, end - at);
    const bool tooLong = word.size() > kLongestWord && lettersThatFit(rest.left(end), width) < end;
    if (tooLong || !fits(rest.left(end), sum += wordWidth(word), width)) {
      return lastBlank >= 0 ? Line{lastBlank, from + lastBlank + 1} : cutWord(rest.left(end), width, from);
    }
    anyWord = anyWord || !word.isEmpty();
    if (end == rest.size()) {
      return {end, paragraph.size()};
    }
    if (anyWord) {
      lastBlank = end;
    }
    sum += blank_;
    if (!fits(rest.left(end + 1), sum, width)) {
      return lastBlank >= 0 ? Line{lastBlank, from + lastBlank + 1} : Line{0, from + end + 1};
    }
    at = end + 1;
  }
}

/// Of a run that goes on far beyond the line, a place in it beyond the line: where it ends doesn't matter then, and
/// would be looked for again by every line.
qsizetype LineBreaker::endOfWord(QStringView rest, qsizetype at, double width) const {
  const qsizetype found = rest.mid(at, kFarAway).indexOf(u' ');
  if (found >= 0) {
    return at + found;
  }
  const qsizetype beyond = at + kFarAway;
  if (rest.size() <= beyond || lettersThatFit(rest.left(beyond), width) < beyond) {
    return qMin(beyond, rest.size());
  }
  const qsizetype end = rest.indexOf(u' ', beyond);
  return end < 0 ? rest.size() : end;
}

double LineBreaker::wordWidth(QStringView word) const {
  if (word.size() > kLongestWord) {
    return widthOf(word);
  }
  const auto known = words_.find(unitsOf(word));
  if (known != words_.end()) {
    return known->second;
  }
  return words_.emplace(unitsOf(word), widthOf(word)).first->second;
}

bool LineBreaker::fits(QStringView line, double sum, double width) const {
  if (std::abs(sum - width) > width * kDoubt) {
    return sum <= width;
  }
  return widthOf(line) <= width;
}

/// The most letters whose width isn't beyond, found without looking at much more of the text than they are.
qsizetype LineBreaker::lettersThatFit(QStringView text, double width) const {
  qsizetype fitting = 0;
  qsizetype tooMany = qMin<qsizetype>(text.size(), kLongestWord);
  while (widthOf(text.left(tooMany)) <= width) {
    if (tooMany == text.size()) {
      return tooMany;
    }
    fitting = tooMany;
    tooMany = qMin(text.size(), tooMany * 2);
  }
  while (tooMany - fitting > 1) {
    const qsizetype middle = (fitting + tooMany) / 2;
    (widthOf(text.left(middle)) <= width ? fitting : tooMany) = middle;
  }
  return fitting;
}

LineBreaker::Line LineBreaker::cutWord(QStringView rest, double width, qsizetype from) const {
  const qsizetype blanks = std::find_if(rest.begin(), rest.end(), [](QChar c) { return c != u' '; }) - rest.begin();
  const qsizetype kept = wholeLetters(rest, qMax(lettersThatFit(rest, width) - 1, blanks + 1));
  return {kept, from + kept};
}
