#include "gui/shell/main/MainMenu.h"

#include "gui/shell/commands/ProjectCommands.h"
#include "gui/shell/commands/ToolCommands.h"
#include "gui/shell/main/frmMain.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr MenuHandler kNone = nullptr;

constexpr MenuEntry menu(const char* name, const char16_t* caption, const char* parent = "", unsigned flags = kPlain) {
  return {name, caption, parent, flags, kNone, "", u""};
}

constexpr MenuEntry entry(const char* name, const char16_t* caption, const char* parent, MenuHandler handler = kNone,
                          const char* shortcut = "") {
  return {name, caption, parent, kPlain, handler, shortcut, u""};
}

/// A command that isn't built yet and whose caption alone doesn't name it.
constexpr MenuEntry titled(const char* name, const char16_t* caption, const char* parent, const char16_t* title) {
  return {name, caption, parent, kPlain, kNone, "", title};
}

constexpr MenuEntry flagged(const char* name, const char16_t* caption, const char* parent, unsigned flags,
                            MenuHandler handler = kNone) {
  return {name, caption, parent, flags, handler, "", u""};
}

constexpr MenuEntry separator(const char* parent, const char* name = "") {
  return {name, u"", parent, kSeparator, kNone, "", u""};
}

// The tree itself, a menu of the bar each. Keys that a caption names are the window's own, see frmMain.

constexpr std::array kFileAndSearch{
    menu("mnuFile", u"File"),
    entry(
        "mnuConfirmExit", u"Exit", "mnuFile", [](frmMain& m, const MenuChoice&) { m.mnuConfirmExit_Click(); },
        "Ctrl+Q"),

    menu("mnuSearch", u"Search"),
    titled("mnuFind", u"Find (Ctrl-F)", "mnuSearch", u"Find"),
    titled("cmdFindNext", u"Find Next (F3)", "mnuSearch", u"Find Next"),
    titled("mnuFindPrev", u"Find Previous (Shift-F3)", "mnuSearch", u"Find Previous"),
    separator("mnuSearch"),
    entry("mnuGlobalReplace", u"Global Search and Replace", "mnuSearch"),
    separator("mnuSearch"),
    menu("mnuNull", u"Find 'Problem Words'", "mnuSearch"),
    menu("mnuPredefined", u"Predefined", "mnuNull"),
    entry("mnuFindAs", u"Find \". As \"", "mnuPredefined"),
    entry("mnuFindLy", u"Find \"ly \"", "mnuPredefined"),
    entry("mnuFindIng", u"Find \"ing \"", "mnuPredefined"),
    entry("mnuFindThen", u"Find \" then \"", "mnuPredefined"),
    entry("mnuFindTurned", u"Find \" turned\"", "mnuPredefined"),
    entry("mnuFindGlanced", u"Find \" glanced\"", "mnuPredefined"),
    entry("mnuFindMuttered", u"Find \" muttered\"", "mnuPredefined"),
    entry("mnuFindSuddenly", u"Find \"Suddenly\"", "mnuPredefined"),
    entry("mnuFindLooked", u"Find \"looked\"", "mnuPredefined"),
    menu("mnuUD", u"User defined", "mnuNull"),
    entry("mnuUDW(0)", u"Define your problem words", "mnuUD"),
    entry("UseF3ToFindNext", u"Use F3 to find next", "mnuNull"),
};

