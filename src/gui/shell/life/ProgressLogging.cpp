#include "gui/shell/life/ProgressLogging.h"

#include "core/exchange/ProgressLog.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/ProjectSaver.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QApplication>
#include <QTimer>

namespace {

/// Where it isn't the time for a question the next save leads to it again.
void askAtRest() {
  if (!g_Project->IsBusy() && QApplication::activeModalWidget() == nullptr) {
    PublishingScript::ask();
  }
}

void logProgress() {
  WriteProgressLog();
  if (PublishingScript::isUnasked()) {
    QTimer::singleShot(0, qApp, guarded("WriteProgressLog", "modProgressLog", &askAtRest));
  }
}

}  // namespace

void logProgressBehindSaves() {
  behindEachSave() = &logProgress;
}
