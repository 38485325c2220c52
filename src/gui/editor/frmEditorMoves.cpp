#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/SceneNavigator.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/TextObjects.h"

#include <QPointer>
#include <QShortcut>

#include <memory>

using namespace Qt::StringLiterals;

// From scene to scene. Another scene is another window: this one saves, opens that and closes a moment later. Whatever
// goes wrong on the way, this one stays, with its text.

namespace {

constexpr auto kModule = "frmEditor";
constexpr int kExitMs = 50;

qint32 AddSceneToChapter(qint32 chapterID) {
  const auto added = std::make_shared<clsScene>();
  g_Project->Addscene(added);
  g_Project->ChapterByID(chapterID)->Addscene(added);
  added->Title = translated(u"New Scene"_s);
  added->Save(false, true);
  g_Project->setPlanDue();
  // Until then nothing names its file. Why it could not be saved is told by the save, and the next one takes it along.
  if (g_Project->HasPlace()) {
    g_Project->SaveQN4(false);
  }
  return added->ID();
}

qint32 firstSceneOf(qint32 chapterID) {
  const auto chapter = g_Project->ChapterByID(chapterID);
  return chapter->SceneCount() > 0 ? chapter->SceneID(1) : AddSceneToChapter(chapterID);
}

}  // namespace

void frmEditor::connectMoves() {
  connect(navigator_, &SceneNavigator::opening, this,
          guarded("FindInCombos", kModule, this, &frmEditor::refreshNavigator));
  connect(navigator_, &SceneNavigator::chapterChosen, this,
          guarded("SwitchChapter", kModule, this, &frmEditor::SwitchChapter));
  connect(navigator_, &SceneNavigator::sceneChosen, this,
          guarded("cmbScene_Click", kModule, this, &frmEditor::cmbScene_Click));
  connect(navigator_, &SceneNavigator::neighbourWanted, this,
          guarded("cmdSaveAndNext_Click", kModule, this, &frmEditor::saveAndMove));
  connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, this,
          guarded("MoveToNext", kModule, this, &frmEditor::MoveToNext));
  TimerExit.setSingleShot(true);
  TimerExit.setInterval(kExitMs);
  connect(&TimerExit, &QTimer::timeout, this, guarded("TimerExit_Timer", kModule, this, &frmEditor::retire));
}

void frmEditor::refreshNavigator() {
  if (const auto shown = scene()) {
    navigator_->find(*shown, TabStrip1->Title());
  }
}

void frmEditor::saveAndMove(int step) {
  handOver([&]() -> qint32 {
    refreshNavigator();
    const auto [sceneID, chapterID] = navigator_->neighbour(step);
    return chapterID != 0 ? AddSceneToChapter(chapterID) : sceneID;
  });
}

void frmEditor::cmbScene_Click(qint32 sceneID) {
  if (sceneID != SceneID) {
    handOver([sceneID] { return sceneID; });
  }
}

void frmEditor::SwitchChapter(qint32 chapterID) {
  handOver([&]() -> qint32 {
    const auto shown = scene();
    return shown && shown->BelongsToChID == chapterID ? 0 : firstSceneOf(chapterID);
  });
}

void frmEditor::MoveToNext() {
  refreshNavigator();
  if (const qint32 chapterID = navigator_->nextChapter(); chapterID != 0) {
    SwitchChapter(chapterID);
  }
}

void frmEditor::handOver(const std::function<qint32()>& target) {
  if (leaving_ || handingOver_) {
    return;
  }
  const QPointer<frmEditor> alive(this);
  DisableOrEnable(false);
  handingOver_ = true;
  bool going = false;
  Guard("Edit", kModule)([&] { going = saveWhole() && openNext(target()); });
  if (!alive) {
    return;
  }
  if (going) {
    TimerExit.start();
  } else {
    stay();
  }
}

void frmEditor::stay() {
  handingOver_ = false;
  DisableOrEnable(true);
  refreshNavigator();
}

/// True when the scene's window is up; false too for the ID 0.
bool frmEditor::openNext(qint32 sceneID) {
  const auto next = g_Project->SceneByID(sceneID);
  if (sceneID == 0 || !next->InScenes()) {
    return false;
  }
  storeWindowSettings();
  next->Edit();
  return next->EditingScene();
}

/// What came into the window while the other one was opening goes along as well.
void frmEditor::retire() {
  if (leaving_) {
    return;
  }
  objects_->takeOpenNote();
  if (Dirty && !saveWhole()) {
    stay();
    return;
  }
  ExitForm();
}
