#include "core/model/SaveSeries.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"

SaveSeries::~SaveSeries() {
  if (--living_ == 0 && due_) {
    flush();
  }
}

void SaveSeries::nameIsNew() {
  due_ = true;
  if (living_ == 0) {
    flush();
  }
}

void SaveSeries::flush() {
  due_ = false;
  Guard("SaveScenesText", "clsScenes")([] { flushFolderToDisk(g_Project->RTFFolder()); });
}
