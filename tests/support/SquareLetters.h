#pragma once

#include "core/layout/PrintTarget.h"

#include <QStringList>

/// A type whose letters are all as wide as half their height, so that a test can count them.
class SquareLetters : public TextMeasure {
 public:
  double width(QStringView text, const PrintFont& font) const override {
    measured += text.size();
    return static_cast<double>(text.size()) * font.points * 10;
  }
  double lineHeight(const PrintFont& font) const override { return font.points * 20; }

  /// Letters that were looked at.
  mutable qsizetype measured = 0;
};

/// Nobody waits; the steps are kept.
class CountedProgress : public PrintProgress {
 public:
  void step(const QString& pattern, qint32 number) override { steps.append(pattern.arg(number)); }

  QStringList steps;
};

/// The texts of a page from top to bottom as they were placed; bold ones between stars.
inline QStringList textsOf(const PrintedPage& page) {
  QStringList texts;
  for (const PlacedText& placed : page.texts) {
    const QString star = placed.font.bold ? QStringLiteral("*") : QString();
    texts.append(star + placed.text + star);
  }
  return texts;
}