constexpr std::array kProject{
    menu("mnuProject", u"Project"),
    entry(
        "mnuLoadProj", u"Open", "mnuProject", [](frmMain& m, const MenuChoice&) { m.project().mnuLoadProj_Click(); },
        "Ctrl+O"),
    menu("mnuOpenRecent", u"Recent", "mnuProject"),
    entry("mnuRecent(0)", u"None yet", "mnuOpenRecent",
          [](frmMain& m, const MenuChoice& chosen) { m.project().mnuRecent_Click(chosen.tag.toString()); }),
    separator("mnuProject"),
    entry(
        "mnuSaveProj", u"Save", "mnuProject", [](frmMain& m, const MenuChoice&) { m.project().mnuSaveProj_Click(); },
        "Ctrl+S"),
    flagged("mnuSaveAs", u"Save As...", "mnuProject", kHidden,
            [](frmMain& m, const MenuChoice&) { m.project().mnuSaveAs_Click(); }),
    entry("mnuCloseProject", u"Close", "mnuProject",
          [](frmMain& m, const MenuChoice&) { m.project().mnuCloseProject_Click(); }),
    separator("mnuProject"),
    entry("mnuNewProj", u"Create Empty Project", "mnuProject",
          [](frmMain& m, const MenuChoice&) { m.project().mnuNewProj_Click(); }),
    entry("mnuProjectGen", u"New Project Wizard", "mnuProject"),
    separator("mnuProject"),
    entry("mnuImportQuillane2", u"Import Quillane2 Project", "mnuProject"),
    entry("mnuImportQuillane3", u"Import Quillane3 Project", "mnuProject"),
    entry("mnuImportProject", u"Import a work in progress", "mnuProject"),
    entry("mnuImportSceneFile", u"Import scenes from single file", "mnuProject"),
    flagged("mnuAppendProject", u"Append another project", "mnuProject", kHidden | kDevelopment,
            [](frmMain& m, const MenuChoice&) { m.project().mnuAppendProject_Click(); }),
    separator("mnuProject"),
    menu("mnuPrint", u"Print", "mnuProject"),
    menu("mnuPrintWorkSched", u"Work Schedule", "mnuPrint"),
    titled("mnuPrintOnStatus(0)", u"Complete", "mnuPrintWorkSched", u"The work schedule"),
    titled("mnuPrintOnStatus(1)", u"Outline only", "mnuPrintWorkSched", u"The work schedule"),
    titled("mnuPrintOnStatus(2)", u"Draft only", "mnuPrintWorkSched", u"The work schedule"),
    titled("mnuPrintOnStatus(3)", u"1st Edit only", "mnuPrintWorkSched", u"The work schedule"),
    titled("mnuPrintOnStatus(4)", u"2nd Edit only", "mnuPrintWorkSched", u"The work schedule"),
    titled("mnuPrintSummary", u"Summary (Short scene descriptions)", "mnuPrint", u"Printing the summary"),
    titled("mnuPrintSynopsis", u"Brief Synopsis (Long scene descriptions)", "mnuPrint", u"Printing the brief synopsis"),
    titled("mnuExpandedSynopsis", u"Full Synopsis (Both descriptions)", "mnuPrint", u"Printing the full synopsis"),
    titled("mnuPrintProject", u"Whole project (Or selected chapters)", "mnuPrint", u"Printing the project"),
    menu("mnuExportProj", u"Export ...", "mnuProject"),
    titled("mnuExportHTML", u"to HTML", "mnuExportProj", u"Export to HTML"),
    titled("mnuCombineFiles", u"to Text", "mnuExportProj", u"Export to text"),
    titled("mnuExportToRTF", u"to RTF", "mnuExportProj", u"Export to RTF"),
    titled("mnuExportNano", u"to Nanowrimo Obfusicated Text", "mnuExportProj", u"Export to obfuscated text"),
    titled("mnuExportOutline", u"Outline", "mnuExportProj", u"Export of the outline"),
    titled("mnuSaveSynopsis", u"Synopsis", "mnuExportProj", u"Export of the synopsis"),
    titled("mnuExportTimeline", u"Synopsis with HTML Timeline", "mnuExportProj", u"Export of the timeline"),
    titled("mnuExportDesc", u"Scene descriptions", "mnuExportProj", u"Export of the scene descriptions"),
    flagged("mnuOutliner", u"Project Outliner", "mnuProject", kHidden),
    flagged("mnuScenesToWrite", u"Project Notes", "mnuProject", kHidden),
    separator("mnuProject"),
    entry("mnuSettings", u"Project Settings", "mnuProject"),
};

