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
#include "support/TestLanguage.h"

#include <QLocale>

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
  const std::pair<ReportLayout, QStringList> cases[] = {
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
  for (const auto& [report, texts] : cases) {
    const PrintDocument document = report(job());
    ASSERT_EQ(document.pages.size(), 1);
    EXPECT_EQ(textsOf(document.pages[0]), texts);
    EXPECT_EQ(progress_.steps, (QStringList{u"Laying out chapter 1"_s, u"Laying out scene 1"_s, u"Laying out scene 2"_s,
                                            u"Laying out chapter 2"_s, u"Laying out scene 1"_s}));
    progress_.steps.clear();
  }
}

TEST_F(ReportsTest, TellTheChosenChaptersAlone) {
  for (const ReportLayout& report :
       std::initializer_list<ReportLayout>{&PrintSynopsis, &PrintSummary, &PrintExpandedSynopsis,
                                           [](const ReportJob& job) { return PrintSummaryCards(job, 6); }}) {
    for (const qint32 chapter : {1, 2}) {
      ReportJob part = job();
      part.chapters = {chapter, chapter};
      const QString texts = textsOf(report(part).pages.at(0)).join(u'|');
      EXPECT_EQ(texts.contains(u"Arrival"_s), chapter == 1) << texts;
      EXPECT_EQ(texts.contains(u"Departure"_s), chapter == 2) << texts;
    }
  }
  const ScratchFolder folder;
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  EXPECT_FALSE(fileBytes(SaveSynopsis({2, 2})).contains("Arrival"));
  EXPECT_FALSE(fileBytes(SaveSynopsis({1, 1})).contains("Departure"));
}

TEST_F(ReportsTest, LeaveOutWhatIsUnused) {
  sceneAt(3)->Unused = true;
  for (const auto report : {&PrintSynopsis, &PrintSummary}) {
    const QStringList texts = textsOf(report(job()).pages.at(0));
    EXPECT_EQ(texts.last(), u"*Departure*"_s) << "the title alone";
  }
}

TEST_F(ReportsTest, ListTheCastAndTheWorld) {
  g_Project->CharByID(1)->Bio = u"Born at sea"_s;
  g_Project->CharByID(2)->FullName.clear();
  const QStringList cast = textsOf(PrintCharList(job()).pages.at(0));
  EXPECT_TRUE(cast.contains(u'*' + g_Project->CharByID(2)->Title() + u" ()*"_s)) << cast.join(u'|');
  EXPECT_EQ(cast.mid(0, 7), (QStringList{u"1"_s, u"*Anna (Anna Marsh)*"_s, u"*Desc: *"_s, u"*Bio: *"_s,
                                         u"Born at sea"_s, u"*Goals: *"_s, u"*Notes: *"_s}));
  EXPECT_EQ(textsOf(PrintLocationList(job()).pages.at(0)), (QStringList{u"1"_s, u"The pier"_s, u"Café Röhm"_s}));
  EXPECT_EQ(textsOf(PrintItemList(job()).pages.at(0)), (QStringList{u"1"_s, u"A lamp"_s}));
}

TEST_F(ReportsTest, LayOutCardsInTwoColumns) {
  makeLargerProject(1, 20);
  sceneAt(2)->DescText = QString();
  sceneAt(3)->DescText = u"A description that goes on and on. "_s.repeated(200);
  for (const auto& [perPage, height, rows] :
       {std::tuple{12, (16838.0 - 500) / 6, 6}, {7, (16838.0 - 500) * 2 / 7, 3}}) {
    ReportJob all = job();
    all.chapters.last = 4;
    const PrintDocument document = PrintSummaryCards(all, perPage);
    EXPECT_EQ(document.pages.size(), (23 + 2 * rows - 1) / (2 * rows)) << perPage;
    EXPECT_EQ(document.pages[0].lines.size(), rows + 4);
    const PlacedText& first = document.pages[0].texts[0];
    EXPECT_EQ(first.text, u"1.1 Arrival 1 (3 words)"_s);
    EXPECT_TRUE(first.font.bold);
    EXPECT_EQ(textsOf(document.pages[0])[1], u"Zoë, Anna"_s);
    EXPECT_TRUE(textsOf(document.pages[0]).contains(u"No summary found"_s));
    double cardsSeen = 0;
    for (const PlacedText& text : document.pages[0].texts) {
      const int row = static_cast<int>((text.y - 200) / height);
      EXPECT_LE(text.y + 180, 200 + (row + 1) * height) << text.text << "runs out of its card";
      if (text.font.bold) {
        // The first column from top to bottom, then the second.
        EXPECT_EQ(text.y, 260 + static_cast<int>(cardsSeen) % rows * height) << text.text;
        EXPECT_EQ(text.x > document.paper.width / 2.0, cardsSeen >= rows) << text.text;
        ++cardsSeen;
      } else {
        EXPECT_EQ(text.font, (PrintFont{u"Arial"_s, 9, false}));
      }
    }
    EXPECT_EQ(cardsSeen, 2 * rows);
  }
}

TEST_F(ReportsTest, TellNumbersWithoutGrouping) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  sceneAt(1)->setTextRTF(simpleRtf(QByteArray("word ").repeated(1234)));
  sceneAt(1)->ForceWordcount();
  EXPECT_TRUE(textsOf(PrintSummaryCards(job(), 6).pages.at(0)).contains(u"*1.1 Arrival 1 (1234 words)*"_s));
  EXPECT_TRUE(textsOf(PrintExpandedSynopsis(job()).pages.at(0)).contains(u"Arrival (1236 words)"_s));
  QLocale::setDefault(before);
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

TEST_F(ReportsTest, AreInTheLanguageAndSavedTextsAreNot) {
  const TestLanguage language(u"%1 synopsis||Inhalt von %1\n%1 words||%1 Worte\nScene||Szene\nDraft||Entwurf\n"_s);
  ScratchFolder folder;
  g_Project->FileWithPath = folder.path(u"book.qn4"_s);
  g_Project->Title = u"Draft %1"_s;
  EXPECT_EQ(textsOf(PrintSynopsis(job()).pages[0]).value(1), u"Inhalt von Draft %1");
  const QStringList texts = textsOf(PrintExpandedSynopsis(job()).pages[0]);
  EXPECT_EQ(texts.value(3), u"*Szene *");
  EXPECT_EQ(texts.value(4), u"1: 3 Worte, Entwurf, ");
  EXPECT_TRUE(fileBytes(SaveSynopsis({1, 3})).startsWith("Draft %1 synopsis"));
}
