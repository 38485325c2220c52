#pragma once

#include "core/infra/Toolkit.h"
#include "core/persist/SceneFile.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class clsProject;
class clsScene;

/// The files of a project that another program has changed since we last read or wrote them, and the question what is
/// to become of them before ours are written.
class DiskConflicts {
 public:
  explicit DiskConflicts(clsProject& project) : project_(project) {}

  void lookAtProjectFile();
  /// A scene whose text isn't due has nothing to write over.
  void lookAt(clsScene& scene);
  /// Due or not.
  void lookAtDisk(clsScene& scene);
  void clear() { conflicts_.clear(); }
  bool isEmpty() const { return conflicts_.isEmpty(); }
  bool hasProjectFile() const;
  /// The scenes whose texts were found changed.
  QList<std::shared_ptr<clsScene>> scenes() const;
  /// Puts the texts that were found in the place of ours.
  void takeTexts() const;
  /// Passes over what is cut off or empty: another program may be writing it just now.
  void keepWholeOnes() {
    conflicts_.removeIf([](const Conflict& conflict) { return !isWhole(conflict); });
  }
  /// Keeps what was found beside ours, which may be written then. False, and told, when that failed.
  bool keepAllBeside();

  enum class Askers { Project, Editor };
  enum class Outcome {
    /// Ours may be written over what is there now.
    GoOn,
    GiveUp,
    /// The project file is to be read anew. Ours that doesn't stand against another's may be written before.
    Reload
  };
  /// Asks, where there is anything to ask, and does what was answered with the files of the others: kept beside ours
  /// under another name, forgotten, or taken in the place of ours. Nobody being there, both are kept.
  Outcome settle(Askers askers);

 private:
  struct Conflict {
    QString path;
    SceneFile::Changed changed;
    /// Null for the project file.
    std::shared_ptr<clsScene> scene;
  };

  static bool isWhole(const Conflict& conflict);
  bool areWhole() const;
  QString question() const;
  ChoiceQuestion questionFor(Askers askers) const;
  bool mayTakeTheirs(Askers askers) const;
  bool keepBeside(const Conflict& conflict) const;
  void accept(const Conflict& conflict);
  void takeTheirs(const Conflict& conflict) const;

  clsProject& project_;
  QList<Conflict> conflicts_;
};
