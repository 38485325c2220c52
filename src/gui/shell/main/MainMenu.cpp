#include "gui/shell/main/MainMenu.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr MenuEntry menu(const char* name, const char16_t* caption, const char* parent = "", unsigned flags = kPlain) {
  return {name, caption, parent, flags, "", u""};
}

constexpr MenuEntry entry(const char* name, const char16_t* caption, const char* parent, const char* shortcut = "") {
  return {name, caption, parent, kPlain, shortcut, u""};
}

constexpr MenuEntry flagged(const char* name, const char16_t* caption, const char* parent, unsigned flags) {
  return {name, caption, parent, flags, "", u""};
}

/// One of several that can be checked, with what it stands for.
constexpr MenuEntry choice(const char* name, const char16_t* caption, const char* parent, const char16_t* tag) {
  return {name, caption, parent, kCheckable, "", tag};
}

constexpr MenuEntry separator(const char* parent, const char* name = "") {
  return {name, u"", parent, kSeparator, "", u""};
}

// The tree itself, a menu of the bar each. Keys that a caption names are the window's own, see frmMain.

constexpr std::array kFileAndSearch{
    menu("mnuFile", u"File"),
    entry("mnuConfirmExit", u"Exit", "mnuFile", "Ctrl+Q"),

    menu("mnuSearch", u"Search"),
    entry("mnuFind", u"Find (Ctrl-F)", "mnuSearch"),
    entry("cmdFindNext", u"Find Next (F3)", "mnuSearch"),
    entry("mnuFindPrev", u"Find Previous (Shift-F3)", "mnuSearch"),
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
    entry("mnuLoadProj", u"Open", "mnuProject", "Ctrl+O"),
    menu("mnuOpenRecent", u"Recent", "mnuProject"),
    entry("mnuRecent(0)", u"None yet", "mnuOpenRecent"),
    separator("mnuProject"),
    entry("mnuSaveProj", u"Save", "mnuProject", "Ctrl+S"),
    flagged("mnuSaveAs", u"Save As...", "mnuProject", kHidden),
    entry("mnuCloseProject", u"Close", "mnuProject"),
    separator("mnuProject"),
    entry("mnuNewProj", u"Create Empty Project", "mnuProject"),
    entry("mnuProjectGen", u"New Project Wizard", "mnuProject"),
    separator("mnuProject"),
    entry("mnuImportQuillane2", u"Import Quillane2 Project", "mnuProject"),
    entry("mnuImportQuillane3", u"Import Quillane3 Project", "mnuProject"),
    entry("mnuImportProject", u"Import a work in progress", "mnuProject"),
    entry("mnuImportSceneFile", u"Import scenes from single file", "mnuProject"),
    flagged("mnuAppendProject", u"Append another project", "mnuProject", kDevelopment),
    separator("mnuProject"),
    menu("mnuPrint", u"Print", "mnuProject"),
    menu("mnuPrintWorkSched", u"Work Schedule", "mnuPrint"),
    entry("mnuPrintOnStatus(0)", u"Complete", "mnuPrintWorkSched"),
    entry("mnuPrintOnStatus(1)", u"Outline only", "mnuPrintWorkSched"),
    entry("mnuPrintOnStatus(2)", u"Draft only", "mnuPrintWorkSched"),
    entry("mnuPrintOnStatus(3)", u"1st Edit only", "mnuPrintWorkSched"),
    entry("mnuPrintOnStatus(4)", u"2nd Edit only", "mnuPrintWorkSched"),
    entry("mnuPrintSummary", u"Summary (Short scene descriptions)", "mnuPrint"),
    entry("mnuPrintSynopsis", u"Brief Synopsis (Long scene descriptions)", "mnuPrint"),
    entry("mnuExpandedSynopsis", u"Full Synopsis (Both descriptions)", "mnuPrint"),
    entry("mnuPrintProject", u"Whole project (Or selected chapters)", "mnuPrint"),
    menu("mnuExportProj", u"Export ...", "mnuProject"),
    entry("mnuExportHTML", u"to HTML", "mnuExportProj"),
    entry("mnuCombineFiles", u"to Text", "mnuExportProj"),
    entry("mnuExportToRTF", u"to RTF", "mnuExportProj"),
    entry("mnuExportNano", u"to Nanowrimo Obfusicated Text", "mnuExportProj"),
    entry("mnuExportOutline", u"Outline", "mnuExportProj"),
    entry("mnuSaveSynopsis", u"Synopsis", "mnuExportProj"),
    entry("mnuExportTimeline", u"Synopsis with HTML Timeline", "mnuExportProj"),
    entry("mnuExportDesc", u"Scene descriptions", "mnuExportProj"),
    flagged("mnuOutliner", u"Project Outliner", "mnuProject", kHidden),
    flagged("mnuScenesToWrite", u"Project Notes", "mnuProject", kHidden),
    separator("mnuProject"),
    entry("mnuSettings", u"Project Settings", "mnuProject"),
};

