#pragma once

#include "core/persist/BackupsView.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QTimer>

class frmBackupViewer;
class frmMain;

/// What the main window does about the backups of the book that it shows: the day's archive, made when the book has
/// been opened and can be seen; the offer to look at copies that are younger than their scenes; the window of all
/// copies.
class BookBackups {
 public:
  explicit BookBackups(frmMain& main);
  ~BookBackups();
  BookBackups(const BookBackups&) = delete;
  BookBackups& operator=(const BookBackups&) = delete;

  /// What is due is done as soon as the window is shown and nothing else goes on.
  void bookOpened();
  /// The archive of a book that was opened is made, if it isn't there yet.
  void makeDue();
  /// The same, and the window of its copies goes.
  void bookLeaves();

  /// The one window there is; with this copy chosen, where a full path is given.
  void showViewer(const QString& copy = {});

 private:
  void look();
  bool isQuiet() const;
  void findYoungerCopies();
  void offerYoungerCopies();

  frmMain& main_;
  QTimer timer_;
  /// How many looks in a row have found nothing else going on.
  int quietLooks_ = 0;
  bool archiveDue_ = false;
  bool copiesDue_ = false;
  /// Found and not offered yet: a save could make them look old meanwhile.
  QList<YoungerCopy> youngerCopies_;
  QPointer<frmBackupViewer> viewer_;
};
