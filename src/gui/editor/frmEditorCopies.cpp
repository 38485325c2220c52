// What an editor does between two saves so that little is lost whatever happens: the scene in memory gets what was
// typed, and the day's folder of backups a copy of the text.

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/RescueFolder.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorStatusBar.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/views/TextObjects.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";
constexpr int kFirstCopyMs = 5000;
constexpr int kNextCopyMs = 60000;

QString timeNow() {
  return Clock::now().toString(u"HH:mm:ss"_s);
}

}  // namespace

void frmEditor::connectCopies() {
  TimerBackup.setObjectName(u"TimerBackup"_s);
  TimerBackup.setParent(this);
  TimerBackup.setSingleShot(true);
  connect(&TimerBackup, &QTimer::timeout, this,
          guarded("TimerBackup_Timer", kModule, this, &frmEditor::TimerBackup_Timer));
}

void frmEditor::beginCopies() {
  copies_.begin(*g_Project->SceneByID(SceneID));
  before_.reset();
  showCopyPlace();
  TimerBackup.start(kFirstCopyMs);
}

void frmEditor::TimerBackup_Timer() {
  const auto shown = scene();
  if (!shown || leaving_) {
    return;
  }
  copies_.countRun();
  const Guard guard("TimerBackup_Timer", kModule);
  guard([&] {
    if (typedSinceCopy_) {
      keepTyped(*shown);
    } else {
      AutoBackup(*shown, shown->TextRTF());
    }
  });
  guard([this] { showCopyPlace(); });
  TimerBackup.start(kNextCopyMs);
}

/// The window stays changed: nothing of this is a save, and what is dropped at the end goes back to what was there.
void frmEditor::keepTyped(clsScene& shown) {
  if (!keepOriginal(shown, false)) {
    // Nothing may take the place of the only copy, so the scene stays as it is.
    AutoBackup(shown, textToSave());
    return;
  }
  if (!before_) {
    before_.emplace(shown);
  }
  shown.HoldCounts();
  FormToData(shown);
  before_->take(shown);
  if (!g_Project->HasPlace()) {
    tellCopy(RescueFolder(*g_Project).keep(shown) ? QString() : shownText(u"The rescue folder takes no text."_s));
  }
}

/// When it was due it stays due: whoever saves every half minute has copies too.
void frmEditor::restartCopies(int dueMs) {
  typedSinceCopy_ = false;
  TimerBackup.start(dueMs > 0 ? dueMs : kNextCopyMs);
}

void frmEditor::AutoBackup(clsScene& shown, const QByteArray& rtf) {
  if (!g_Project->HasPlace()) {
    return;
  }
  using Check = SceneCopies::Check;
  const Check text =
      copies_.AutoBackup(shown, objects_->holdsUnsaved() ? writeRtf(objects_->withOpenNote(cleanText())) : rtf);
  const Check plan = copies_.copyPlan(shown);
  if (text.result != Check::Result::NothingNew || plan.result != Check::Result::NothingNew) {
    tellCopy(text.failure.isEmpty() ? plan.failure : text.failure);
  }
}

/// An empty failure is none.
void frmEditor::tellCopy(const QString& failure) {
  if (failure.isEmpty()) {
    StatusBar1->setPanel(EditorStatusBar::autosave, toldText(u"Autosaved: %1"_s, {timeNow()}));
    return;
  }
  StatusBar1->setPanel(EditorStatusBar::autosave, toldText(u"Autosave failed: %1"_s, {timeNow()}),
                       translated(u"There is no copy of what was typed last, and it is tried again every minute. "
                                  "Please save the scene."_s) +
                           u"\n\n"_s + translated(failure));
}

void frmEditor::showCopyPlace() {
  const QString folder = g_Project->HasPlace() ? g_Project->Path() + u"Autobackup"_s : Paths::rescueFolder();
  StatusBar1->setToolTip(plainToolTip(
      translated(u"This file will be backed up to %1 at 1 minute intervals (If changes occur)"_s).arg(folder)));
}

void frmEditor::dropTyped() {
  if (const auto shown = scene(); shown && before_) {
    // A save of the book may have written it meanwhile.
    const bool planTyped = before_->planDiffers(*shown);
    before_->giveBack(*shown);
    before_.reset();
    if (planTyped && Changed) {
      Changed();
    }
  }
  // Should the window stay, its text is to be kept again.
  typedSinceCopy_ = true;
}
