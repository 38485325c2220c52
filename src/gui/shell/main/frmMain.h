#pragma once

#include "gui/shell/commands/ProjectCommands.h"
#include "gui/shell/commands/StatisticsCommands.h"
#include "gui/shell/commands/ToolCommands.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>

class ChangeScan;
class InstanceCheck;
class MainMenuBar;
class MainPanes;
class StatusPanels;

/// The main window. It owns the life of the process: its load is the start-up, its close the shut-down. The panes,
/// the menu and the groups of commands are parts of their own; this holds them together and offers what all of
/// them, and other windows, call.
class frmMain : public QMainWindow {
  Q_OBJECT

 public:
  /// The command line is one path at most, with or without double quotes.
  explicit frmMain(QString commandLine = {});
  ~frmMain() override;

  /// Before anything else: false when the user wants no second copy of the program, which ends at once then.
  bool Form_Initialize();
  /// The start-up. The window is ready to be shown afterwards, unless EndProgram has run.
  void Form_Load();

  /// There are changes that the project file doesn't hold yet: a hint for what replaces the project.
  bool ProjectChanged = false;
  /// The program is on its way out: timers do nothing.
  bool Closing = false;
  /// A downloaded installer to start at the end; empty otherwise.
  QString InstallerPath;
  /// Ends the process, at the very end of EndProgram.
  std::function<void()> endProcess;

  void LoadProject(const QString& Path, bool ShowProgress) { project_.LoadProject(Path, ShowProgress); }
  void SaveProject(bool ShowProgress) { project_.SaveProject(ShowProgress); }
  void saveIfChanged() { project_.saveIfChanged(); }
  /// Stores the settings, saves the project, always and without a question, and ends the process.
  void EndProgram();
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
  void StopScanTimer();
  void StartScanTimer();
  void stopUpdateCheck() { Timer3_.stop(); }
  void startUpdateCheck() { Timer3_.start(); }
  void CheckForUpdate(bool Silent);
  void Updater_InstallFile();

  /// The full redraw.
  void RefreshAll();
  void showTotal();
  /// In panel 1 of the status bar.
  void showMessage(const QString& text);
  void sayNotBuilt(const QString& command);
  void EditSelectedScene();
  void EditSelectedChapter();
  /// Zero-based index of the selected tab of the scene display.
  int CurrentTab() const;
  void mnuConfirmExit_Click();

  MainPanes& panes() { return *panes_; }
  MainMenuBar& menus() { return *menus_; }
  StatusPanels& status() { return *status_; }
  ProjectCommands& project() { return project_; }
  ToolCommands& tools() { return tools_; }
  StatisticsCommands& statistics() { return statistics_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  friend class StartUp;

  void createParts();
  void createShortcuts();
  void connectSignals();
  void Timer3_Timer();
  void insistOnScenes();
  void storeSettings();
  void storeLayout();
  void unloadForms();
  void setProjectFieldsEnabled(bool enabled);

  QString commandLine_;
  std::unique_ptr<InstanceCheck> instance_;
  QTimer Timer3_;
  MainPanes* panes_ = nullptr;
  MainMenuBar* menus_ = nullptr;
  ChangeScan* scan_ = nullptr;
  std::unique_ptr<StatusPanels> status_;
  ProjectCommands project_;
  ToolCommands tools_;
  StatisticsCommands statistics_;
  /// What the menus were last told of open editors.
  bool editingShown_ = false;
  /// The settings were read: before that there is nothing worth writing back.
  bool settingsLoaded_ = false;
};
