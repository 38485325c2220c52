#include "gui/shell/life/StartUp.h"

#include "core/infra/Clock.h"
#include "core/infra/HelpFile.h"
#include "core/infra/HelperLibrary.h"
#include "core/infra/Maker.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/spell/cSharedSpell.h"
#include "gui/shell/commands/Commands.h"
#include "gui/shell/commands/SearchCommands.h"
#include "gui/shell/life/FileAssociation.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/InterfaceFont.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/PaneLayout.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/shell/main/UpdateCheck.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmSplash.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// A full backup that is older than this many days is due.
constexpr int kBackupDays = 7;

constexpr int kDefaultFontSize = 10;
constexpr double kDefaultChapterSplit = 0.25;
constexpr double kDefaultDescriptionSplit = 0.8;

bool truth(const QVariant& value) {
  return Numbers::ToInt(value) != 0;
}

/// A part of a whole; one that isn't between its ends gives the default.
double fractionSetting(const QString& key, double byDefault) {
  const double stored = Numbers::ToNumber(Settings().sGet(key, byDefault)).value_or(byDefault);
  return stored > 0 && stored < 1 ? stored : byDefault;
}

/// The file that a command line means: as it stands when there is such a file, for quotes and the other slash are
/// letters of a name on some systems; else without its quotes, and with both slashes parting it.
QString pathOf(const QString& commandLine) {
  const QString unquoted = QString(commandLine).remove(u'"');
  for (const QString& path : {commandLine, unquoted}) {
    if (QFileInfo::exists(path)) {
      return path;
    }
  }
  return QString(unquoted).replace(u'\\', Paths::separator());
}

}  // namespace

void frmMain::Form_Load() {
  const auto told = [](int number, const QString& why) {
    return toldText(u"Error %1 in %2 - %3"_s, {QString::number(number), u"Form_Load"_s, why});
  };
  QString failure;
  try {
    ::addCommands(*this);
    StartUp(*this).run();
    return;
  } catch (const RuntimeError& error) {
    failure = told(error.number(), error.description());
  } catch (const std::exception& error) {
    failure = told(RuntimeError::Internal, QString::fromLocal8Bit(error.what()));
  }
  ShowFatalAndExit(failure);
}

StartUp::StartUp(frmMain& main) : main_(main) {}

StartUp::~StartUp() = default;

void StartUp::run() {
  main_.stopUpdateCheck();
  if (!helperLibrariesExist()) {
    return;
  }
  setGlobals();
  registerFileAssociation(u".QN4"_s, Paths::native(QCoreApplication::applicationFilePath()), u"Quillane4"_s);
  showSplash();
  fillStatusMenu();
  greetFirstRun();
  readSettings();
  readFonts();
  showStatusBar();
  g_Project = std::make_unique<clsProject>();
  restoreLayout();
  lookForDictionaries();
  openProject();
  g_Project->FileWithPath.isEmpty() ? main_.DisableMenus() : main_.EnableMenus();
  finish();
}

bool StartUp::helperLibrariesExist() const {
  for (const char* library : kHelperLibraries) {
    const QString name = QString::fromLatin1(library);
    if (!Files().FileExists(Paths::helperLibrary(name))) {
      toolkit().MsgBox(
          translated(
              u"Essential file %1 missing.  Please download and install the complete Quillane4 package from %2"_s)
              .arg(name, QString::fromLatin1(Maker::kWebAddress)));
      return false;
    }
  }
  return true;
}

void StartUp::setGlobals() const {
  g_SettingsFile = Paths::settingsFile();
  initChangeTables();
  g_RatingNames = usualRatingNames();
  g_StatusNames = usualStatusNames();
}

void StartUp::showSplash() {
  splash_ = std::make_unique<frmSplash>();
  splash_->show();
  beginLog();
  splashStatus(shownText(u"Starting Application"_s));
  splashStatus(shownText(u"Setting Up"_s));
}

