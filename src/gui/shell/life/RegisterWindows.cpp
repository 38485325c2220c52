#include "gui/shell/life/RegisterWindows.h"

#include "core/infra/HelpFile.h"
#include "core/infra/cSharedGetDate.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "gui/editor/frmEditor.h"
#include "gui/sheets/EntitySheets.h"
#include "gui/shell/life/ProgressLogging.h"
#include "gui/shell/windows/frmHelp.h"
#include "gui/toolkit/fSHAREDGetDate.h"

void registerWindows() {
  sceneEditorFactory() = [] { return new frmEditor; };
  registerSheets();
  cSharedGetDate::installWindow(&fSHAREDGetDate::run);
  HelpFile::installWindow(&frmHelp::open);
  logProgressBehindSaves();
}

void letBookGo() {
  g_Project = std::make_unique<clsProject>();
}
