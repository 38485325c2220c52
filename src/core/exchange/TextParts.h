#pragma once

#include "core/text/RichText.h"

#include <functional>
#include <vector>

/// A stretch of a text, by positions.
struct TextRange {
  qsizetype from = 0;
  qsizetype to = 0;
  /// A line end at its end opens a paragraph.
  bool isWhole = false;
};

/// Hands over parts of a text as texts of their own, with their formats, in one pass. The ranges are in order, don't
/// overlap, and cut no line end in two. A line end that closes any but a whole one opens no paragraph behind it.
void eachPart(const RichText& text, const std::vector<TextRange>& ranges,
              const std::function<void(const RichText&)>& take);

/// Where the letters of what a reader reads stand in the whole text, which holds objects and hidden words besides.
class ReadPlaces {
 public:
  /// `plain` is the text's own.
  ReadPlaces(const RichText& text, const QString& plain);

  /// Of the letter at this place; the end for the place behind the last.
  qsizetype of(qsizetype place) const;
  /// Behind the letter in front of this place: what isn't read and stands between goes with what comes.
  qsizetype behindLetterBefore(qsizetype place) const;

 private:
  qsizetype size_;
  qsizetype places_;
  /// Empty where both are the same.
  std::vector<qint32> positions_;
};