constexpr std::array kChapters{
    menu("mnuChapters", u"Chapter"),
    entry("mnuFileNew", u"Create new chapter", "mnuChapters"),
    entry("mnuCreateChapters", u"Create multiple chapters", "mnuChapters"),
    entry("mnuEditChapter", u"Edit selected chapter", "mnuChapters",
          [](frmMain& m, const MenuChoice&) { m.EditSelectedChapter(); }),
    separator("mnuChapters"),
    titled("mnuMarkEndBeginning", u"Mark as end of the beginning section", "mnuChapters", u"Marking the sections"),
    titled("mnuMarkEndMiddle", u"Mark as end of the middle section", "mnuChapters", u"Marking the sections"),
    separator("mnuChapters"),
    titled("mnuRenumber", u"Renumber chapters", "mnuChapters", u"Renumbering chapters"),
    titled("mnuMarkChaptersUnused", u"Toggle Used/Unused", "mnuChapters", u"Setting chapters aside"),
    titled("mnuRemoveChapter", u"Remove selected chapter(s)", "mnuChapters", u"Removing chapters"),
    separator("mnuChapters"),
    titled("mnuPrintSelectedChapters", u"Print selected chapter(s)", "mnuChapters", u"Printing chapters"),
};

constexpr std::array kScene{
    menu("mnuScene", u"Scene"),
    entry("mnuAddScene", u"Add scene", "mnuScene"),
    entry("mnuEditScene", u"Edit selected scene", "mnuScene",
          [](frmMain& m, const MenuChoice&) { m.EditSelectedScene(); }),
    entry("mnuAddMultiScenes", u"Create blank scenes", "mnuScene"),
    titled("mnuImportScene", u"Import scene(s) from TXT/RTF", "mnuScene", u"Importing scenes"),
    flagged("mnuImportYSDat", u"Import scene(s) from ysdat files", "mnuScene", kHidden),
    flagged("mnuExportScene", u"Export selected scene(s) to ysdat files", "mnuScene", kHidden),
    separator("mnuScene", "mnuSepListView"),
    titled("mnuListView", u"Display scene list", "mnuScene", u"The scene list window"),
    separator("mnuScene"),
    menu("mnuStatusMain", u"Set Status", "mnuScene"),
    titled("mnuStatus(0)", u"Outline", "mnuStatusMain", u"Setting the status from here"),
    flagged("mnuAddNoteToScene", u"Add Note", "mnuScene", kHidden),
    flagged("mnuExternalEditRTF", u"Open with external editor", "mnuScene", kHidden | kDevelopment),
    titled("mnuSetAllSceneFont", u"Set font across all scenes", "mnuScene", u"Setting the font across all scenes"),
    flagged("mnuConvQN2Scn", u"Convert Quillane2 Scene", "mnuScene", kHidden | kDevelopment),
    separator("mnuScene"),
    titled("mnuPrintScene", u"Print selected scene(s)", "mnuScene", u"Printing scenes"),
    titled("mnuPrintSceneCards", u"Print scene cards", "mnuScene", u"Printing scene cards"),
    separator("mnuScene"),
    titled("mnuMarkScenesUnused", u"Toggle Used/Unused", "mnuScene", u"Setting scenes aside"),
    titled("mnuRemoveScene", u"Remove selected scene(s)", "mnuScene", u"Removing scenes"),
    flagged("mnuDeleteScene", u"Remove and DELETE selected scene(s)", "mnuScene", kHidden),
};

constexpr std::array kCastAndWorld{
    menu("mnuChar", u"Characters"),
    titled("mnuEditChar", u"View/Edit", "mnuChar", u"Viewing and editing characters"),
    titled("mnuAddCharToScene", u"Add to current scene", "mnuChar", u"Adding characters to a scene"),
    separator("mnuChar"),
    titled("mnuScenesPerCharacter", u"Show scenes per character", "mnuChar", u"Counting scenes per character"),
    titled("mnuWordsPerCharacter", u"Show word count per character", "mnuChar", u"Counting words per character"),
    separator("mnuChar"),
    titled("mnuPrintChar", u"Print List", "mnuChar", u"Printing the characters"),

    menu("mnuLocations", u"Locations"),
    titled("mnuAddLocation", u"View/Edit", "mnuLocations", u"Viewing and editing locations"),
    titled("mnuAddLocToCurrentScene", u"Add location to current scene", "mnuLocations", u"Adding locations to a scene"),
    flagged("mnuRemoveLocation", u"Remove location", "mnuLocations", kHidden),
    separator("mnuLocations"),
    titled("mnuPrintLocationList", u"Print List", "mnuLocations", u"Printing the locations"),

    menu("mnuItems", u"Items"),
    titled("mnuAddItem", u"View/Edit", "mnuItems", u"Viewing and editing items"),
    titled("mnuAddItemToCurrentScene", u"Add item to current scene", "mnuItems", u"Adding items to a scene"),
    flagged("mnuRemoveItem", u"Remove item", "mnuItems", kHidden),
    separator("mnuItems"),
    titled("mnuPrintItemList", u"Print List", "mnuItems", u"Printing the items"),
};

