#include "core/persist/IntegrityCheck.h"

#include "core/infra/Guard.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

// A look-up of a missing entity gives a blank object whose ID getter makes an ID, so a dangling reference passes:
// such a project opens without a word, and always has.
bool IntegrityCheck(const clsProject& project) {
  const Guard guard("IntegrityCheck", "clsProject");
  bool result = true;
  const auto check = [&](qint32 foundID, const QString& kind, qint32 id, const QString& title) {
    if (foundID == 0) {
      Logging().LogEvent(kind + u" ID "_s + QString::number(id) + u" is referenced by '"_s + title +
                         u"', but doesn't exist in the project"_s);
      result = false;
    }
  };
  for (const auto& chapter : project.Chapters) {
    for (const qint32 id : chapter->SceneIDs()) {
      guard([&] { check(project.SceneByID(id)->ID(), u"Scene"_s, id, chapter->Title); });
    }
  }
  const auto checkScenes = [&](const QString& kind, auto ids, auto find) {
    for (const auto& scene : project.Scenes) {
      const IDList& listed = (scene.get()->*ids)();
      for (qint32 i = listed.Count(); i >= 1; --i) {
        guard([&] { check((project.*find)(listed.at(i))->ID(), kind, listed.at(i), scene->Title); });
      }
    }
  };
  checkScenes(u"Character"_s, &clsScene::CharIDs, &clsProject::CharByID);
  checkScenes(u"Location"_s, &clsScene::LocationIDs, &clsProject::LocationByID);
  checkScenes(u"Item"_s, &clsScene::ItemIDs, &clsProject::ItemByID);
  return result;
}