constexpr std::array kChapters{
    menu("mnuChapters", u"Chapter"),
    entry("mnuFileNew", u"Create new chapter", "mnuChapters"),
    entry("mnuCreateChapters", u"Create multiple chapters", "mnuChapters"),
    entry("mnuEditChapter", u"Edit selected chapter", "mnuChapters"),
    separator("mnuChapters"),
    entry("mnuMoveChapterUp", u"Move up (Alt-Up)", "mnuChapters"),
    entry("mnuMoveChapterDown", u"Move down (Alt-Down)", "mnuChapters"),
    separator("mnuChapters"),
    entry("mnuMarkEndBeginning", u"Mark as end of the beginning section", "mnuChapters"),
    entry("mnuMarkEndMiddle", u"Mark as end of the middle section", "mnuChapters"),
    separator("mnuChapters"),
    entry("mnuRenumber", u"Renumber chapters", "mnuChapters"),
    entry("mnuMarkChaptersUnused", u"Toggle Used/Unused", "mnuChapters"),
    entry("mnuRemoveChapter", u"Remove selected chapter(s)", "mnuChapters"),
    separator("mnuChapters"),
    entry("mnuPrintSelectedChapters", u"Print selected chapter(s)", "mnuChapters"),
};

constexpr std::array kScene{
    menu("mnuScene", u"Scene"),
    entry("mnuAddScene", u"Add scene", "mnuScene"),
    entry("mnuEditScene", u"Edit selected scene", "mnuScene"),
    entry("mnuAddMultiScenes", u"Create blank scenes", "mnuScene"),
    entry("mnuImportScene", u"Import scene(s) from TXT/RTF", "mnuScene"),
    flagged("mnuImportYSDat", u"Import scene(s) from ysdat files", "mnuScene", kHidden),
    flagged("mnuExportScene", u"Export selected scene(s) to ysdat files", "mnuScene", kHidden),
    separator("mnuScene", "mnuSepListView"),
    entry("mnuListView", u"Display scene list", "mnuScene"),
    separator("mnuScene"),
    menu("mnuMoveScene", u"Move", "mnuScene"),
    entry("mnuMoveSceneUp", u"Up (Alt-Up)", "mnuMoveScene"),
    entry("mnuMoveSceneDown", u"Down (Alt-Down)", "mnuMoveScene"),
    entry("mnuMoveSceneToPrevious", u"To the previous chapter (Alt-PgUp)", "mnuMoveScene"),
    entry("mnuMoveSceneToNext", u"To the next chapter (Alt-PgDn)", "mnuMoveScene"),
    menu("mnuStatusMain", u"Set Status", "mnuScene"),
    choice("mnuStatus(0)", u"Outline", "mnuStatusMain", u"1"),
    flagged("mnuAddNoteToScene", u"Add Note", "mnuScene", kHidden),
    flagged("mnuExternalEditRTF", u"Open with external editor", "mnuScene", kDevelopment),
    entry("mnuSetAllSceneFont", u"Set font across all scenes", "mnuScene"),
    flagged("mnuConvQN2Scn", u"Convert Quillane2 Scene", "mnuScene", kDevelopment),
    separator("mnuScene"),
    entry("mnuPrintScene", u"Print selected scene(s)", "mnuScene"),
    entry("mnuPrintSceneCards", u"Print scene cards", "mnuScene"),
    separator("mnuScene"),
    entry("mnuMarkScenesUnused", u"Toggle Used/Unused", "mnuScene"),
    entry("mnuRemoveScene", u"Remove selected scene(s)", "mnuScene"),
    flagged("mnuDeleteScene", u"Remove and DELETE selected scene(s)", "mnuScene", kHidden),
};

constexpr std::array kCastAndWorld{
    menu("mnuChar", u"Characters"),
    entry("mnuEditChar", u"View/Edit", "mnuChar"),
    entry("mnuAddCharToScene", u"Add to current scene", "mnuChar"),
    separator("mnuChar"),
    entry("mnuScenesPerCharacter", u"Show scenes per character", "mnuChar"),
    entry("mnuWordsPerCharacter", u"Show word count per character", "mnuChar"),
    separator("mnuChar"),
    entry("mnuPrintChar", u"Print List", "mnuChar"),

    menu("mnuLocations", u"Locations"),
    entry("mnuAddLocation", u"View/Edit", "mnuLocations"),
    entry("mnuAddLocToCurrentScene", u"Add location to current scene", "mnuLocations"),
    flagged("mnuRemoveLocation", u"Remove location", "mnuLocations", kHidden),
    separator("mnuLocations"),
    entry("mnuPrintLocationList", u"Print List", "mnuLocations"),

    menu("mnuItems", u"Items"),
    entry("mnuAddItem", u"View/Edit", "mnuItems"),
    entry("mnuAddItemToCurrentScene", u"Add item to current scene", "mnuItems"),
    flagged("mnuRemoveItem", u"Remove item", "mnuItems", kHidden),
    separator("mnuItems"),
    entry("mnuPrintItemList", u"Print List", "mnuItems"),
};

