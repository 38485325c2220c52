#include "core/text/ListMark.h"

#include "core/text/RtfLists.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Style = ListMark::Style;

ListMark item(Style style, int level = 0, int start = 0, bool withParents = false) {
  ListMark mark;
  mark.style = style;
  mark.level = level;
  mark.start = start;
  mark.withParents = withParents;
  mark.after = u"."_s;
  return mark;
}

QStringList labelsOf(const QList<ListMark>& marks) {
  ListNumbering numbering;
  QStringList labels;
  for (const ListMark& mark : marks) {
    numbering.next(mark);
    labels.append(mark.style == Style::None ? QString() : numbering.label(mark));
  }
  return labels;
}

}  // namespace

TEST(ListMark, ListsAreNumberedFromTheFront) {
  const ListMark one = item(Style::Decimal);
  const ListMark letter = item(Style::LowerLetter, 1);
  const ListMark chapter = item(Style::Decimal, 1, 0, true);
  struct Case {
    const char* what;
    QList<ListMark> marks;
    QStringList labels;
  };
  for (const Case& c : {
           Case{"one behind the other", {one, one, one}, {u"1."_s, u"2."_s, u"3."_s}},
           Case{"text between ends the list", {one, one, {}, one}, {u"1."_s, u"2."_s, u""_s, u"1."_s}},
           Case{"an item of its own number", {one, item(Style::Decimal, 0, 7), one}, {u"1."_s, u"7."_s, u"8."_s}},
           Case{"levels below begin anew",
                {one, letter, letter, one, letter},
                {u"1."_s, u"a."_s, u"b."_s, u"2."_s, u"a."_s}},
           Case{"another style is another list",
                {one, one, item(Style::UpperRoman), one},
                {u"1."_s, u"2."_s, u"I."_s, u"1."_s}},
           Case{"a bullet ends the numbers of its level", {one, ListMark::bullet(), one}, {u"1."_s, u"•"_s, u"1."_s}},
           Case{"with the numbers above",
                {item(Style::UpperRoman, 0, 4), chapter, chapter, item(Style::LowerLetter, 2, 0, true)},
                {u"IV."_s, u"IV.1."_s, u"IV.2."_s, u"IV.2.a."_s}},
           Case{"where there are none above", {chapter}, {u"1."_s}},
       }) {
    EXPECT_EQ(labelsOf(c.marks), c.labels) << c.what;
  }
}

TEST(ListMark, NumeralsReadBack) {
  for (const auto& [style, number, numeral] : {std::tuple{Style::Decimal, 12, u"12"_s},
                                               {Style::UpperLetter, 26, u"Z"_s},
                                               {Style::LowerLetter, 28, u"bb"_s},
                                               {Style::LowerRoman, 1994, u"mcmxciv"_s},
                                               {Style::UpperRoman, 4000, u"4000"_s},
                                               {Style::UpperLetter, 0, u"0"_s}}) {
    EXPECT_EQ(ListNumbering::numeral(style, number), numeral);
    EXPECT_EQ(ListNumbering::numberOf(style, numeral), number);
  }
  for (const QString& none : {u""_s, u"iiii"_s, u"ic"_s, u"xyz"_s, u"-"_s}) {
    EXPECT_EQ(ListNumbering::numberOf(Style::LowerRoman, none), 0) << none;
  }
}

TEST(ListMark, AMarkThatIsWrittenOutTellsItsList) {
  for (const auto& [label, style, before, after, number] : {std::tuple{u"1.\t"_s, Style::Decimal, u""_s, u"."_s, 1},
                                                            {u"(c)\t"_s, Style::LowerLetter, u"("_s, u")"_s, 3},
                                                            {u"IV\t"_s, Style::UpperRoman, u""_s, u""_s, 4},
                                                            {u"Part B:"_s, Style::UpperLetter, u"Part "_s, u":"_s, 2},
                                                            {u"o\t"_s, Style::Bullet, u"o"_s, u""_s, 0},
                                                            {u"\t"_s, Style::None, u""_s, u""_s, 0}}) {
    const ListMark mark = RtfLists::guess(label);
    EXPECT_EQ(mark.style, style) << label;
    EXPECT_EQ(mark.before, before) << label;
    EXPECT_EQ(mark.after, after) << label;
    EXPECT_EQ(RtfLists::numberIn(mark, label), number) << label;
  }
}
