#include "gui/shell/commands/ToolCommands.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Guard.h"
#include "core/infra/HelpFile.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/DebugFile.h"
#include "gui/shell/commands/SearchCommands.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/InterfaceFont.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/UpdateCheck.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmAbout.h"
#include "gui/shell/windows/frmLostAndFound.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/fSHAREDLogViewer.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

void tellOf(const DebugFile& debug, const QString& cause, bool zipped) {
  if (!cause.isEmpty()) {
    toolkit().MsgBox(
        translated(u"The debug file %1 could not be made. Your project is as it was."_s).arg(debug.file()) + u"\n\n"_s +
        translated(cause));
  } else if (zipped) {
    toolkit().MsgBox(
        translated(u"Your debug info has been stored in %1\n Note - all descriptions and notes have been removed from "
                   "the debug file, and no scene content has been included."_s)
            .arg(debug.archive()) +
        (debug.missing().isEmpty()
             ? QString()
             : u"\n\n"_s + translated(u"These could not be packed: %1"_s).arg(debug.missing().join(u", "_s))));
  } else {
    toolkit().MsgBox(translated(u"Unable to zip the debug file. However, you can still zip and send %1 manually."_s)
                         .arg(debug.file()));
  }
}

}  // namespace

void ToolCommands::bind(MenuBindings& menu) {
  // The folder of the languages is looked at when somebody wants to choose one.
  QMenu* const languages = main_.menus().menu(u"mnuChooseLang"_s);
  QObject::connect(languages, &QMenu::aboutToShow, &main_,
                   guarded("mnuChooseLang_Click", "frmMain", [&main = main_, languages] {
                     fillLanguageMenu(main);
                     // Keys were given before those entries were there.
                     assignMnemonics(languages->actions());
                   }));
  menu.bind("mnuCreateDebug", [this] { mnuCreateDebug_Click(); });
  menu.bind("mnuViewLog", [this] { mnuViewLog_Click(); });
  menu.bind("mnuLostAndFound", [this] { mnuLostAndFound_Click(); });
  menu.bind("mnuFont", [this](const MenuChoice& chosen) { mnuFont_Click(chosen.tag.toString()); });
  menu.bind("mnuLanguage", [this](const MenuChoice& chosen) { mnuLanguage_Click(chosen.tag.toString()); });
  menu.bind("mnuUpdateLanguages", [this] { mnuUpdateLanguages_Click(); });
  menu.bind("mnuAbout", [this] { mnuAbout_Click(); });
  menu.bind("mnuCheckVersion", [this] { mnuCheckVersion_Click(); });
  menu.bind("mnuManual", [this] { mnuManual_Click(); });
}

void ToolCommands::mnuCreateDebug_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (main_.ProjectChanged) {
    main_.SaveProject(false);
  }
  if (g_Project->FileWithPath.isEmpty()) {
    return;
  }
  Logging().LogEvent(u"Creating debug file"_s);
  DebugFile debug(*g_Project);
  QString cause;
  bool zipped = false;
  {
    const BusyPointer pointer;
    cause = Guard("mnuCreateDebug_Click", "frmMain").causeOf([&] { debug.write(); });
    zipped = cause.isEmpty() && debug.zip();
  }
  tellOf(debug, cause, zipped);
}

void ToolCommands::mnuViewLog_Click() {
  fSHAREDLogViewer::open(&main_);
}

void ToolCommands::mnuLostAndFound_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const frmLostAndFound* const form = frmLostAndFound::showOver(main_, main_.panes().chapters().SelectedChapterID());
  QObject::connect(form, &frmLostAndFound::bookChanged, &main_,
                   guarded("mnuLostAndFound_Click", "frmMain", [&main = main_] {
                     main.ProjectChanged = true;
                     main.RefreshAll();
                   }));
}

void ToolCommands::mnuFont_Click(const QString& family) {
  Settings().sSet(u"FormFont"_s, family);
  if (!useFormFont(main_, family)) {
    main_.showMessage(translated(u"The font %1 isn't installed on this computer."_s).arg(family));
  }
}

void ToolCommands::mnuLanguage_Click(const QString& language) {
  if (language == Lang().CurrentLanguage()) {
    return;
  }
  if (!useLanguage(main_, language)) {
    main_.showMessage(translated(u"The language %1 could not be read."_s).arg(language));
    return;
  }
  Settings().sSet(kLanguageSetting, language);
  SearchCommands::fillProblemWords(main_.menus());
}

void ToolCommands::mnuUpdateLanguages_Click() {
  main_.showMessage(updateLanguageFiles() ? shownText(u"The language files were updated"_s)
                                          : shownText(u"The texts of the windows could not be written"_s));
}

void ToolCommands::mnuAbout_Click() {
  frmAbout::showOver(main_);
}

// It may end in an installer that wants the program closed: what is open is brought to the disk first.
void ToolCommands::mnuCheckVersion_Click() {
  if (main_.Editing()) {
    toolkit().MsgBox(u"Please close all editor windows first"_s);
    return;
  }
  if (g_Project->IsBusy()) {
    return;
  }
  if (main_.ProjectChanged) {
    main_.SaveProject(false);
  }
  main_.stopUpdateCheck();
  checkForUpdate(main_, false);
}

void ToolCommands::mnuManual_Click() {
  if (!HelpFile::open()) {
    main_.showMessage(translated(u"The help %1 could not be opened."_s).arg(HelpFile::address()));
  }
}
