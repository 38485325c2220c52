#include "core/layout/LineBreaker.h"

#include "support/SquareLetters.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const PrintFont kFont{u"Square"_s, 10, false};

QStringList linesOf(const LineBreaker& breaker, const QString& text, double width) {
  QStringList lines;
  for (qsizetype from = 0; from < text.size();) {
    const LineBreaker::Line line = breaker.lineAt(text, from, width);
    lines.append(text.mid(from, line.length));
    from = line.next;
  }
  return lines;
}

/// The same letter by letter, as the rule is told.
QStringList linesLetterByLetter(const TextMeasure& measure, const QString& text, double width) {
  QStringList lines;
  qsizetype from = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QString line = text.mid(from, at - from + 1);
    if (measure.width(line, kFont) <= width) {
      continue;
    }
    const QString words = line.trimmed();
    const qsizetype indent = words.isEmpty() ? line.size() : line.indexOf(words);
    const qsizetype blank = line.lastIndexOf(u' ');
    // An indent never stands on a line of its own.
    const bool isWhole = blank > indent || words.isEmpty();
    const qsizetype cut = isWhole ? blank : qMax(indent + 1, line.size() - 2);
    lines.append(words.isEmpty() ? QString() : line.left(cut));
    from += cut + (isWhole ? 1 : 0);
    at = from - 1;
  }
  return from < text.size() ? lines << text.mid(from) : lines;
}

/// Letters of different widths, which pull together in pairs as a real type's do.
class KernedLetters : public SquareLetters {
 public:
  double width(QStringView text, const PrintFont&) const override {
    double sum = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
      sum += 60 + 13 * (text[i].unicode() % 7) - (i > 0 && text[i - 1] == u'T' ? 4 : 0);
    }
    return sum;
  }
};

}  // namespace

TEST(LineBreakerTest, BreaksBeforeTheLastBlankAndCutsWhatIsTooLong) {
  const SquareLetters measure;
  const LineBreaker breaker(measure, kFont);
  const std::tuple<QString, int, QStringList> cases[] = {
      {u"one two three"_s, 13, {u"one two three"_s}},
      {u"one two three"_s, 12, {u"one two"_s, u"three"_s}},
      {u"one two three"_s, 7, {u"one two"_s, u"three"_s}},
      {u"one  two"_s, 5, {u"one "_s, u"two"_s}},
      {u"abcdefghij"_s, 5, {u"abcd"_s, u"efgh"_s, u"ij"_s}},
      {u"abc"_s, 0, {u"a"_s, u"b"_s, u"c"_s}},
      {u"ab\U0001F600\U0001F600"_s, 4, {u"ab"_s, u"\U0001F600\U0001F600"_s}},
      {u"   abcdefghij"_s, 5, {u"   a"_s, u"bcde"_s, u"fghij"_s}},
  };
  for (const auto& [text, letters, lines] : cases) {
    EXPECT_EQ(linesOf(breaker, text, letters * 100), lines) << text << letters;
  }
}

TEST(LineBreakerTest, BreaksWhereMeasuringEachLetterWould) {
  const KernedLetters measure;
  const LineBreaker breaker(measure, kFont);
  QRandomGenerator random(7);
  for (int round = 0; round < 300; ++round) {
    QString text;
    for (int i = random.bounded(400); i > 0; --i) {
      text += random.bounded(6) == 0 ? u' ' : QChar(u'A' + random.bounded(26));
    }
    const double width = 300 + random.bounded(6000);
    ASSERT_EQ(linesOf(breaker, text, width), linesLetterByLetter(measure, text, width)) << text << width;
  }
}

TEST(LineBreakerTest, LooksAtALongTextNotMuchMoreThanOnce) {
  const SquareLetters measure;
  const LineBreaker breaker(measure, kFont);
  for (const QString& word : {QString(200000, u'x'), u"some words that come again and "_s.repeated(6000)}) {
    measure.measured = 0;
    linesOf(breaker, word, 10300);
    EXPECT_LT(measure.measured, word.size() * 30);
  }
}
