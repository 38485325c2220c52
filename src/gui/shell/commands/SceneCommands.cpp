#include "gui/shell/commands/SceneCommands.h"

#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/commands/BookScenes.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMostAtOnce = 20;

}  // namespace

void SceneCommands::bind(MenuBindings& menu) {
  const auto bindTo = [&](const char* name, auto command) {
    menu.bind(name, [command](const MenuChoice& chosen) {
      if (!g_Project->IsBusy()) {
        command(chosen.index);
      }
    });
  };
  bindTo("mnuAddScene", [this](int) { mnuAddScene_Click(); });
  bindTo("mnuAddMultiScenes", [this](int) { mnuAddMultiScenes_Click(); });
  bindTo("mnuMarkScenesUnused", [this](int) { mnuMarkScenesUnused_Click(); });
  bindTo("mnuStatus", [this](int index) { mnuStatus_Click(index); });
  bindTo("mnuRemoveScene", [this](int) { RemoveScenes(false); });
  bindTo("mnuDeleteScene", [this](int) { RemoveScenes(true); });
}

QList<qint32> SceneCommands::selected() const {
  return main_.panes().scenes().listScenes().SelectedTags();
}

void SceneCommands::mnuAddScene_Click() {
  const qint32 chapter = main_.panes().scenes().shownChapterID();
  if (g_Project->Chapters.ChapterIndex(chapter) > 0 && g_Project->CreateNewScene(chapter, 0)) {
    main_.panes().FillSceneList(0);
    main_.ProjectChanged = true;
  }
}

void SceneCommands::mnuAddMultiScenes_Click() {
  const qint32 chapter = main_.panes().scenes().shownChapterID();
  if (g_Project->Chapters.ChapterIndex(chapter) < 1) {
    toolkit().MsgBox(u"Select a chapter first"_s);
    return;
  }
  const QString answer =
      toolkit().InputBox(u"How many scenes would you like to add to this chapter?"_s, u"Create blank scenes"_s, {});
  const double count = std::nearbyint(Numbers::Val(answer));
  if (count == 0 && !answer.isEmpty() && !Numbers::ToNumber(answer)) {
    main_.showMessage(translated(u"No scene was added: \"%1\" is no number"_s).arg(answer));
    return;
  }
  if (count > kMostAtOnce) {
    toolkit().MsgBox(u"Please specify 20 scenes or less"_s);
  } else if (count > 0) {
    createScenes(*g_Project->ChapterByID(chapter), static_cast<qint32>(count));
  }
}

// They get their files with the book: one save, and one question where there is any.
void SceneCommands::createScenes(clsChapter& chapter, qint32 count) {
  std::shared_ptr<clsScene> scene;
  for (qint32 i = 1; i <= count; ++i) {
    scene = std::make_shared<clsScene>();
    scene->Title = translated(u"New Scene"_s) + u' ' + QString::number(i);
    g_Project->Addscene(scene);
    chapter.Addscene(scene);
    g_SceneChanges.MarkUpdated(scene->ID());
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  if (g_Project->SceneByID(scene->ID()) != scene) {
    return;  // another program's book was taken in the save
  }
  main_.showMessage(count == 1 ? shownText(u"1 scene was added to the chapter"_s)
                               : translated(u"%L1 scenes were added to the chapter"_s).arg(count));
}

void SceneCommands::mnuMarkScenesUnused_Click() {
  const QList<qint32> scenes = selected();
  if (scenes.isEmpty()) {
    return;
  }
  bool refused = false;
  for (const qint32 id : scenes) {
    refused = !BookScenes::change(id, [](clsScene& scene) { scene.Unused = !scene.Unused; }) || refused;
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  BookScenes::tellRefused(refused);
}

// Element 0 of the menu is the status 1.
void SceneCommands::mnuStatus_Click(int Index) {
  const QList<qint32> scenes = selected();
  if (scenes.isEmpty()) {
    return;
  }
  bool refused = false;
  for (const qint32 id : scenes) {
    const auto setStatus = [Index](clsScene& scene) { scene.Status = static_cast<qint16>(Index + 1); };
    refused = !BookScenes::change(id, setStatus) || refused;
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.panes().FillSceneList(0);
  BookScenes::tellRefused(refused);
}

void SceneCommands::RemoveScenes(bool AlsoDeleteFile) {
  const qint32 chapterID = main_.panes().scenes().shownChapterID();
  if (g_Project->Chapters.ChapterIndex(chapterID) < 1) {
    return;
  }
  const QList<qint32> scenes = selected();
  if (scenes.isEmpty()) {
    toolkit().MsgBox(u"Select a scene first"_s);
    return;
  }
  if (!BookScenes::mayRemove(main_, scenes, shownText(u"Remove selected scene(s) from your project?"_s))) {
    return;
  }
  const auto chapter = g_Project->ChapterByID(chapterID);
  for (const qint32 id : scenes) {
    const auto scene = g_Project->SceneByID(id);
    BookScenes::remove(*chapter, id);
    if (AlsoDeleteFile) {
      scene->EraseScene();
    }
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
}
