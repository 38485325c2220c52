#include "gui/shell/commands/SettingsCommands.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/planning/frmWordTarget.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmEditProject.h"
#include "gui/toolkit/GuardedSlot.h"

using namespace Qt::StringLiterals;

void SettingsCommands::bind(MenuBindings& menu) {
  menu.bind("mnuSettings", [this] { mnuSettings_Click(); });
  menu.bind("mnuWordTarget", [this] { mnuWordTarget_Click(); });
}

void SettingsCommands::mnuSettings_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const frmEditProject* const form = frmEditProject::showOver(main_, ProjectSettings::of(*g_Project));
  QObject::connect(form, &QDialog::accepted, &main_,
                   guarded("mnuSettings_Click", "frmMain", [this, form] { take(form->settings()); }));
}

void SettingsCommands::take(const ProjectSettings& settings) {
  settings.storeIn(*g_Project);
  main_.panes().chapters().showTitles();
  saveStored(shownText(u"The book was opened read-only: the settings are changed, but not saved."_s));
}

void SettingsCommands::mnuWordTarget_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const WordTarget target = WordTarget::of(*g_Project, Clock::dayNumber(Clock::today()));
  const frmWordTarget* const form = frmWordTarget::showOver(main_, target, g_Project->Wordcount(false));
  QObject::connect(
      form, &QDialog::accepted, &main_, guarded("cmdSave_Click", "frmWordTarget", [this, form] {
        form->target().storeIn(*g_Project);
        main_.showTotal();
        saveStored(shownText(u"The book was opened read-only: the word target is changed, but not saved."_s));
      }));
}

// A read-only book keeps the change in memory. So does one whose save was given up, and this is all that a book may
// hold so far: the change is marked then, or nobody would ask about it when the book is left.
void SettingsCommands::saveStored(const QString& inMemoryOnly) {
  main_.ProjectChanged = true;
  main_.SaveProject(false);
  main_.ProjectChanged = main_.session().isChanged();
  main_.showTitle();
  if (g_Project->ReadOnly()) {
    main_.showMessage(inMemoryOnly);
  }
}
