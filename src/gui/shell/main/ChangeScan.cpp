#include "gui/shell/main/ChangeScan.h"

#include "core/infra/Guard.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

ChangeScan::ChangeScan(frmMain& main) : QObject(&main), main_(main) {
  TimerScanScenes_.setObjectName(u"TimerScanScenes"_s);
  TimerScanScenes_.setInterval(500ms);
  TimerScanScenes_.setParent(this);
  connect(&TimerScanScenes_, &QTimer::timeout, this, [this] {
    if (main_.Closing) {
      return;
    }
    // Whatever a row does, the next tick comes.
    Guard("TimerScanScenes_Timer", "frmMain")([&] { TimerScanScenes_Timer(); });
    Start();
  });
}

void ChangeScan::TimerScanScenes_Timer() {
  Findings found;
  const ListView& list = main_.panes().FrameScenes().listScenes();
  for (int i = 0; i < list.topLevelItemCount(); ++i) {
    scanRow(*list.topLevelItem(i), found);
  }
  showFindings(found);
  main_.followEditing();
}

void ChangeScan::scanRow(QTreeWidgetItem& row, Findings& found) {
  const qint32 id = ListView::tagOf(row);
  if (g_SceneChanges.HasChanged(id, ChangeArea::MainWindow)) {
    Stop();
    g_SceneChanges.ResetChanged(id, ChangeArea::MainWindow);
    updateSceneAndChapter(row, id, found);
    return;
  }
  // A renamed character shows in the rows that it narrates. The flag goes with the first of them on this tick.
  const qint32 viewpoint = g_Project->SceneByID(id)->ViewPointID();
  if (viewpoint >= 1 && g_CharChanges.HasChanged(viewpoint, ChangeArea::MainWindow)) {
    Stop();
    main_.panes().FrameScenes().UpdateSceneRow(row, id);
    g_CharChanges.ResetChanged(viewpoint, ChangeArea::MainWindow);
    found.AnyChange = true;
  }
}

void ChangeScan::updateSceneAndChapter(QTreeWidgetItem& row, qint32 id, Findings& found) {
  const ScenePane& scenes = main_.panes().FrameScenes();
  const ChapterPane& chapters = main_.panes().FrameChapters();
  found.AnyChange = true;
  found.SelectedChanged = found.SelectedChanged || scenes.SelectedSceneID() == id;
  scenes.UpdateSceneRow(row, id);
  const qint32 chapterID = g_Project->SceneByID(id)->BelongsToChID;
  if (QTreeWidgetItem* chapterRow = chapters.listChapters().topLevelItem(chapters.ChapterRowIndex(chapterID))) {
    chapters.UpdateChapterRow(*chapterRow, chapterID);
  }
  // A scene was added to the chapter, or split out of it.
  const int rows = scenes.listScenes().topLevelItemCount();
  found.NeedsRefill = found.NeedsRefill || g_Project->ChapterByID(scenes.shownChapterID())->SceneCount() != rows;
}

void ChangeScan::showFindings(const Findings& found) {
  if (!found.AnyChange) {
    return;
  }
  MainPanes& panes = main_.panes();
  if (found.NeedsRefill) {
    panes.FillSceneList(0);
  } else if (found.SelectedChanged) {
    panes.FrameScenes().DisplaySelectedScene();
  }
  panes.FrameChapters().RecalcProgressive();
  main_.showTotal();
  main_.UpdateMenusForEditing();
}
