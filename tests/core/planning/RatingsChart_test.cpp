#include "core/planning/RatingsChart.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using RatingsChart::Label;
using RatingsChart::Stroke;

namespace {

SceneRatings ratingsOf(const std::vector<qint16>& first) {
  SceneRatings ratings;
  for (const qint16 rating : first) {
    ratings.scenes.push_back({1, static_cast<qint32>(ratings.scenes.size()) + 1, {rating, 1, 1, 1}});
  }
  return ratings;
}

}  // namespace

TEST(SceneRatings, AreThoseOfAllScenesInTheOrderOfTheStory) {
  makeSmallProject();
  for (const auto& scene : g_Project->Scenes) {
    for (int field = 1; field <= 4; ++field) {
      scene->setField(field, 1);
    }
  }
  EXPECT_FALSE(SceneRatings::of(*g_Project).any());
  g_Project->setFieldTitle(4, u"Pace"_s);
  sceneAt(4)->setField(4, 7);
  const SceneRatings ratings = SceneRatings::of(*g_Project);
  EXPECT_TRUE(ratings.any());
  ASSERT_EQ(ratings.scenes.size(), 5);
  EXPECT_EQ(ratings.scenes[3], (SceneRatings::Scene{2, 2, {1, 1, 1, 7}})) << "an unused scene";
  EXPECT_TRUE(ratings.inWords().startsWith(u"5 scenes, "_s));
  EXPECT_TRUE(ratings.inWords().endsWith(u"Pace from 1 to 7"_s));
}

TEST(RatingsChart, HasAPointForEachScene) {
  // 1000 twips from scene to scene, 500 to a rating.
  const auto drawing = RatingsChart::drawn(ratingsOf({2, 10, 4}), {3400, 5600, 60});
  EXPECT_EQ(drawing.axis, 5000);
  EXPECT_EQ(drawing.grid, (std::vector<double>{1200, 2200, 3200}));
  const std::vector<Stroke> first{{{1200, 4000}, {1200, 4000}}, {{1200, 4000}, {2200, 0}}, {{2200, 0}, {3200, 3000}}};
  EXPECT_EQ(drawing.graphs[0], first);
  EXPECT_EQ(drawing.graphs[3].back(), (Stroke{{2200, 4500}, {3200, 4500}}));
  const std::vector<Label> labels{{{1100, 5180}, u"1:1"_s}, {{2100, 5060}, u"1:2"_s}, {{3100, 5300}, u"1:3"_s}};
  EXPECT_EQ(drawing.labels, labels);
  EXPECT_TRUE(RatingsChart::drawn({}, {3400, 5600, 60}).grid.empty());
}

TEST(RatingsChart, ManyScenesHaveTheLabelsAndGridLinesThatThereIsRoomFor) {
  constexpr double kLetter = 60;
  std::vector<qint16> ratings(9000, 5);
  ratings[4000] = 9;
  const auto drawing = RatingsChart::drawn(ratingsOf(ratings), {15000, 6000, kLetter});
  EXPECT_LE(drawing.grid.size(), 1000);
  EXPECT_LE(drawing.graphs[0].size(), 1000);
  double highest = drawing.axis;
  for (const Stroke& stroke : drawing.graphs[0]) {
    highest = std::min(highest, stroke.from.y);
  }
  EXPECT_EQ(highest, drawing.axis / 10) << "a peak among many scenes is seen";
  ASSERT_GT(drawing.labels.size(), 100);
  for (size_t i = 3; i < drawing.labels.size(); ++i) {
    EXPECT_EQ(drawing.labels[i].place.y, drawing.labels[i - 3].place.y);
    EXPECT_GE(drawing.labels[i].place.x - drawing.labels[i - 3].place.x, 6 * kLetter);
  }
}
