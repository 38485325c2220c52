#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/reports/SaveSynopsis.h"
#include "core/reports/modPrintCards.h"
#include "core/reports/modPrintLists.h"
#include "core/reports/modPrintSynopsis.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ReportsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    makeSmallProject();
    for (qint32 i = 1; i <= 5; ++i) {
      sceneAt(i)->DescText = i == 2 ? QString() : u"What happens, %1\r\n"_s.arg(i);
      sceneAt(i)->Status = 2;
      sceneAt(i)->ForceWordcount();
    }
  }
  void TearDown() override { newProject(); }

  ReportJob job() { return {measure_, {false, false, 10, u"Square"_s}, progress_, {1, 3}}; }

  SquareLetters measure_;
  CountedProgress progress_;
};

}  // namespace

TEST_F(ReportsTest, TellTheBookSceneByScene) {
  const QString viewpoint = sceneAt(2)->ViewPointChar()->Title();
  const QString other = sceneAt(3)->ViewPointChar()->Title();
  const QString status = g_StatusNames.value(2);
  const struct {
    ReportLayout report;
    QStringList texts;
  } cases[] = {
      {&PrintSynopsis,
       {u"1"_s, u"A small book synopsis"_s, u"*Arrival*"_s, u"1. Arrival 1"_s, u"What happens, 1"_s, u"#"_s,
        u"2. Arrival 2"_s, u"*Departure*"_s, u"1. Departure 1"_s, u"What happens, 3"_s}},
      {&PrintSummary,
       {u"1"_s, u"A small book scene descriptions"_s, u"*Arrival*"_s, u" 1.1  [Zoë] Arrival 1"_s,
        u" 1.2  ["_s + viewpoint + u"] Arrival 2"_s, u"*Departure*"_s, u" 2.1  ["_s + other + u"] Departure 1"_s}},
      {&PrintExpandedSynopsis,
       {u"1"_s, u"*1) *"_s, u"Arrival (5 words)"_s, u"*Scene *"_s, u"1: 3 words, "_s + status + u", "_s, u"*Zoë*"_s,
        u"Arrival 1"_s, u"What happens, 1"_s, u"*Scene *"_s, u"2: 2 words, "_s + status + u", "_s,
        u"*"_s + viewpoint + u"*"_s, u"Arrival 2"_s, u"*2) *"_s, u"Departure (4 words)"_s, u"*Scene *"_s,
        u"1: 4 words, "_s + status + u", "_s, u"*"_s + other + u"*"_s, u"Departure 1"_s, u"What happens, 3"_s}},
  };
  for (const auto& one : cases) {
    const PrintDocument document = one.report(job());
    ASSERT_EQ(document.pages.size(), 1);
    EXPECT_EQ(textsOf(document.pages[0]), one.texts);
  }
}

TEST_F(ReportsTest, ListTheCastAndTheWorld) {
  g_Project->CharByID(1)->Bio = u"Born at sea"_s;
  const QStringList cast = textsOf(PrintCharList(job()).pages.at(0));
  EXPECT_EQ(cast.mid(0, 7), (QStringList{u"1"_s, u"*Anna (Anna Marsh)*"_s, u"*Desc: *"_s, u"*Bio: *"_s,
                                         u"Born at sea"_s, u"*Goals: *"_s, u"*Notes: *"_s}));
  EXPECT_EQ(textsOf(PrintLocationList(job()).pages.at(0)), (QStringList{u"1"_s, u"The pier"_s, u"Café Röhm"_s}));
  EXPECT_EQ(textsOf(PrintItemList(job()).pages.at(0)), (QStringList{u"1"_s, u"A lamp"_s}));
}

TEST_F(ReportsTest, LayOutCardsInTwoColumns) {
  makeLargerProject(1, 20);
  sceneAt(2)->DescText = QString();
  const struct {
    int perPage;
    double height;
    int rows;
  } cases[] = {{12, (16838.0 - 500) / 6, 6}, {7, (16838.0 - 500) * 2 / 7, 3}};
  for (const auto& one : cases) {
    ReportJob all = job();
    all.chapters.last = 4;
    const PrintDocument document = PrintSummaryCards(all, one.perPage);
    EXPECT_EQ(document.pages.size(), (23 + 2 * one.rows - 1) / (2 * one.rows)) << one.perPage;
    EXPECT_EQ(document.pages[0].lines.size(), one.rows + 4);
    const PlacedText& first = document.pages[0].texts[0];
    EXPECT_EQ(first.text, u"1.1 Arrival 1 (3 words)"_s);
    EXPECT_TRUE(first.font.bold);
    EXPECT_EQ(textsOf(document.pages[0])[1], u"Zoë, Anna"_s);
    EXPECT_TRUE(textsOf(document.pages[0]).contains(u"No summary found"_s));
    double right = 0;
    for (const PlacedText& text : document.pages[0].texts) {
      right = qMax(right, text.x);
      EXPECT_LE(text.y + 180, 200 + one.rows * one.height);
    }
    EXPECT_GT(right, document.paper.width / 2);
  }
}

TEST_F(ReportsTest, SaveASynopsis) {
  const ScratchFolder folder;
  const auto save = [&] {
    g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
    return fileBytes(SaveSynopsis({1, 3}));
  };
  sceneAt(1)->DescText = u"In"_s;
  sceneAt(3)->DescText = u"Out"_s;
  EXPECT_EQ(save(),
            "A small book synopsis\r\n\r\n\r\nArrival\r\n\r\n  1.1 In\r\n\r\n* * *\r\n\r\n  1.2 \r\n"
            "\r\nDeparture\r\n\r\n  2.1 Out\r\n");
  sceneAt(3)->DescText = u"Пётр"_s;
  EXPECT_TRUE(save().endsWith("2.1 " + u"Пётр"_s.toUtf8() + "\r\n"));
}
