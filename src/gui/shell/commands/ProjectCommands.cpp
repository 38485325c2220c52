#include "gui/shell/commands/ProjectCommands.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/RecentProjects.h"
#include "gui/shell/commands/modCreateProject.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

/// An older project is written anew in the present form: only when the user wants that.
bool conversionWanted(const QString& path) {
  return Files().ExtOnly(path).toLower() != u"qn3"_s ||
         toolkit().MsgBox(
             u"If you proceed, your Quillane3 project will be converted to Quillane4 format. Are you sure?"_s,
             Buttons::YesNo) == Answer::Yes;
}

}  // namespace

void ProjectCommands::LoadProject(const QString& Path, bool ShowProgress) {
  // Written at once, so that the list outlives a crash; as it stands already at most starts, it is left alone then.
  RecentProjects::isNewest(Path) ? UpdateRecent() : AddToRecent(Path);
  if (!readProject(Path, ShowProgress)) {
    showEmptyProject();
    toolkit().DoEvents();
    return;
  }
  main_.EnableMenus();
  main_.RefreshAll();
  main_.ProjectChanged = false;
}

// The lists go first: their rows stand for what is cleared while the windows repaint.
bool ProjectCommands::readProject(const QString& path, bool showProgress) {
  main_.StopScanTimer();
  main_.panes().ClearLists();
  return g_Project->Load(path, showProgress);
}

void ProjectCommands::showEmptyProject() {
  // Scenes that were open give up their locks.
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  main_.DisableMenus();
  main_.panes().ClearLists();
  main_.RefreshAll();
  main_.ProjectChanged = false;
}

void ProjectCommands::SaveProject(bool ShowProgress) {
  main_.StopScanTimer();
  main_.ProjectChanged = false;
  if (g_Project->SaveQN4(ShowProgress)) {
    AddToRecent(g_Project->FileWithPath);
  }
  main_.StartScanTimer();
}

bool ProjectCommands::isChanged() const {
  return main_.ProjectChanged || g_Project->EditedSinceSave();
}

void ProjectCommands::saveIfChanged() {
  if (isChanged()) {
    SaveProject(false);
  }
}

bool ProjectCommands::mayReplaceProject() {
  if (main_.ProjectChanged || g_Project->HoldsUnsaved()) {
    SaveProject(false);
  }
  return !g_Project->HoldsUnsaved() ||
         toolkit().MsgBox(
             u"The project could not be saved whole. What isn't saved is lost if you go on. Do you want to go on?"_s,
             Buttons::YesNo) == Answer::Yes;
}

void ProjectCommands::AddToRecent(const QString& Path) {
  RecentProjects::AddToRecent(Path);
  UpdateRecent();
}

void ProjectCommands::UpdateRecent() {
  QList<MenuElement> elements;
  for (const QString& path : RecentProjects::existing()) {
    elements.append({RecentProjects::captionOf(path), path});
  }
  main_.menus().loadElements(u"mnuRecent"_s, elements);
  // Element 0 only says that there is nothing yet.
  main_.menus().setVisible(u"mnuRecent(0)"_s, elements.isEmpty());
}

bool ProjectCommands::CloseProject() {
  if (isChanged() && main_.refusedWhileEditing()) {
    return true;
  }
  if (!mayReplaceProject()) {
    return false;
  }
  showEmptyProject();
  return true;
}

void ProjectCommands::setMenusByProject() {
  // A book whose save was given up has no file and can still be saved.
  g_Project->FileWithPath.isEmpty() && g_Project->IsEmpty() ? main_.DisableMenus() : main_.EnableMenus();
}

// Whoever opens a project by hand is not asked about updates in this run.
void ProjectCommands::mnuLoadProj_Click() {
  if (g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  main_.stopUpdateCheck();
  if (!mayReplaceProject()) {
    return;
  }
  main_.StopScanTimer();
  const QString path =
      toolkit().OpenFileDialog({u"Open"_s, u"*.qn3;*.qn4;*.qnc4"_s, QString(), Paths::documentsFolder()});
  if (!path.isEmpty() && conversionWanted(path)) {
    LoadProject(path, true);
  }
  if (g_Project->FileWithPath.isEmpty()) {
    main_.RefreshAll();
  }
  setMenusByProject();
  UpdateRecent();
  main_.StartScanTimer();
}

void ProjectCommands::mnuRecent_Click(const QString& Path) {
  if (Path.isEmpty() || g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  main_.stopUpdateCheck();
  if (!mayReplaceProject()) {
    return;
  }
  main_.StopScanTimer();
  LoadProject(Path, true);
  setMenusByProject();
  main_.StartScanTimer();
}

void ProjectCommands::mnuSaveProj_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  SaveProject(true);
}

void ProjectCommands::mnuSaveAs_Click() {
  main_.StopScanTimer();
  main_.ProjectChanged = false;
  if (g_Project->SaveAs()) {
    AddToRecent(g_Project->FileWithPath);
  }
  main_.StartScanTimer();
}

void ProjectCommands::mnuCloseProject_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  CloseProject();
}

void ProjectCommands::mnuNewProj_Click() {
  if (g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  if (!mayReplaceProject()) {
    return;
  }
  main_.StopScanTimer();
  const bool created = CreateEmptyProject();
  created ? main_.EnableMenus() : main_.DisableMenus();
  main_.panes().ClearLists();
  main_.RefreshAll();
  main_.ProjectChanged = false;
  main_.StartScanTimer();
}

void ProjectCommands::mnuAppendProject_Click() {
  toolkit().MsgBox(u"This isn't working yet - project path in TP used from main project file, not TP."_s);
}

void ProjectCommands::mnuSaveToSingleFile_Click() {
  if (g_Project->FileWithPath.isEmpty()) {
    return;
  }
  QString saved;
  {
    const QScopedValueRollback ownName(g_Project->FileWithPath,
                                       Files().FileWithoutExt(g_Project->FileWithPath) + u".qnc4"_s);
    if (g_Project->SaveQNC4(true)) {
      saved = g_Project->FileWithPath;
    }
  }
  if (!saved.isEmpty()) {
    toolkit().MsgBox(u"File saved to "_s + saved);
  }
}
