#include "gui/shell/commands/SettingsCommands.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmEditProject.h"
#include "gui/toolkit/GuardedSlot.h"

using namespace Qt::StringLiterals;

void SettingsCommands::bind(MenuBindings& menu) {
  menu.bind("mnuSettings", [this] { mnuSettings_Click(); });
}

void SettingsCommands::mnuSettings_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const frmEditProject* const form = frmEditProject::showOver(main_, ProjectSettings::of(*g_Project));
  QObject::connect(form, &QDialog::accepted, &main_,
                   guarded("mnuSettings_Click", "frmMain", [this, form] { take(form->settings()); }));
}

// A read-only book keeps the change in memory. So does one whose save was given up, and settings are all that a book
// may hold so far: the change is marked then, or nobody would ask about it when the book is left.
void SettingsCommands::take(const ProjectSettings& settings) {
  settings.storeIn(*g_Project);
  main_.panes().chapters().showTitles();
  main_.ProjectChanged = true;
  main_.SaveProject(false);
  main_.ProjectChanged = main_.session().isChanged();
  main_.showTitle();
  if (g_Project->ReadOnly()) {
    main_.showMessage(u"The book was opened read-only: the settings are changed, but not saved."_s);
  }
}
