#pragma once

#include "gui/shell/main/ChangeMark.h"
#include "gui/shell/main/ProjectSession.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class BookBackups;
class ChangeScan;
class CommandGroup;
class DiskWatch;
class MainMenuBar;
class MainPanes;
class PopupMenus;
class RowDrags;
class StatusPanels;

/// The main window. It owns the life of the process: its load is the start-up, its close the shut-down, which stand
/// in the folder "life". The panes, the menu and the groups of commands are parts of their own; this holds them
/// together and offers what all of them, and other windows, call.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  /// The command line is one path at most, with or without double quotes.
  explicit frmMain(QString commandLine = {});
  ~frmMain() override;

  /// The start-up. The window is ready to be shown afterwards, unless EndProgram has run.
  void Form_Load();

  /// There are changes that the project file doesn't hold yet: a hint for what replaces the project.
  ChangeMark ProjectChanged;
  /// The program is on its way out: timers do nothing.
  bool Closing = false;
  /// Another copy of the program ran when this one began.
  bool AnotherCopyRuns = false;
  /// A downloaded installer to start at the end; empty otherwise.
  QString InstallerPath;
  /// What has come of it: nothing else is started in its place.
  QByteArray InstallerHash;
  /// Ends the process, at the very end of EndProgram.
  std::function<void()> endProcess;

  void LoadProject(const QString& Path, bool ShowProgress) { session_.LoadProject(Path, ShowProgress); }
  void SaveProject(bool ShowProgress) { session_.SaveProject(ShowProgress); }
  /// Stores the settings, saves the project, always and without a question, and ends the process; unless the project
  /// could not be saved and the user stays.
  void EndProgram();
  /// What open editors hold and the book, without a question or a word.
  void SaveAtOnce();
  /// The system ends the program: the same, and the process ends.
  void EndAtOnce();
  void ShowFatalAndExit(const QString& Message);

  /// A scene is open in an editor.
  bool Editing() const;
  void ActivateOpenEditors();
  /// True, said and editors brought forward, when a scene is open in an editor.
  bool refusedWhileEditing();

  void DisableMenus();
  void EnableMenus();
  void UpdateMenusForEditing();
  /// The same when the first editor has opened or the last one closed since, in whichever chapter.
  void followEditing();
  /// At the end and at the start of the program. A work that only must not be disturbed takes a ScanPause.
  void StopScanTimer();
  void StartScanTimer();
  void stopUpdateCheck() { Timer3.stop(); }
  void startUpdateCheck() { Timer3.start(); }
  void Updater_InstallFile(const QByteArray& hash);

  /// The full redraw.
  void RefreshAll();
  /// No rows, whatever the project holds: it is going.
  void clearLists();
  void showTotal();
  /// What the window has put together itself, in another language than before.
  void showInLanguage();
  /// In panel 1 of the status bar.
  void showMessage(const QString& text);
  /// What was said of a command or a state is true no more.
  void showRest() { showMessage({}); }
  /// The book's name and whether it holds what no file holds yet, in the title bar.
  void showTitle();
  /// The same, and how the book's saves went in panel 1.
  void showBook();
  void EditSelectedScene();
  void EditSelectedChapter();
  /// What a menu entry does, by a key or a click elsewhere; says why not where it is switched off.
  void triggerEntry(const QString& name);
  void mnuConfirmExit_Click();

  MainPanes& panes() { return *panes_; }
  MainMenuBar& menus() { return *menus_; }
  StatusPanels& status() { return *status_; }
  ProjectSession& session() { return session_; }
  BookBackups& backups() { return *backups_; }

  /// Takes a group of commands and binds it to the menu.
  void addCommands(std::unique_ptr<CommandGroup> group);

 Q_SIGNALS:
  // For the windows beside this one that show the book.
  void refreshed();
  void listsCleared();
  /// The end comes: what is to be remembered of how windows stand is stored now.
  void layoutStored();
  /// Nobody is asked any more whether the program ends: what is still coming from the web is given up.
  void leaving();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  friend class StartUp;

  class OwnCommands;

  void createParts();
  void createShortcuts();
  void sayWhyNot(const QAction& action);
  bool refusedOverStrayTexts();
  void showMenus(bool withProject);
  void showSaves();
  void connectSignals();
  void Timer3_Timer();
  bool mayLeaveBook();
  void finishAtOnce(int waits);
  void forgetRescue();
  void storeSettings();
  void storeLayout();
  void unloadForms();
  void giveUpTransfers();
  void startInstaller();

  QString commandLine_;
  QTimer Timer3;
  MainPanes* panes_ = nullptr;
  MainMenuBar* menus_ = nullptr;
  std::unique_ptr<StatusPanels> status_;
  RowDrags* drags_ = nullptr;
  PopupMenus* popups_ = nullptr;
  std::unique_ptr<ChangeScan> scan_;
  std::unique_ptr<DiskWatch> disk_;
  std::unique_ptr<BookBackups> backups_;
  ProjectSession session_;
  std::vector<std::unique_ptr<CommandGroup>> commands_;
  /// What the menus were last told of a project and of open editors.
  bool projectShown_ = false;
  bool editingShown_ = false;
  /// The system ends the program.
  bool ending_ = false;
  /// This run has put the book into the rescue folder.
  bool rescued_ = false;
  /// The settings were read: before that there is nothing worth writing back.
  bool settingsLoaded_ = false;
};
