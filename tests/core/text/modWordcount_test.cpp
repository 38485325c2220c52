#include "core/text/modWordcount.h"

#include "core/infra/clsHashTable.h"
#include "core/text/cSharedText.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Counts = std::map<QString, qint32>;

Counts countsOf(QStringView text) {
  clsHashTable table;
  BreakAndHash(table, text);
  Counts counts;
  for (qint32 i = 1; i <= table.HighWater(); ++i) {
    counts[table.Record(i).Text] = table.Record(i).Value;
  }
  return counts;
}

/// The steps one by one over the whole text, in the order in which they are told.
Counts literalCounts(QString text) {
  for (const QString& gap : {u"\r\n"_s, u"\r"_s, u"\n"_s, u"\t"_s, u"="_s, u","_s, u"*"_s, u"-"_s}) {
    text.replace(gap, u" "_s);
  }
  text.replace(QChar(0x2019), u'\'').replace(QChar(0x2018), u'\'').remove(u"'s"_s);
  text.replace(u"'ve"_s, u"’ve"_s).replace(u"'t"_s, u"’t"_s).replace(u"'ll"_s, u"’ll"_s).remove(u'\'');
  TextTools().ToLower(text);
  for (const QChar removed : u"<>`~^\"(){}[]!?._"_s) {
    text.remove(removed);
  }
  Counts counts;
  for (QString& piece : text.split(u' ', Qt::SkipEmptyParts)) {
    TextTools().SentenceCase(piece);
    ++counts[piece];
  }
  return counts;
}

}  // namespace

TEST(WordUsage, CountsWordsInTheFormInWhichTheyAreShown) {
  const std::vector<std::pair<QString, Counts>> cases{
      {QString(), {}},
      {u" -- \r\n\t=*,"_s, {}},
      {u"Don't don’t DON'T"_s, {{u"Don’t"_s, 2}, {u"Dont"_s, 1}}},
      {u"John's JOHN john;"_s, {{u"John"_s, 2}, {u"John;"_s, 1}}},
      {u"well-known a I've we'll"_s, {{u"Well"_s, 1}, {u"Known"_s, 1}, {u"A"_s, 1}, {u"I’ve"_s, 1}, {u"We’ll"_s, 1}}},
      {u"‘she’ 'twas ''st"_s, {{u"He"_s, 1}, {u"’twas"_s, 1}, {u"’t"_s, 1}}},
      {u"(3.14) \"Ünder\" _ОН_ ["_s, {{u"314"_s, 1}, {u"Ünder"_s, 1}, {u"Он"_s, 1}}},
  };
  for (const auto& [text, wanted] : cases) {
    EXPECT_EQ(countsOf(text), wanted) << text;
  }
}

TEST(WordUsage, OnePassGivesWhatTheToldStepsGive) {
  std::mt19937 random(42);
  const QStringList pieces{u"'"_s, u"’"_s,  u"‘"_s, u"s"_s, u"S"_s, u"t"_s, u"ve"_s, u"ll"_s, u" "_s, u"-"_s, u"\r\n"_s,
                           u"."_s, u"\""_s, u"a"_s, u"É"_s, u"Ж"_s, u"İ"_s, u"ß"_s,  u"😀"_s,  u";"_s, u"<"_s, u"µ"_s};
  for (int round = 0; round < 5000; ++round) {
    QString text;
    for (auto length = random() % 30; length > 0; --length) {
      text += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
    }
    ASSERT_EQ(countsOf(text), literalCounts(text)) << text;
  }
  QFile novel(sharedFolder() + u"/novels/pride-and-prejudice.txt"_s);
  if (novel.open(QIODevice::ReadOnly)) {
    const QString text = QString::fromUtf8(novel.readAll());
    EXPECT_TRUE(countsOf(text) == literalCounts(text));
  }
}

TEST(WordUsage, TimeIsLinear) {
  for (const QString& repeated : {u"'"_s, u"''s"_s, u"a"_s, u"."_s, u"ab "_s}) {
    QElapsedTimer timer;
    timer.start();
    countsOf(repeated.repeated(4'000'000 / repeated.size()));
    EXPECT_LT(timer.elapsed(), 5000) << repeated;
  }
}
