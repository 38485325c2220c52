#include "gui/views/SceneCells.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString letterOf(bool isReaction) {
  return translated(isReaction ? shownText(u"Reaction"_s) : shownText(u"Action"_s)).first(1);
}

}  // namespace

QString SceneCells::status(const clsScene& scene) {
  return scene.Status > 0 ? translated(g_StatusNames.value(scene.Status)) : QString();
}

QStringList SceneCells::statuses() {
  QStringList names = g_StatusNames.mid(1);
  std::transform(names.begin(), names.end(), names.begin(), translated);
  return names;
}

QString SceneCells::actionOrReaction(const clsScene& scene) {
  return letterOf(scene.ReactionScene);
}

QString SceneCells::letters() {
  return letterOf(false) + u'/' + letterOf(true);
}

QHash<int, QString> SceneCells::spoken(const clsScene& scene, int viewpointColumn, int actionColumn) {
  QHash<int, QString> spoken{{actionColumn, scene.ReactionScene ? shownText(u"reaction"_s) : shownText(u"action"_s)}};
  if (scene.ViewPointID() == 0) {
    spoken.insert(viewpointColumn, shownText(u"No viewpoint"_s));
  }
  return spoken;
}

QString SceneCells::whyNone() {
  return g_Project->FileWithPath.isEmpty() && g_Project->IsEmpty()
             ? shownText(u"No project is open."_s)
             : shownText(u"No chapter of this book has scenes yet.\nScene \u2013 Add scene adds one."_s);
}
