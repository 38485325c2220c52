#pragma once

#include <QString>

class LongWork;
class clsProject;

/// Writes a project to its file, asking for another place for as long as one fails. Refused, and logged, while the
/// project is busy.
class ProjectSaver {
 public:
  explicit ProjectSaver(clsProject& project) : project_(project) {}

  /// Writes the scenes that are due to their files; with progress every one.
  bool saveQN4(bool showProgress);
  /// Writes the scenes' texts into the project file.
  bool saveQNC4(bool showProgress);
  /// False when no place was given.
  bool saveAs();

 private:
  enum class Form { Folder, SingleFile };
  /// What is told when a step fails: nothing, by a box, or by the error reporter.
  struct Failure {
    enum class Told { NotAtAll, ByBox, ByReport };
    Told told = Told::NotAtAll;
    QString text;
  };
  struct Step;

  bool mayBegin() const;
  bool save(bool showProgress, Form form);
  /// The project keeps its own file's name, and counts as unsaved unless only a copy of it was to be made.
  void giveUp(const QString& own, Form form) const;
  /// True unless the file that was opened was cut off and the user keeps it.
  bool mayReplaceIncomplete() const;
  bool askForFile(const QString& folder);
  bool attempt(bool showProgress, Form form, bool asked);
  Failure prepareTarget(Form form, bool asked) const;
  Failure write(bool showProgress, Form form, bool asked);
  Failure writeSteps(LongWork& work, int file, Form form, bool forceTexts);
  bool writeHead(int file) const;
  bool writeTexts(Form form, bool force) const;
  void remember(Form form) const;
  QString forcedExtension(const QString& extension) const;
  /// The same for a name that the user gave.
  QString extensionGiven(const QString& extension) const;
  static Failure boxed(const QString& text) { return {Failure::Told::ByBox, text}; }
  /// With the cause behind what is told.
  static Failure because(Failure failure, const QString& cause);
  static bool isDone(const Failure& failure) { return failure.told == Failure::Told::NotAtAll; }
  static void tell(const Failure& failure);

  clsProject& project_;
};