// A copy that runs already goes on writing its log: a further one has a file of its own, and can't tell how the last
// run ended.
void StartUp::beginLog() {
  if (main_.AnotherCopyRuns) {
    Logging().OverrideLogFilename(Paths::programFolder() + u"log_copy.txt"_s);
  }
  endedBadly_ = !Logging().KeepLastLog() && !main_.AnotherCopyRuns;
  Logging().LogEvent(u"Starting Application"_s, true);
  if (endedBadly_) {
    Logging().LogEvent(u"The last run did not end properly"_s);
  }
}

void StartUp::splashStatus(const QString& text) const {
  splash_->setStatus(translated(text));
  toolkit().DoEvents();
}

void StartUp::fillStatusMenu() const {
  QList<MenuElement> elements;
  for (qsizetype i = 2; i < g_StatusNames.size(); ++i) {
    elements.append({g_StatusNames.at(i), QString::number(i), {}, true});
  }
  main_.menus().setCaption(u"mnuStatus(0)"_s, g_StatusNames.value(1));
  main_.menus().loadElements(u"mnuStatus"_s, elements);
}

void StartUp::greetFirstRun() const {
  if (!Files().FileExists(g_SettingsFile)) {
    toolkit().MsgBox(
        u"You seem to be running Quillane for the first time.\nQuillane now has a 'Project Wizard' to help you get "
        "started:\nJust click the Project menu, followed by 'New Project Wizard'"_s);
  }
}

void StartUp::readSettings() {
  Settings().LoadSettings(g_SettingsFile);
  main_.settingsLoaded_ = true;
  g_DebugMode = truth(Settings().sGet(u"DebugMode"_s, false));
  main_.menus().setVisible(u"mnuManual"_s, HelpFile::isInstalled());
  offerUpdateCheck(main_);
  const QString font = Settings().sGet(u"FormFont"_s).toString().trimmed();
  if (font.isEmpty() || !useFormFont(main_, font)) {
    useFormFont(main_, kSystemFormFont);
  }
  // A language may want a font of its own.
  lostLanguage_ = useStoredLanguage(main_);
  SearchCommands::fillProblemWords(main_.menus());
}

void StartUp::readFonts() const {
  g_DblSpaced = truth(Settings().sGet(u"DblSpaced"_s, false));
  g_12Spaced = truth(Settings().sGet(u"12Spaced"_s, false));
  const QVariant size = Settings().sGet(u"FontSize"_s);
  const int points = Numbers::ToNumber(size) ? Numbers::ToInt(size) : kDefaultFontSize;
  g_FontSize = static_cast<qint16>(qBound(1, points, 1000));
  g_FontName = Settings().sGet(u"FontName"_s, u"Times New Roman"_s).toString();
}

void StartUp::showStatusBar() const {
  const QString version = Subs().AppVersion();
  main_.status().setVersion(version);
  main_.showTotal();
  const qint32 lastBackup = Numbers::ToInt(Settings().sGet(u"LastFullBackup"_s, 0));
  main_.status().setBackupReminder(lastBackup < Clock::dayNumber(Clock::today()) - kBackupDays);
  Logging().LogEvent(u"Quillane 4 startup: "_s + version);
}

void StartUp::restoreLayout() const {
  MainPanes& panes = main_.panes();
  restoreWindow(u"Main"_s, main_);
  restoreList(u"MainChap"_s, panes.chapters().listChapters());
  restoreList(u"MainScn"_s, panes.scenes().listScenes());
  panes.showScenesTab();
  panes.splitter().setFraction(fractionSetting(u"ChapterSplit"_s, kDefaultChapterSplit));
  panes.scenes().splitter().setFraction(fractionSetting(u"Splitpercent"_s, PaneLayout::kDefaultSplit));
  panes.chapters().splitter().setFraction(fractionSetting(u"DescriptionSplit"_s, kDefaultDescriptionSplit));
  if (!Settings().IsSettingPresent(u"Splitpercent"_s)) {
    panes.fitTabsWhenShown();
  }
}

// Widths of the user's own stay; others follow the window.
void StartUp::restoreList(const QString& name, ListView& list) const {
  restoreColumns(name, list);
  const bool stored = Settings().IsSettingPresent(name + u"1_W"_s);
  if (truth(Settings().sGet(name + u"Filled"_s, !stored))) {
    main_.panes().fillWhenShown(list);
  }
}

