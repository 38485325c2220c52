#include "gui/shell/life/ProgressLogging.h"

#include "core/exchange/ProgressLog.h"
#include "core/exchange/PublishingScript.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/ProjectSaver.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QApplication>
#include <QTimer>

namespace {

/// Where it isn't the time for a question, or another book was opened since, the next save leads to it again.
void askAtRest(const QString& saved) {
  const bool isAtRest = !g_Project->IsBusy() && QApplication::activeModalWidget() == nullptr;
  if (isAtRest && g_Project->FileWithPath == saved) {
    PublishingScript::ask();
  }
}

void logProgress() {
  if (WriteProgressLog()) {
    const QString saved = g_Project->FileWithPath;
    QTimer::singleShot(0, qApp, guarded("WriteProgressLog", "modProgressLog", [saved] { askAtRest(saved); }));
  }
}

}  // namespace

void logProgressBehindSaves() {
  behindEachSave() = &logProgress;
}
