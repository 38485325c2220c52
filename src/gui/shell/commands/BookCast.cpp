#include "gui/shell/commands/BookCast.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/OverActiveWindow.h"

BookCast::Choice BookCast::choose(frmMain& main, int listType) {
  const OverActiveWindow<frmList> form;
  form->SetupFor(listType, false);
  const bool taken = form.accepted();
  if (!form.isThere()) {
    return {};
  }
  // Also who chooses nobody may have changed who there is.
  Choice choice{taken, form->hasChangedBook(), taken ? form->selectedIDs() : QList<qint32>()};
  if (choice.changedBook) {
    show(main);
  }
  return choice;
}

void BookCast::show(frmMain& main) {
  main.ProjectChanged = true;
  main.panes().FillSceneList(0);
  main.showBook();
  g_Project->UpdateCombosInEditorWindows();
}
