#pragma once

#include <QString>
#include <QStringList>

class clsProject;

/// Puts right what in a book that was just read contradicts itself, and looks for what its writer should know of the
/// files. Nothing is written, and no scene or text is dropped.
class ProjectRepair {
 public:
  explicit ProjectRepair(clsProject& project) : project_(project) {}

  /// A sentence for each kind of finding; none for a sound book.
  QStringList run();

 private:
  void tellNewIDs();
  void placeRenumberedScenes();
  void followRenumberedChapters();
  void partSharedFiles();
  void dropMissingScenes();
  void placeScenesOnce();
  void findEmptiedFiles();
  void findConflictCopies();
  void tell(const QString& what, const QStringList& names);

  clsProject& project_;
  QStringList findings_;
};
