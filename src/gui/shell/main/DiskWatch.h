#pragma once

#include <QTimer>

#include <set>

class DiskConflicts;
class frmMain;

/// Looks every few seconds whether another program has changed the files of the book, and offers in the status bar to
/// load what it has left. A few of the scenes at a time: on a network each look is a question to another machine.
class DiskWatch {
 public:
  explicit DiskWatch(frmMain& main);

  void start() { timer_.start(); }
  void stop() { timer_.stop(); }

 private:
  void look();
  void lookAtSome(DiskConflicts& found);
  void tell(const DiskConflicts& found);
  void load();
  void loadReadOnly();
  void loadTexts();

  frmMain& main_;
  QTimer timer_;
  /// The position of the scene that is looked at next.
  qint32 next_ = 1;
  /// The scenes that were found changed, by ID.
  std::set<qint32> changed_;
};
