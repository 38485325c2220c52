#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/reports/modPrintProject.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PrintProjectTest : public ::testing::Test {
 protected:
  void SetUp() override { makeSmallProject(); }
  void TearDown() override { newProject(); }

  ReportJob job() { return {measure_, {false, false, 10, u"Square"_s}, progress_, {1, 3}}; }

  SquareLetters measure_;
  CountedProgress progress_;
};

}  // namespace

TEST_F(PrintProjectTest, PrintsAManuscriptOfWhatIsUsed) {
  const PrintDocument document = PrintProject(job());
  EXPECT_EQ(document.title, u"A small book"_s);
  EXPECT_EQ(document.author, u"N. Öbody"_s);
  ASSERT_EQ(document.pages.size(), 2);
  EXPECT_EQ(textsOf(document.pages[0]),
            (QStringList{u"Arrival"_s, u"1"_s, u"one two three"_s, u"* * *"_s, u"four five"_s}));
  EXPECT_EQ(textsOf(document.pages[1]), (QStringList{u"Departure"_s, u"2"_s, u"six seven eight nine"_s}));
  const PlacedText& title = document.pages[0].texts[0];
  EXPECT_EQ(title.y, 1200);
  EXPECT_EQ(title.x, (document.paper.width - 700) / 2.0);
  EXPECT_EQ(document.pages[0].texts[2].y, 1200 + 3 * 200);
}

TEST_F(PrintProjectTest, PrintsAnEmptyChapterOnAPageOfItsOwn) {
  chapterAt(1)->RemoveSceneByID(chapterAt(1)->SceneID(1));
  chapterAt(1)->RemoveSceneByID(chapterAt(1)->SceneID(1));
  const PrintDocument document = PrintChapters(job(), {chapterAt(1)->ID(), chapterAt(2)->ID()});
  ASSERT_EQ(document.pages.size(), 2);
  EXPECT_EQ(textsOf(document.pages[0]), (QStringList{u"Arrival"_s, u"1"_s}));
}

TEST_F(PrintProjectTest, PrintsAChapterOfUnusedScenesAsItsTitle) {
  ReportJob second = job();
  second.chapters = {2, 2};
  sceneAt(3)->Unused = true;
  const PrintDocument document = PrintProject(second);
  ASSERT_EQ(document.pages.size(), 1);
  EXPECT_EQ(textsOf(document.pages[0]), (QStringList{u"Departure"_s, u"1"_s}));
}

TEST_F(PrintProjectTest, PrintsASceneWithItsData) {
  const auto scene = sceneAt(1);
  scene->Goal = u"to stay"_s;
  scene->Conflict = u"the tide"_s;
  scene->Outcome = u"she goes"_s;
  scene->Status = 2;
  scene->setField(1, 4);
  for (int i = 1; i <= 4; ++i) {
    g_Project->setFieldTitle(i, u"Rating %1"_s.arg(i));
  }
  const PrintDocument document = PrintScenes(job(), {scene->ID(), sceneAt(2)->ID()});
  ASSERT_EQ(document.pages.size(), 2);
  const QStringList texts = textsOf(document.pages[0]);
  const QStringList expected{u"Arrival 1"_s,
                             u"Page: 1"_s,
                             texts.value(2),
                             u"   Viewpoint: Zoë"_s,
                             u"   Rating 1: 4"_s,
                             u"   Rating 2: "_s + QString::number(scene->Field(2)),
                             u"   Rating 3: "_s + QString::number(scene->Field(3)),
                             u"   Rating 4: "_s + QString::number(scene->Field(4)),
                             u"   Goal: to stay"_s,
                             u"   Conflict: the tide"_s,
                             u"   Outcome: she goes"_s,
                             u"   Details: "_s + g_StatusNames.value(2),
                             u"   Description: "_s,
                             u"   "_s + (scene->DescText.isEmpty() ? u"None"_s : scene->DescText),
                             u"   ----------Content"_s + QString(60, u'-'),
                             u"   one two three"_s,
                             u"   ----------End Content"_s + QString(56, u'-')};
  EXPECT_EQ(texts, expected);
}

TEST_F(PrintProjectTest, PrintsDetailsOfUnusedScenesTooSmallAndClose) {
  ReportJob spaced = job();
  spaced.state.PrintDoubleSpaced = true;
  spaced.details = true;
  const PrintDocument document = PrintProject(spaced);
  ASSERT_EQ(document.pages.size(), 4);
  const PrintedPage& unused = document.pages[3];
  EXPECT_EQ(unused.texts[0].text, sceneAt(4)->Title);
  EXPECT_EQ(unused.texts[3].font.points, 8);
  EXPECT_EQ(unused.texts[4].y - unused.texts[3].y, 160);
  EXPECT_EQ(progress_.steps.count(u"Laying out scene 1"_s), 2) << "each can be stopped at";
}