// The lists themselves are read with the first check, in the background.
void StartUp::lookForDictionaries() const {
  splashStatus(shownText(u"Loading Dictionaries"_s));
  if (Spell().DictionaryFound()) {
    Logging().LogEvent(u"One or more dictionaries found: spell check enabled"_s);
  } else {
    Logging().LogEvent(u"No dictionaries found: spell check disabled"_s);
    Logging().LogEvent(u"(See the help file if you'd like to add a dictionary to Quillane)"_s);
  }
}

void StartUp::openProject() {
  const QString last = Settings().sGet(u"LastProjectFile"_s).toString();
  if (!main_.commandLine_.isEmpty()) {
    // Also a path that leads nowhere puts the last project aside.
    openFromCommandLine(pathOf(main_.commandLine_));
  } else if (!last.isEmpty() && Files().FileExists(last)) {
    openLast(last);
  }
}

void StartUp::openFromCommandLine(const QString& path) {
  Logging().LogEvent(u"Loading from "_s + path);
  if (!Files().FileExists(path)) {
    notFound_ = path;
    return;
  }
  splashStatus(translated(u"Loading %1"_s).arg(Files().FileOnly(path)));
  // The path is kept for the next start, which may stand in another folder.
  main_.LoadProject(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()), false);
}

void StartUp::openLast(const QString& path) const {
  Logging().LogEvent(u"Loading last project: "_s + path);
  splashStatus(translated(u"Loading '%1'"_s).arg(Files().FileOnly(path)));
  main_.LoadProject(path, true);
}

void StartUp::finish() {
  splashStatus(shownText(u"Startup Complete"_s));
  splash_.reset();
  main_.session().UpdateRecent();
  main_.panes().scenes().tabStrip1().setCurrentIndex(0);
  main_.panes().chapters().listChapters().setFocus();
  tellOfStart();
  main_.StartScanTimer();
  main_.startUpdateCheck();
}

// Until it is opened it is offered at each start.
void StartUp::offerRescued() const {
  const QString rescued = Settings().sGet(u"RescuedBook"_s).toString();
  if (rescued.isEmpty()) {
    return;
  }
  const QString what =
      translated(u"The computer ended Quillane before the book could be saved whole in its own place. "_s);
  if (!Files().FileExists(rescued)) {
    Settings().DeleteSettingByName(u"RescuedBook"_s);
    toolkit().MsgBox(what + translated(u"Nor could it be kept anywhere else."_s));
    return;
  }
  if (toolkit().Choose({what + translated(u"A copy with all its words was kept:"_s) + u'\n' + rescued,
                        {shownText(u"Open it now"_s), shownText(u"Later"_s)},
                        0}) == 0) {
    Settings().DeleteSettingByName(u"RescuedBook"_s);
    main_.LoadProject(rescued, true);
    main_.session().setMenusByProject();
  }
}

void StartUp::tellOfRescuedTexts() const {
  const QString folder = Settings().sGet(u"RescuedTexts"_s).toString();
  if (folder.isEmpty()) {
    return;
  }
  Settings().DeleteSettingByName(u"RescuedTexts"_s);
  toolkit().MsgBox(
      translated(
          u"The computer ended Quillane while the text of a scene could not be saved in its own place. It was kept "
          "in the folder"_s) +
      u'\n' + folder);
}

void StartUp::tellOfStart() const {
  offerRescued();
  tellOfRescuedTexts();
  QStringList told;
  if (!notFound_.isEmpty()) {
    told += translated(u"%1 wasn't found."_s).arg(notFound_);
  }
  if (!lostLanguage_.isEmpty()) {
    told += translated(u"The language %1 could not be read."_s).arg(lostLanguage_);
  }
  if (endedBadly_) {
    told += translated(
        u"Quillane didn't end properly last time. Books open as they were last saved. (log_last.txt tells more.)"_s);
  }
  if (!told.isEmpty()) {
    main_.showMessage(told.join(u' '));
  }
}
