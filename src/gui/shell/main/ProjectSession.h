#pragma once

#include <QString>

class frmMain;

/// How the main window comes to a book and parts from it: loading, saving, closing, and the list of recent ones.
class ProjectSession {
 public:
  explicit ProjectSession(frmMain& main) : main_(main) {}

  /// A load that fails leaves the empty project and its menus, and the user has been told by then. Whether a project of
  /// generation 3 may be converted is asked; a No leaves all as it is. What open editors hold has been asked about:
  /// they close.
  void LoadProject(const QString& Path, bool ShowProgress);
  /// A failed save has been told by then.
  void SaveProject(bool ShowProgress);
  /// What a command has changed and marked goes to the disk at once, where the book has a place there. The mark stays;
  /// a book that was read anew instead has none.
  void saveChange();
  /// The title of the book that is open, its file's name where it has none; empty without a project.
  QString nameOfBook() const;
  /// There are changes that the project file doesn't hold.
  bool isChanged() const;
  /// The file was cut off when it was opened, and nothing was changed since: it isn't saved over what is left of it.
  bool isOnlyLookedAt() const;
  /// Asks for the place. False when something stands in memory alone still.
  bool saveUnderNewName();
  /// What was changed in a book that was opened read-only is asked about. False when the user stays.
  bool mayLeaveReadOnly();
  /// Asks about a note that is being typed and what open editors hold, which stay for now, and saves what is to be
  /// saved; what can't be is asked about. False when the project has to stay.
  bool mayReplaceProject();
  /// What shows the book that is about to be replaced goes: its editors, without a question, and the rows.
  void leaveProject();
  /// True when it was done, and also when open editors stood in the way of saving. False when the project could not
  /// be saved and the user keeps it. Editors that hold nothing unsaved stay open, and can save no more.
  bool CloseProject();
  /// Puts the file in front of the recent ones and keeps that at once.
  void AddToRecent(const QString& Path);
  /// What is away is shown and can't be chosen.
  void UpdateRecent();
  /// The list is about to be shown: the same where something was away.
  void lookForRecent();
  /// The menus that go with the project that is there now.
  void setMenusByProject();

 private:
  bool readProject(const QString& path, bool showProgress);
  void showEmptyProject();
  void reloadIfWanted(bool showProgress);
  bool mayLeaveProject();

  frmMain& main_;
  bool recentAway_ = false;
  /// How long the last look for the recent projects took, in milliseconds.
  qint64 recentTime_ = 0;
};
