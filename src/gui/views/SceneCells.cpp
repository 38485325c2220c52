#include "gui/views/SceneCells.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

QString SceneCells::status(const clsScene& scene) {
  return scene.Status > 0 ? g_StatusNames.value(scene.Status) : QString();
}

QString SceneCells::actionOrReaction(const clsScene& scene) {
  return scene.ReactionScene ? u"R"_s : u"A"_s;
}

QHash<int, QString> SceneCells::spoken(const clsScene& scene, int viewpointColumn, int actionColumn) {
  QHash<int, QString> spoken{{actionColumn, scene.ReactionScene ? u"reaction"_s : u"action"_s}};
  if (scene.ViewPointID() == 0) {
    spoken.insert(viewpointColumn, u"No viewpoint"_s);
  }
  return spoken;
}

QString SceneCells::whyNone() {
  return g_Project->FileWithPath.isEmpty() && g_Project->IsEmpty()
             ? u"No project is open."_s
             : u"No chapter of this book has scenes yet.\nScene \u2013 Add scene adds one."_s;
}
