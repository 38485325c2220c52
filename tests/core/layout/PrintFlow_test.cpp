#include "core/layout/PrintFlow.h"

#include "core/infra/Clock.h"
#include "support/SquareLetters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr PaperSize kPaper = PaperSize::a4();

class PrintFlowTest : public ::testing::Test {
 protected:
  static PrintState state(bool doubleSpaced = false, bool oneAndHalf = false) {
    return {doubleSpaced, oneAndHalf, 10, u"Square"_s};
  }
  static QString lines(int count) {
    QStringList all;
    for (int i = 1; i <= count; ++i) {
      all.append(u"line "_s + QString::number(i));
    }
    return all.join(u"\r\n"_s);
  }
  static const PlacedText& textAt(const PrintedPage& page, const QString& text) {
    for (const PlacedText& placed : page.texts) {
      if (placed.text == text) {
        return placed;
      }
    }
    throw std::runtime_error("no such text on the page: " + text.toStdString());
  }

  SquareLetters measure_;
};

}  // namespace

TEST_F(PrintFlowTest, TurnsPagesAndNumbersThem) {
  PrintFlow flow(measure_, state());
  flow.newPage();
  flow.moveTo(1200);
  flow.PrintText(lines(150), true);
  flow.newPage();
  flow.moveTo(1200);
  flow.PrintText(u"last"_s, true);
  const auto pages = flow.takePages();
  ASSERT_EQ(pages.size(), 4);
  EXPECT_EQ(textAt(pages[0], u"line 1"_s).y, 1200);
  EXPECT_EQ(textAt(pages[0], u"line 1"_s).x, 600);
  // 200 to a line; a line that begins below 15238 turns the page.
  EXPECT_EQ(textAt(pages[0], u"line 71"_s).y, 15200);
  EXPECT_EQ(textAt(pages[1], u"line 72"_s).y, 650);
  for (int i = 0; i < 4; ++i) {
    const PlacedText& number = textAt(pages[i], QString::number(i + 1));
    EXPECT_EQ(number.y, kPaper.height - 900);
    EXPECT_EQ(number.x, (kPaper.width - 100) / 2.0);
  }
}

TEST_F(PrintFlowTest, LeavesTheRoomThatWasChosen) {
  for (const auto& [doubled, oneAndHalf, step] :
       {std::tuple{false, false, 200}, {false, true, 300}, {true, false, 400}, {true, true, 400}}) {
    PrintFlow flow(measure_, state(doubled, oneAndHalf));
    flow.PrintText(u"a\r\nb\nc"_s);
    const auto pages = flow.takePages();
    EXPECT_EQ(textAt(pages[0], u"c"_s).y - textAt(pages[0], u"a"_s).y, 2 * step);
  }
}

TEST_F(PrintFlowTest, CentresTheSceneSeparator) {
  PrintFlow flow(measure_, state());
  flow.PrintText(u"a\r\n  * * *  \r\nnow * * * too\r\nb"_s);
  const auto pages = flow.takePages();
  EXPECT_EQ(textAt(pages[0], u"* * *"_s).x, (kPaper.width - 500) / 2.0);
  EXPECT_EQ(textAt(pages[0], u"now * * * too"_s).x, (kPaper.width - 1300) / 2.0);
}

TEST_F(PrintFlowTest, BeginsNoTextInTheLastLinesOfAPage) {
  for (const double y : {14438.0, 14439.0}) {
    PrintFlow flow(measure_, state());
    flow.PrintText(u"first"_s);
    flow.moveTo(y);
    flow.PrintText(u"next"_s);
    EXPECT_EQ(flow.takePages().size(), y > 14438 ? 2 : 1);
  }
}

TEST_F(PrintFlowTest, KeepsHeadingsWithTheTextBelowThem) {
  const QString longHeading = QString(90, u'h') + u' ' + QString(30, u'h');
  const struct {
    const char* what;
    bool doubled;
    QStringList headings;
    /// The lowest place where all of them and the text still stand on the page.
    double lowest;
  } cases[] = {{"one", false, {u"Heading"_s}, 14238},
               {"two", false, {u"Chapter"_s, u"Scene"_s}, 14038},
               {"one, double spaced", true, {u"Heading"_s}, 14038},
               {"one of two lines", false, {longHeading}, 14038}};
  for (const auto& one : cases) {
    for (const double y : {one.lowest, one.lowest + 1}) {
      PrintFlow flow(measure_, state(one.doubled));
      flow.PrintText(u"first"_s);
      flow.moveTo(y);
      for (const QString& heading : one.headings) {
        flow.PrintBold(heading);
        flow.spacing();
      }
      flow.PrintText(u"its text"_s);
      const auto pages = flow.takePages();
      EXPECT_EQ(pages.size(), y > one.lowest ? 2 : 1) << one.what;
      const PlacedText& heading = textAt(pages.back(), one.headings.front().section(u' ', 0, 0));
      EXPECT_EQ(heading.y, y > one.lowest ? 650 : y) << one.what;
      EXPECT_EQ(textAt(pages.back(), u"its text"_s).y - heading.y, 14438 - one.lowest) << one.what;
    }
  }
}