constexpr std::array kTools{
    menu("mnuWindow", u"Tools"),
    entry("mnuStoryboard", u"Storyboard", "mnuWindow"),
    flagged("mnuTimeline", u"Timeline", "mnuWindow", kDevelopment),
    entry("mnuChart", u"Scene Ratings Chart", "mnuWindow"),
    entry("mnuWordTarget", u"Daily Word Count Target", "mnuWindow"),
    separator("mnuWindow"),
    menu("mnuBackupMenu", u"Backups", "mnuWindow"),
    entry("mnuBackupProject", u"Backup Entire Project", "mnuBackupMenu"),
    entry("mnuVerifyBackup", u"Verify Backup", "mnuBackupMenu"),
    entry("mnuSaveToSingleFile", u"Save project content to single file", "mnuBackupMenu"),
    entry("mnuSetupAutobackup", u"Set Autobackup options", "mnuBackupMenu"),
    entry("mnuAutobackups", u"View Autobackups", "mnuBackupMenu"),
    menu("mnuDebugMenu", u"Debug", "mnuWindow"),
    entry("mnuCreateDebug", u"Create Debug File", "mnuDebugMenu"),
    entry("mnuViewLog", u"View Log", "mnuDebugMenu"),
    flagged("mnuShowDebug", u"Show Debug Window", "mnuDebugMenu", kDevelopment),
    flagged("mnuUpdateLanguages", u"Update language files", "mnuDebugMenu", kDevelopment),
    separator("mnuWindow"),
    menu("mnuFontmnu", u"Select User Interface Font", "mnuWindow"),
    choice("mnuFont(0)", u"Arial", "mnuFontmnu", u"Arial"),
    choice("mnuFont(1)", u"Arial Unicode MS", "mnuFontmnu", u"Arial Unicode MS"),
    choice("mnuFont(2)", u"MS Sans Serif", "mnuFontmnu", u"MS Sans Serif"),
    choice("mnuFont(3)", u"Tahoma", "mnuFontmnu", u"Tahoma"),
    choice("mnuFont(4)", u"Trebuchet MS", "mnuFontmnu", u"Trebuchet MS"),
    choice("mnuFont(5)", u"Verdana", "mnuFontmnu", u"Verdana"),
    entry("mnuWordUsageCount", u"Show Word Usage Count", "mnuWindow"),
    entry("mnuLostAndFound", u"Lost and Found", "mnuWindow"),
};

constexpr std::array kLanguageAndHelp{
    menu("mnuChooseLang", u"Language"),
    choice("mnuLanguage(0)", u"English", "mnuChooseLang", u"English"),

    menu("mnuHelp", u"Help"),
    entry("mnuAbout", u"About Quillane", "mnuHelp"),
    entry("mnuManual", u"Contents", "mnuHelp", "F1"),
    separator("mnuHelp"),
    entry("mnuCheckVersion", u"Check for new version", "mnuHelp"),
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

bool isOffered(const MenuEntry& entry, bool developmentBuild) {
  return (entry.flags & (kHidden | kPopupOnly)) == 0 && ((entry.flags & kDevelopment) == 0 || developmentBuild);
}

QString commandName(const QString& caption) {
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
  return stateOf({"mnuEditChapter", "mnuMoveChapterUp", "mnuMoveChapterDown", "mnuRenumber", "mnuMarkChaptersUnused",
                  "mnuRemoveChapter", "mnuPrintSelectedChapters"},
                 anyRows);
}

MenuState charEntries(bool anySelected, bool isViewpoint) {
  MenuState state = stateOf({"mnuRemoveCharFromScene", "mnuEditSelectedChar"}, anySelected);
  state.insert(u"mnuSetVP"_s, anySelected && !isViewpoint);
  return state;
}

MenuState sceneEntries(bool anyRows) {
  return stateOf(
      {"mnuMarkScenesUnused", "mnuPrintScene", "mnuEditScene", "mnuMoveScene", "mnuStatusMain", "mnuRemoveScene",
       "mnuDeleteScene", "mnuPrintSceneCards", "mnuListView", "mnuExternalEditRTF", "mnuConvQN2Scn"},
      anyRows);
}
