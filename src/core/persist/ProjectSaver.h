#pragma once

#include "core/infra/FileStamp.h"

#include <QString>

#include <functional>
#include <memory>

class FolderLock;
class LongWork;
class clsProject;

/// What is done behind each save of the book to its own place, when the save is over; nothing by itself. It fails on
/// its own: the save was done.
std::function<void()>& behindEachSave();

/// Writes a project to its file, asking for another place for as long as one fails. Refused, and logged, while the
/// project is busy.
class ProjectSaver {
 public:
  explicit ProjectSaver(clsProject& project);
  ~ProjectSaver();

  /// Writes the scenes that are due to their files; with progress every one.
  bool saveQN4(bool showProgress);
  /// Writes the scenes' texts into the project file.
  bool saveQNC4(bool showProgress);
  /// False when no place was given.
  bool saveAs();
  /// Asks for a place in another folder than the book's own, and again for as long as one fails.
  bool saveElsewhere();
  /// The book as one file, without a question or a word; the book itself counts as unsaved as before.
  bool saveCopy(const QString& file);

 private:
  enum class Form { Folder, SingleFile };
  /// What is to be done about the place that a book is about to be saved to.
  enum class Way { GoOn, AskForAnother, GiveUp };
  /// What is told when a step fails: nothing, by a box, or by the error reporter.
  struct Failure {
    enum class Told { NotAtAll, ByBox, ByReport };
    Told told = Told::NotAtAll;
    QString text;
    QString cause = {};
  };
  struct Step;
  class NewPlace;

  bool mayBegin() const;
  /// The save of the book, with what is to be done behind it.
  bool saveBook(bool showProgress, const QString& own);
  /// `own` is the name that stays when it is given up.
  bool save(bool showProgress, Form form, QString own);
  /// The project keeps its own file's name, and counts as unsaved unless only a copy of it was to be made.
  void giveUp(const QString& own, Form form) const;
  /// The questions that stand before a save to a place that wasn't just asked for.
  Way wayTo(Form form);
  Way wayPastLostFolder() const;
  Way wayPastIncompleteFile() const;
  Way wayPastNewerBook();
  Way wayPastOthersChanges(Form form);
  /// What would be written is what was left on the disk when it was last read or written.
  bool isUnchanged(Form form);
  bool askForFile(const QString& folder, Form form);
  /// False when the name that came of what was typed is another file's, and that shall stay.
  bool mayTakeName(const QString& typed) const;
  bool attempt(bool showProgress, Form form, bool asked);
  Failure prepareTarget(Form form, bool asked);
  Failure write(bool showProgress, Form form);
  /// What another program has written to the project file since the save began is kept beside it. False when it can't
  /// be.
  bool keepLateChange() const;
  enum class Texts { Skipped, Due, All };
  Failure writeSteps(LongWork& work, int file, Form form, Texts texts);
  bool writeHead(int file) const;
  bool writeTexts(Form form, bool force);
  void remember(Form form);
  QString forcedExtension(const QString& extension) const;
  /// The same for a name that the user gave.
  QString extensionGiven(const QString& extension) const;
  static Failure boxed(const QString& text, const QString& cause = {}) { return {Failure::Told::ByBox, text, cause}; }
  static bool isDone(const Failure& failure) { return failure.told == Failure::Told::NotAtAll; }
  static void tell(const Failure& failure);
  /// What the windows say of the save from now on.
  void note(Form form) const;

  clsProject& project_;
  /// The project file stays as another program has left it: nothing in it is ours to write.
  bool leavesFile_ = false;
  /// The user gave up what stands in the folder.
  bool overOthers_ = false;
  /// The texts in the book's own folder are another one's too.
  bool sharesFolder_ = false;
  /// Of the folder that is saved to, where it isn't the book's own yet.
  std::unique_ptr<FolderLock> lock_;
  FileStamp written_;
  /// Why the last attempt failed, where the system said so.
  QString cause_;
  /// Why the text of a scene that has no file yet could not be written.
  QString textFailure_;
};