constexpr std::array kTools{
    menu("mnuWindow", u"Tools"),
    titled("mnuStoryboard", u"Storyboard", "mnuWindow", u"Storyboard"),
    flagged("mnuTimeline", u"Timeline", "mnuWindow", kHidden | kDevelopment),
    titled("mnuChart", u"Scene Ratings Chart", "mnuWindow", u"Scene Ratings Chart"),
    titled("mnuWordTarget", u"Daily Word Count Target", "mnuWindow", u"Daily Word Count Target"),
    separator("mnuWindow"),
    menu("mnuBackupMenu", u"Backups", "mnuWindow"),
    titled("mnuBackupProject", u"Backup Entire Project", "mnuBackupMenu", u"Backing up the entire project"),
    entry("mnuSaveToSingleFile", u"Save project content to single file", "mnuBackupMenu",
          [](frmMain& m, const MenuChoice&) { m.project().mnuSaveToSingleFile_Click(); }),
    titled("mnuSetupAutobackup", u"Set Autobackup options", "mnuBackupMenu", u"Setting autobackup options"),
    titled("mnuAutobackups", u"View Autobackups", "mnuBackupMenu", u"Viewing autobackups"),
    menu("mnuDebugMenu", u"Debug", "mnuWindow"),
    titled("mnuCreateDebug", u"Create Debug File", "mnuDebugMenu", u"Creating a debug file"),
    entry("mnuViewLog", u"View Log", "mnuDebugMenu",
          [](frmMain& m, const MenuChoice&) { m.tools().mnuViewLog_Click(); }),
    flagged("mnuShowDebug", u"Show Debug Window", "mnuDebugMenu", kHidden | kDevelopment),
    separator("mnuWindow"),
    menu("mnuFontmnu", u"Select User Interface Font", "mnuWindow"),
    flagged("mnuFont(0)", u"Arial", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    flagged("mnuFont(1)", u"Arial Unicode MS", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    flagged("mnuFont(2)", u"MS Sans Serif", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    flagged("mnuFont(3)", u"Tahoma", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    flagged("mnuFont(4)", u"Trebuchet MS", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    flagged("mnuFont(5)", u"Verdana", "mnuFontmnu", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuFont_Click(chosen.caption); }),
    entry("mnuWordUsageCount", u"Show Word Usage Count", "mnuWindow",
          [](frmMain& m, const MenuChoice&) { m.statistics().mnuWordUsageCount_Click(); }),
};

constexpr std::array kLanguageAndHelp{
    menu("mnuChooseLang", u"Language"),
    flagged("mnuLanguage(0)", u"English", "mnuChooseLang", kCheckable,
            [](frmMain& m, const MenuChoice& chosen) { m.tools().mnuLanguage_Click(chosen.index); }),

    menu("mnuHelp", u"Help"),
    entry("mnuAbout", u"About Quillane", "mnuHelp", [](frmMain& m, const MenuChoice&) { m.tools().mnuAbout_Click(); }),
    entry(
        "mnuManual", u"Contents", "mnuHelp", [](frmMain& m, const MenuChoice&) { m.tools().mnuManual_Click(); }, "F1"),
    separator("mnuHelp"),
    entry("mnuCheckVersion", u"Check for new version", "mnuHelp",
          [](frmMain& m, const MenuChoice&) { m.tools().mnuCheckVersion_Click(); }),
    flagged("mnuDisableVersionCheck", u"Disable automatic 'new version check'", "mnuHelp", kHidden),
};

constexpr std::array kPopups{
    menu("mnuCharRC", u"CharRC", "", kPopupOnly),
    entry("mnuAddChar", u"Add character(s)", "mnuCharRC"),
    entry("mnuEditSelectedChar", u"Edit selected", "mnuCharRC"),
    entry("mnuRemoveCharFromScene", u"Remove selected", "mnuCharRC"),
    entry("mnuSetVP", u"Set as viewpoint", "mnuCharRC"),

    menu("mnuAllCharRC", u"AllCharRC", "", kPopupOnly),
    entry("mnuAddCharToAll", u"Add to all selected scenes", "mnuAllCharRC"),
    entry("mnuRemoveCharFromAll", u"Remove from all selected scenes", "mnuAllCharRC"),
};

template <class... Parts>
std::vector<MenuEntry> joined(const Parts&... parts) {
  std::vector<MenuEntry> table;
  table.reserve((parts.size() + ...));
  const auto append = [&table](const auto& part) {
    for (const MenuEntry& line : part) {
      table.push_back(line);
    }
  };
  (append(parts), ...);
  return table;
}

MenuState stateOf(std::initializer_list<const char*> names, bool enabled) {
  MenuState state;
  for (const char* name : names) {
    state.insert(QString::fromLatin1(name), enabled);
  }
  return state;
}

MenuState everyEntry(bool enabled) {
  MenuState state;
  for (const MenuEntry& line : mainMenuTable()) {
    state.insert(menuBaseName(QString::fromLatin1(line.name)), enabled);
  }
  return state;
}

}  // namespace

const std::vector<MenuEntry>& mainMenuTable() {
  static const std::vector<MenuEntry> table =
      joined(kFileAndSearch, kProject, kChapters, kScene, kCastAndWorld, kTools, kLanguageAndHelp, kPopups);
  return table;
}

QString commandName(const MenuEntry& entry) {
  if (*entry.title != u'\0') {
    return QString::fromUtf16(entry.title);
  }
  const QString caption = QString::fromUtf16(entry.caption);
  return caption.section(u'(', 0, 0).section(u"..."_s, 0, 0).trimmed();
}

QString menuBaseName(const QString& name) {
  const qsizetype index = name.indexOf(u'(');
  return index < 0 ? name : name.left(index);
}

MenuState menusBeforeStart() {
  MenuState state = everyEntry(false);
  state.insert(stateOf({"mnuFile", "mnuConfirmExit"}, true));
  return state;
}

MenuState menusWithoutProject() {
  MenuState state = everyEntry(false);
  state.insert(stateOf({"mnuProject", "mnuHelp", "mnuConfirmExit", "mnuCheckVersion", "mnuLoadProj", "mnuProjectGen",
                        "mnuNewProj", "mnuManual", "mnuAbout", "mnuFile", "mnuImportQuillane2", "mnuImportQuillane3",
                        "mnuOpenRecent", "mnuRecent", "mnuChooseLang", "mnuLanguage", "mnuWindow"},
                       true));
  return state;
}

MenuState menusWithProject() {
  MenuState state = everyEntry(true);
  state.insert(u"UseF3ToFindNext"_s, false);
  return state;
}

MenuState menusForEditing(bool editing) {
  MenuState state = stateOf({"mnuFile", "mnuProject", "mnuGlobalReplace", "mnuRemoveChapter"}, !editing);
  if (!editing) {
    state.insert(u"mnuWindow"_s, true);
  }
  return state;
}

MenuState chapterEntries(bool anyRows) {
  return stateOf(
      {"mnuEditChapter", "mnuRenumber", "mnuMarkChaptersUnused", "mnuRemoveChapter", "mnuPrintSelectedChapters"},
      anyRows);
}

MenuState sceneEntries(bool anyRows) {
  return stateOf({"mnuMarkScenesUnused", "mnuPrintScene", "mnuEditScene", "mnuStatusMain", "mnuRemoveScene",
                  "mnuDeleteScene", "mnuPrintSceneCards", "mnuListView", "mnuExternalEditRTF", "mnuConvQN2Scn"},
                 anyRows);
}
