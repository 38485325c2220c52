#pragma once

#include <QTreeWidget>

/// Where the backups of the book stand: a root, below it the folders of the days in their order, below each of them
/// its archives. Empty where there are no folders.
class BackupTree : public QTreeWidget {
  Q_OBJECT

 public:
  explicit BackupTree(QWidget* parent = nullptr);

  /// What is on the disk now; the newest day is chosen.
  void fill();
  bool isEmpty() const { return topLevelItemCount() == 0; }
  /// False, and nothing changes, when there is no such folder.
  bool choose(const QString& folder);

  /// The folder that is chosen, or that the chosen archive stands in; empty at the root.
  QString folder() const;
  /// Full path of the archive that is chosen; empty when none is.
  QString archive() const;

 private:
  void findArchives(QTreeWidgetItem* item);
};
