#include "gui/shell/commands/BookScenes.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/LostAndFound.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/SceneRemoval.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool BookScenes::change(qint32 id, const std::function<void(clsScene&)>& what) {
  const auto scene = g_Project->SceneByID(id);
  if (scene->Locked()) {
    return false;
  }
  if (scene->InScenes()) {
    what(*scene);
    scene->Save();
  }
  return true;
}

void BookScenes::tellRefused(bool anyRefused) {
  if (anyRefused) {
    toolkit().MsgBox(u"One or more scenes could not be updated, since they're being edited"_s);
  }
}

bool BookScenes::mayRemove(frmMain& main, const QList<qint32>& ids, const QString& question) {
  const auto isOpen = [](qint32 id) { return g_Project->SceneByID(id)->Locked(); };
  if (std::any_of(ids.begin(), ids.end(), isOpen) && main.refusedWhileEditing()) {
    return false;
  }
  return toolkit().MsgBox(question, Buttons::NoUnlessYes) == Answer::Yes &&
         std::all_of(ids.begin(), ids.end(), [](qint32 id) {
           const auto scene = g_Project->SceneByID(id);
           if (!scene->InScenes()) {
             return true;
           }
           // The file is what is left of the text.
           if (!LostAndFound::mayBeRemoved(*scene)) {
             scene->SaveRTF(true);
           }
           return mayLeaveBook(*scene);
         });
}

void BookScenes::remove(clsChapter& chapter, qint32 id) {
  const auto scene = g_Project->SceneByID(id);
  chapter.RemoveSceneByID(id);
  if (!scene->InScenes()) {
    return;
  }
  Logging().LogEvent(u"Removed scene "_s + scene->RTFFileWithPath());
  g_Project->RemoveSceneByID(id);
}
