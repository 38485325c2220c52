#include "gui/shell/commands/SearchCommands.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/spell/ProblemWords.h"
#include "gui/shell/commands/BackupCommands.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmGlobalReplace.h"
#include "gui/shell/windows/frmProblemWords.h"
#include "gui/toolkit/GuardedSlot.h"

using namespace Qt::StringLiterals;

namespace {

/// Words that weak prose overuses. The entry of "muttered" shows a blank that isn't looked for.
constexpr std::array<std::pair<const char*, const char*>, 9> kPredefined{{{"mnuFindAs", ". As "},
                                                                          {"mnuFindLy", "ly "},
                                                                          {"mnuFindIng", "ing "},
                                                                          {"mnuFindThen", " then "},
                                                                          {"mnuFindTurned", " turned"},
                                                                          {"mnuFindGlanced", " glanced"},
                                                                          {"mnuFindMuttered", "muttered"},
                                                                          {"mnuFindSuddenly", "Suddenly"},
                                                                          {"mnuFindLooked", "looked"}}};

}  // namespace

void SearchCommands::bind(MenuBindings& menu) {
  const auto bindTo = [&](const char* name, auto command) {
    menu.bind(name, [command](const MenuChoice& chosen) {
      if (!g_Project->IsBusy()) {
        command(chosen);
      }
    });
  };
  bindTo("mnuFind", [this](const MenuChoice&) { search_.ShowFind(); });
  bindTo("cmdFindNext", [this](const MenuChoice&) { search_.FindNext(); });
  bindTo("mnuFindPrev", [this](const MenuChoice&) { search_.FindPrevious(); });
  bindTo("mnuGlobalReplace", [this](const MenuChoice&) { mnuGlobalReplace_Click(); });
  bindTo("mnuUDW", [this](const MenuChoice& chosen) { mnuUDW_Click(chosen); });
  for (const auto& [name, word] : kPredefined) {
    bindTo(name, [this, word = QString::fromLatin1(word)](const MenuChoice&) { search_.findWord(word); });
  }
  // A line to be read that no state of the window enables.
  menu.bind("UseF3ToFindNext", [] {});
}

void SearchCommands::fillProblemWords(MainMenuBar& menus) {
  QList<MenuElement> elements;
  for (const QString& word : ProblemWords::load()) {
    elements.append({translated(u"Search for '%1'"_s).arg(word), word});
  }
  menus.loadElements(u"mnuUDW"_s, elements);
}

void SearchCommands::mnuUDW_Click(const MenuChoice& chosen) {
  chosen.index == 0 ? defineProblemWords() : search_.findInAnyCase(chosen.tag.toString());
}

// What took a while to think of is on the disk at once, not only when the program ends.
void SearchCommands::defineProblemWords() {
  const frmProblemWords* const form = frmProblemWords::showOver(main_);
  QObject::connect(form, &QDialog::accepted, &main_, guarded("mnuUDW_Click", "frmMain", [&main = main_] {
                     Settings().SaveSettings(g_SettingsFile);
                     fillProblemWords(main.menus());
                   }));
}

void SearchCommands::mnuGlobalReplace_Click() {
  frmGlobalReplace* const form = frmGlobalReplace::showOver(main_);
  form->SaveBook = [&main = main_] { main.SaveProject(false); };
  // Whoever has only looked, or has it all on the disk, has nothing to save.
  const auto told = [&main = main_] {
    const bool unsaved = main.ProjectChanged.isUnsaved();
    main.ProjectChanged = true;
    if (!unsaved) {
      main.ProjectChanged.setWritten();
    }
    main.showTitle();
  };
  QObject::connect(
      form, &frmGlobalReplace::backedUp, &main_,
      guarded("mnuGlobalReplace_Click", "frmMain", [&main = main_] { BackupCommands::noteFullBackup(main); }));
  // Titles stand in the project file: it is saved as the texts are.
  QObject::connect(form, &frmGlobalReplace::bookChanged, &main_,
                   guarded("mnuGlobalReplace_Click", "frmMain", [&main = main_] {
                     main.ProjectChanged = true;
                     main.session().saveChange();
                   }));
  QObject::connect(form, &QDialog::finished, &main_, guarded("mnuGlobalReplace_Click", "frmMain", told));
}