TEST_F(PrintFlowTest, LeavesAHeadingBehindThatNothingFollows) {
  PrintFlow flow(measure_, state());
  flow.newNumberedPage();
  flow.moveTo(14438);
  flow.PrintBold(u"Notes:"_s);
  flow.PrintText(QString());
  flow.PrintBold(u"Next"_s);
  flow.PrintText(u"text"_s);
  const auto pages = flow.takePages();
  EXPECT_EQ(textsOf(pages.at(0)), (QStringList{u"1"_s, u"*Notes:*"_s}));
  EXPECT_EQ(textsOf(pages.at(1)), (QStringList{u"2"_s, u"*Next*"_s, u"text"_s}));
}

TEST_F(PrintFlowTest, TakesALongTitleInLargeLettersOnToTheNextPage) {
  PrintFlow flow(measure_, {false, false, 72, u"Square"_s});
  flow.newPage();
  flow.moveTo(1200);
  flow.PrintCentred(u"title "_s.repeated(25));
  flow.PrintText(u"text"_s, true);
  const auto pages = flow.takePages();
  ASSERT_GE(pages.size(), 2);
  for (size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(textsOf(pages[i]).count(QString::number(i + 1)), 1) << "each has its number, once";
    for (const PlacedText& text : pages[i].texts) {
      EXPECT_LE(text.y + text.font.points * 20, kPaper.height - 300) << text.text;
    }
  }
}

TEST_F(PrintFlowTest, FillsItsLinesToTheirWidth) {
  const auto firstLine = [this](bool isPage, int letters) {
    PrintFlow flow(measure_, state());
    const QString text = QString(letters - 2, u'x') + u" y"_s;
    isPage ? flow.PrintPage(text, u"t"_s) : flow.PrintText(text);
    return textsOf(flow.takePages().at(0)).value(isPage ? 3 : 0).trimmed().size();
  };
  EXPECT_EQ(firstLine(false, 103), 103);
  EXPECT_EQ(firstLine(false, 104), 102);
  // Behind an indent of three.
  EXPECT_EQ(firstLine(true, 102), 102);
  EXPECT_EQ(firstLine(true, 103), 101);
  PrintFlow flow(measure_, state());
  flow.PrintPage(u"a\r\n* * *\r\nb"_s, u"t"_s);
  EXPECT_EQ(textAt(flow.takePages().at(0), u"* * *"_s).x, (kPaper.width - 1000 - 500) / 2.0);
}

TEST_F(PrintFlowTest, LeavesNoPageEmpty) {
  PrintFlow flow(measure_, state());
  flow.PrintText(lines(72) + u"\r\n"_s, true);
  flow.newPage();
  EXPECT_EQ(flow.takePages().size(), 1);
  PrintFlow none(measure_, state());
  none.newNumberedPage();
  none.PrintText(QString());
  EXPECT_TRUE(none.takePages().empty());
}

TEST_F(PrintFlowTest, PrintsHeaderAndFooterOnEveryPage) {
  Clock::set(QDateTime(QDate(2026, 3, 5), QTime(14, 7)));
  PrintFlow flow(measure_, state());
  flow.PrintPage(lines(100), u"The Letter"_s);
  flow.PrintPage(u"b"_s, u"\U0001F600"_s.repeated(400));
  Clock::set({});
  const auto pages = flow.takePages();
  ASSERT_EQ(pages.size(), 3);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(textAt(pages[i], u"The Letter"_s).x, (kPaper.width - 800) / 2.0 - 500);
    const PlacedText& number = textAt(pages[i], u"Page: %1"_s.arg(i + 1));
    EXPECT_EQ(number.x, kPaper.width - 7 * 80 - 1200);
    EXPECT_EQ(number.y, 200);
    EXPECT_EQ(textAt(pages[i], u"Printed 05-Mar-2026, 14:07"_s).y, kPaper.height - 1100);
  }
  EXPECT_EQ(textAt(pages[0], u"   line 1"_s).x, 500);
  EXPECT_EQ(textAt(pages[0], u"   line 1"_s).y, 650);
  const PlacedText& longTitle = pages[2].texts.front();
  EXPECT_FALSE(longTitle.text.chopped(1).back().isHighSurrogate()) << "half a letter";
  EXPECT_LE(longTitle.x + measure_.width(longTitle.text, longTitle.font), textAt(pages[2], u"Page: 3"_s).x);
}

TEST_F(PrintFlowTest, BreaksRunsBetweenWords) {
  PrintFlow flow(measure_, state());
  const QString filler = QString(90, u'x');
  flow.PrintRuns({{u"bold "_s, true}, {filler + u' ', false}, {u"pushed over"_s, true}});
  const auto pages = flow.takePages();
  EXPECT_EQ(textsOf(pages[0]), (QStringList{u"*bold *"_s, filler + u' ', u"*pushed*"_s, u"*over*"_s}));
  EXPECT_EQ(textAt(pages[0], u"over"_s).x, 600);
  EXPECT_EQ(textAt(pages[0], u"over"_s).y, textAt(pages[0], u"pushed"_s).y + 200);
}
