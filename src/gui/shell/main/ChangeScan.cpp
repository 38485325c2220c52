#include "gui/shell/main/ChangeScan.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

ChangeScan::ChangeScan(frmMain& main)
    : main_(main), poller_("TimerScanScenes_Timer", "frmMain", ChangeArea::MainWindow, &main) {
  poller_.follow(g_SceneChanges, [this](qint32 id) { sceneChanged(id); });
  poller_.follow(g_CharChanges, [this](qint32 id) { characterChanged(id); });
  for (clsHashTable* const table : {&g_LocationChanges, &g_ItemChanges}) {
    poller_.follow(*table, [this](qint32) { selectedChanged_ = true; });
  }
  poller_.setAfterPoll([this](bool anyChange) {
    if (anyChange) {
      showFindings();
    }
    main_.followEditing();
  });
}

void ChangeScan::start() {
  poller_.start(500ms);
}

void ChangeScan::sceneChanged(qint32 id) {
  ScenePane& scenes = main_.panes().scenes();
  scenes.UpdateSceneRow(id);
  selectedChanged_ = selectedChanged_ || scenes.SelectedSceneID() == id;
}

// A renamed character shows in the rows that it narrates, and among the characters of the display.
void ChangeScan::characterChanged(qint32 id) {
  ScenePane& scenes = main_.panes().scenes();
  for (const qint32 sceneID : scenes.listScenes().rows().tags()) {
    if (g_Project->SceneByID(sceneID)->ViewPointID() == id) {
      scenes.UpdateSceneRow(sceneID);
    }
  }
  selectedChanged_ = true;
}

/// A scene was added to the chapter that is shown, split out of it, moved or removed.
bool ChangeScan::needsRefill() const {
  const ScenePane& scenes = main_.panes().scenes();
  const qint32 shown = scenes.shownChapterID();
  const auto chapter = g_Project->ChapterByID(shown);
  const IDList& ids = chapter->SceneIDs();
  const QList<qint32>& rows = scenes.listScenes().rows().tags();
  return shown != 0 && !std::equal(rows.begin(), rows.end(), ids.begin(), ids.end());
}

void ChangeScan::showFindings() {
  const bool selectedChanged = std::exchange(selectedChanged_, false);
  MainPanes& panes = main_.panes();
  if (needsRefill()) {
    panes.FillSceneList(0);
  } else if (selectedChanged) {
    panes.scenes().DisplaySelectedScene();
  }
  panes.chapters().RecalcProgressive();
  main_.showTotal();
  main_.UpdateMenusForEditing();
}
