#include "gui/shell/commands/ProjectCommands.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/commands/OpenChosen.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/frmMain.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

/// A few of the scenes whose texts stand in memory alone.
QStringList titlesOfUnsavedTexts() {
  QStringList titles;
  for (const auto& scene : g_Project->Scenes) {
    if (scene->RTFChanged()) {
      titles.append(calledScene(scene->Title));
    }
  }
  return firstOf(titles);
}

}  // namespace

void ProjectCommands::bind(MenuBindings& menu) {
  menu.bind("mnuLoadProj", [this] { mnuLoadProj_Click(); });
  menu.bind("mnuRecent", [this](const MenuChoice& chosen) { mnuRecent_Click(chosen.tag.toString()); });
  menu.bind("mnuSaveProj", [this] { mnuSaveProj_Click(); });
  menu.bind("mnuSaveAs", [this] { mnuSaveAs_Click(); });
  menu.bind("mnuCloseProject", [this] { mnuCloseProject_Click(); });
  menu.bind("mnuAppendProject", [this] { mnuAppendProject_Click(); });
  menu.bind("mnuSaveToSingleFile", [this] { mnuSaveToSingleFile_Click(); });
}

void ProjectCommands::mnuLoadProj_Click() {
  openChosen(main_, [] {
    return toolkit().OpenFileDialog({u"Open"_s, u"*.qn3;*.qn4;*.qnc4"_s, QString(), Paths::documentsFolder()});
  });
}

void ProjectCommands::mnuRecent_Click(const QString& Path) {
  if (Path.isEmpty()) {
    main_.showMessage(u"No project has been opened yet."_s);
    return;
  }
  openChosen(main_, [&Path] { return Path; });
}

void ProjectCommands::mnuSaveProj_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (g_Project->ReadOnly()) {
    if (toolkit().MsgBox(u"The book was opened read-only, so nothing is saved to its place. Do you want to save it "
                         "under a new name?"_s,
                         Buttons::YesNo) == Answer::Yes) {
      main_.session().saveUnderNewName();
    }
    return;
  }
  main_.SaveProject(true);
  if (g_Project->FileWithPath.isEmpty()) {
    return;  // no file was named, and that has been said
  }
  const QStringList unsaved = titlesOfUnsavedTexts();
  if (!unsaved.isEmpty()) {
    toolkit().MsgBox(
        translated(u"The text of these scenes could not be written to %1:"_s).arg(g_Project->Path() + u"RTF"_s) +
        u'\n' + unsaved.join(u'\n'));
  }
}

void ProjectCommands::mnuSaveAs_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  main_.session().saveUnderNewName();
}

void ProjectCommands::mnuCloseProject_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  main_.session().CloseProject();
}

void ProjectCommands::mnuAppendProject_Click() {
  toolkit().MsgBox(u"This isn't working yet - project path in TP used from main project file, not TP."_s);
}

void ProjectCommands::mnuSaveToSingleFile_Click() {
  if (g_Project->FileWithPath.isEmpty() || g_Project->IsBusy()) {
    return;
  }
  if (g_Project->ReadOnly()) {
    toolkit().MsgBox(u"The book was opened read-only, so nothing is saved to its place."_s);
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
    toolkit().MsgBox(translated(u"File saved to %1"_s).arg(saved));
  }
}
