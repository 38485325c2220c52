#include "core/infra/cSharedLang.h"
#include "gui/views/ListView.h"

#include <QAccessible>
#include <QTimer>

// What a screen reader hears of a list.

// Where there are rows the hint isn't seen either.
void ListView::sayEmpty() {
  setAccessibleDescription(rowCount() == 0 ? translatedLines(emptyText_) : QString());
}

// A row is read by its first cell, so that is where the keyboard stands, whichever cell was clicked. A list that is
// filled while the keyboard is elsewhere says nothing: whoever hears it would take the keyboard to be there.
void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  if (!hasFocus()) {
    QAbstractItemView::currentChanged(current, previous);
    viewport()->update();
    return;
  }
  if (current.column() <= 0) {
    QTreeView::currentChanged(current, previous);
    return;
  }
  const bool follows = hasAutoScroll();
  const QPersistentModelIndex clicked(current);
  setAutoScroll(false);
  selectionModel()->setCurrentIndex(current.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
  setAutoScroll(follows);
  if (follows) {
    scrollTo(clicked);
  }
  // The row that was left isn't the one that the view was told of.
  viewport()->update();
}

/// The row with the keyboard, behind what is said of the list itself when the keyboard comes.
void ListView::tellCurrentRow() {
  if (!QAccessible::isActive()) {
    return;
  }
  QTimer::singleShot(0, this, [this] {
    if (hasFocus() && currentIndex().isValid()) {
      QAccessibleEvent row(this, QAccessible::Focus);
      // The titles of the columns come first.
      row.setChild((currentIndex().row() + 1) * model_->columnCount());
      QAccessible::updateAccessibility(&row);
    }
  });
}
