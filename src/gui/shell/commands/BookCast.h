#pragma once

#include <QList>
#include <QtGlobal>

class frmMain;

/// Characters, locations or items that are chosen from the book's own.
namespace BookCast {

struct Choice {
  /// OK was pressed; else the window was closed otherwise, or went with its parent.
  bool taken = false;
  /// The book's cast isn't what it was. It is shown already, not saved.
  bool changedBook = false;
  /// What was selected, in the order of the list.
  QList<qint32> ids;
};

/// Lets the user choose; the type is one of the lists' own.
Choice choose(frmMain& main, int listType);

/// What the book's cast has become, in rows, display and editors.
void show(frmMain& main);

}  // namespace BookCast
