#include "core/text/RtfListTable.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using Style = ListMark::Style;

ListMark item(Style style, int level = 0, int start = 0) {
  ListMark mark;
  mark.style = style;
  mark.level = level;
  mark.start = start;
  mark.after = u"."_s;
  return mark;
}

RichText textOf(const QList<ListMark>& marks) {
  RichText text;
  for (const ListMark& mark : marks) {
    text.append(text.isEmpty() ? QString() : u"\n"_s);
    text.append(RichText::fromPlain(u"x"_s, {}, {.list = mark}));
  }
  return text;
}

QStringList labelsOf(const RichText& text) {
  ListNumbering numbering;
  QStringList labels;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const ListMark& mark = text.paragraph(i).format->list;
    numbering.next(mark);
    labels.append(mark.style == Style::None ? QString() : numbering.label(mark));
  }
  return labels;
}

/// Marks paragraphs as a word processor does, which knows the table and the paragraphs' numbers and levels.
QStringList labelsByTable(const RichText& text) {
  RtfListTable table;
  table.add(text);
  std::map<int, std::array<int, ListMark::kLevels>> counted;
  QStringList labels;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const int number = table.numberOf(text, i);
    if (number == 0) {
      labels.append(QString());
      continue;
    }
    const RtfListTable::List& list = table.lists()[number - 1];
    auto& numbers = counted[number];
    const int level = text.paragraph(i).format->list.level;
    const auto numberAt = [&](int at) {
      return numbers[size_t(at)] > 0 ? numbers[size_t(at)] : list[size_t(at)].start;
    };
    numbers[size_t(level)] = numbers[size_t(level)] > 0 ? numbers[size_t(level)] + 1 : numberAt(level);
    std::fill(numbers.begin() + level + 1, numbers.end(), 0);
    const RtfListTable::Level& its = list[size_t(level)];
    QString label = its.mark.before;
    for (int at = 0; at < level; ++at) {
      if ((its.parents >> at & 1) != 0) {
        label += ListNumbering::numeral(list[size_t(at)].mark.style, numberAt(at)) + u'.';
      }
    }
    if (its.mark.isNumbered()) {
      label += ListNumbering::numeral(its.mark.style, numberAt(level)) + its.mark.after;
    }
    labels.append(label);
  }
  return labels;
}

}  // namespace

TEST(RtfListTable, WhoeverCountsByItGetsTheSameMarks) {
  QRandomGenerator random(12);
  for (int turn = 0; turn < 3000; ++turn) {
    QList<ListMark> marks;
    for (int count = random.bounded(12); count > 0; --count) {
      ListMark mark = item(static_cast<Style>(random.bounded(5)), random.bounded(4));
      mark.start = random.bounded(5) == 0 ? random.bounded(9) : 0;
      mark.withParents = random.bounded(3) == 0;
      mark.before = random.bounded(4) == 0 ? u"("_s : QString();
      marks.append(mark);
    }
    const RichText text = textOf(marks);
    ASSERT_EQ(labelsByTable(text), labelsOf(text));
  }
}

TEST(RtfListTable, ParagraphsThatGoOnAreOneList) {
  const ListMark one = item(Style::Decimal);
  const ListMark letter = item(Style::LowerLetter, 1);
  using Marks = QList<ListMark>;
  for (const auto& [what, marks, lists] :
       {std::tuple{"levels of one list", Marks{one, letter, letter, one, letter}, 1},
        {"goes on behind other text", Marks{one, one, {}, item(Style::Decimal, 0, 3)}, 1},
        {"begins again", Marks{one, one, {}, one}, 2},
        {"bullets, wherever they stand", Marks{ListMark::bullet(), {}, ListMark::bullet()}, 1}}) {
    RtfListTable table;
    table.add(textOf(marks));
    EXPECT_EQ(table.lists().size(), lists) << what;
  }
}

TEST(RtfListTable, HoldsNoMoreListsThanCanBeNamed) {
  RichText text = textOf(QList<ListMark>(2100, item(Style::Decimal, 0, 7)));
  RtfListTable table;
  table.add(text);
  EXPECT_EQ(table.lists().size(), 2000);
  EXPECT_EQ(table.numberOf(text, 1999), 2000);
  EXPECT_EQ(table.numberOf(text, 2000), 0);
}
