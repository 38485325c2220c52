#include "gui/shell/commands/NewProjectCommands.h"

#include "core/infra/Clock.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/NewBook.h"
#include "gui/shell/commands/modCreateProject.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmProjectWizard.h"
#include "gui/toolkit/GuardedSlot.h"

using namespace Qt::StringLiterals;

namespace {

const QString kOverwrite = shownText(
    u"The project filename already exists. Do you want to overwrite it?\n(This won't delete existing chapters or "
    "scenes in this folder, just the project file)"_s);

/// The file that the book gets: one that is there already is taken only when the user wants that.
QString fileFor(const NewBook& book) {
  const bool mayTakeName =
      !Files().FileExists(book.file()) || toolkit().MsgBox(kOverwrite, Buttons::NoUnlessYes) == Answer::Yes;
  return mayTakeName ? book.file() : book.fileBeside(Clock::now().time());
}

}  // namespace

void NewProjectCommands::bind(MenuBindings& menu) {
  menu.bind("mnuNewProj", [this] { mnuNewProj_Click(); });
  menu.bind("mnuProjectGen", [this] { mnuProjectGen_Click(); });
}

void NewProjectCommands::mnuNewProj_Click() {
  if (g_Project->IsBusy() || !main_.session().mayReplaceProject()) {
    return;
  }
  const ScanPause pause;
  main_.session().leaveProject();
  CreateEmptyProject() ? main_.EnableMenus() : main_.DisableMenus();
  main_.ProjectChanged = false;
  main_.RefreshAll();
}

void NewProjectCommands::mnuProjectGen_Click() {
  if (g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  frmProjectWizard* const wizard = frmProjectWizard::showOver(main_);
  QObject::connect(wizard, &frmProjectWizard::bookWanted, &main_,
                   guarded("mnuProjectGen_Click", "frmMain", [this, wizard](const NewBook& book) {
                     // The answers stay where the book that is open stays.
                     begin(book) ? wizard->accept() : wizard->show();
                   }));
}

bool NewProjectCommands::begin(const NewBook& book) {
  // Titles must never get into a book that has stayed.
  if (main_.refusedWhileEditing() || !main_.session().CloseProject()) {
    return false;
  }
  bool saved = false;
  {
    const ScanPause pause;
    g_Project->AuthorName = book.author;
    g_Project->Title = book.title;
    g_Project->FileWithPath = fileFor(book);
    saved = g_Project->SaveQN4(true);
    main_.ProjectChanged = !saved;
    if (saved) {
      main_.session().AddToRecent(g_Project->FileWithPath);
    }
    main_.session().setMenusByProject();
    main_.RefreshAll();
  }
  if (saved) {
    toolkit().MsgBox(u"Now add chapters, characters and scenes to the project."_s);
  }
  return true;
}
