#include "gui/shell/main/DiskWatch.h"

#include "core/infra/ScanPause.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/DiskConflicts.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"

#include <QApplication>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kScenesAtATime = 64;

QString whatChanged(const DiskConflicts& found) {
  const auto scenes = found.scenes();
  if (found.hasProjectFile()) {
    return translated(u"Another program has changed this book's file."_s);
  }
  return scenes.size() == 1
             ? translated(u"Another program has changed the text of '%1'."_s).arg(calledScene(scenes.first()->Title))
             : translated(u"Another program has changed the texts of %1 scenes."_s).arg(scenes.size());
}

}  // namespace

DiskWatch::DiskWatch(frmMain& main) : main_(main) {
  timer_.setObjectName(u"TimerDisk"_s);
  timer_.setParent(&main);
  timer_.setInterval(3s);
  QObject::connect(&timer_, &QTimer::timeout, &main, guarded("TimerDisk_Timer", "frmMain", [this] { look(); }));
}

void DiskWatch::look() {
  if (main_.Closing || ScanPause::isActive() || g_Project->IsBusy()) {
    return;
  }
  if (g_Project->ReloadWanted() && !main_.Editing() && QApplication::activeModalWidget() == nullptr &&
      QApplication::activePopupWidget() == nullptr && !ListView::isDragging()) {
    // A save that the main window didn't ask for has led to it; a dialog, a menu of a row or a drag would go on with
    // what has gone.
    main_.LoadProject(QString(g_Project->FileWithPath), false);
  }
  DiskConflicts found(*g_Project);
  if (!g_Project->FileWithPath.isEmpty()) {
    found.lookAtProjectFile();
    lookAtSome(found);
  }
  found.keepWholeOnes();
  tell(found);
}

void DiskWatch::lookAtSome(DiskConflicts& found) {
  std::set<qint32> wanted = std::move(changed_);
  const qint32 count = g_Project->SceneCount();
  for (qint32 i = 0; i < std::min(count, kScenesAtATime); ++i) {
    next_ = next_ >= count ? 1 : next_ + 1;
    wanted.insert(g_Project->SceneByIndex(next_)->ID());
  }
  for (const qint32 id : wanted) {
    const auto scene = g_Project->SceneByID(id);
    if (scene->InScenes()) {
      found.lookAtDisk(*scene);
    }
  }
  changed_.clear();
  for (const auto& scene : found.scenes()) {
    changed_.insert(scene->ID());
  }
}

void DiskWatch::tell(const DiskConflicts& found) {
  if (found.isEmpty()) {
    main_.status().setOffer({}, {});
    return;
  }
  main_.status().setOffer(whatChanged(found), guarded("cmdLoadIt_Click", "frmMain", [this] { load(); }));
}

// What stands in memory alone is saved first: the save asks which of the two is to stay.
void DiskWatch::load() {
  if (g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  // The button goes, and the next field would take the keys that are meant for it.
  main_.panes().chapters().listChapters().setFocus();
  DiskConflicts found(*g_Project);
  found.lookAtProjectFile();
  found.keepWholeOnes();
  if (g_Project->ReadOnly()) {
    loadReadOnly();
  } else if (!found.hasProjectFile()) {
    loadTexts();
  } else if (main_.session().isChanged() || g_Project->HoldsUnsaved()) {
    main_.SaveProject(false);
  } else {
    main_.LoadProject(QString(g_Project->FileWithPath), false);
  }
  look();
}

void DiskWatch::loadReadOnly() {
  if (main_.session().mayLeaveReadOnly() && g_Project->ReadOnly()) {
    main_.LoadProject(QString(g_Project->FileWithPath), false);
  }
}

void DiskWatch::loadTexts() {
  const bool anyDue =
      std::any_of(changed_.begin(), changed_.end(), [](qint32 id) { return g_Project->SceneByID(id)->RTFChanged(); });
  if (anyDue) {
    main_.SaveProject(false);
  }
  DiskConflicts found(*g_Project);
  for (const qint32 id : changed_) {
    const auto scene = g_Project->SceneByID(id);
    if (scene->InScenes() && !scene->RTFChanged()) {
      found.lookAtDisk(*scene);
    }
  }
  found.keepWholeOnes();
  found.takeTexts();
}
