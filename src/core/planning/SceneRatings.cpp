#include "core/planning/SceneRatings.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 kLowest = 1;

std::array<qint16, SceneRatings::kFields> ratingsOf(const clsScene& scene) {
  std::array<qint16, SceneRatings::kFields> ratings{};
  for (int field = 0; field < SceneRatings::kFields; ++field) {
    ratings[static_cast<size_t>(field)] = scene.Field(field + 1);
  }
  return ratings;
}

}  // namespace

SceneRatings SceneRatings::of(const clsProject& project) {
  SceneRatings result;
  for (int field = 0; field < kFields; ++field) {
    result.titles[static_cast<size_t>(field)] = project.FieldTitle(field + 1);
  }
  result.scenes.reserve(static_cast<size_t>(project.SceneCount()));
  qint32 number = 0;
  for (const auto& chapter : project.Chapters) {
    ++number;
    qint32 index = 0;
    for (const qint32 id : chapter->SceneIDs()) {
      ++index;
      if (const auto scene = project.SceneByID(id); scene->InScenes()) {
        result.scenes.push_back({number, index, ratingsOf(*scene)});
      }
    }
  }
  return result;
}

bool SceneRatings::any() const {
  return std::any_of(scenes.begin(), scenes.end(), [](const Scene& scene) {
    return std::any_of(scene.ratings.begin(), scene.ratings.end(), [](qint16 rating) { return rating > kLowest; });
  });
}

QString SceneRatings::inWords() const {
  QStringList parts(scenes.size() == 1 ? translated(u"1 scene"_s) : translated(u"%1 scenes"_s).arg(scenes.size()));
  for (size_t field = 0; field < titles.size() && !scenes.empty(); ++field) {
    const auto less = [field](const Scene& a, const Scene& b) { return a.ratings[field] < b.ratings[field]; };
    const auto [lowest, highest] = std::minmax_element(scenes.begin(), scenes.end(), less);
    const QString title = shownRating(static_cast<int>(field) + 1, titles[field]);
    const qint16 from = lowest->ratings[field];
    const qint16 to = highest->ratings[field];
    parts.append(from == to ? u"%1 %2"_s.arg(title, QString::number(from))
                            : translated(u"%1 from %2 to %3"_s).arg(title, QString::number(from), QString::number(to)));
  }
  return parts.join(u", "_s);
}
