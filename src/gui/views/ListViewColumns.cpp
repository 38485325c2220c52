#include "gui/views/ListDelegate.h"
#include "gui/views/ListView.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

// The widths of a list's columns.

int ListView::roomForColumns() const {
  return viewport()->width();
}

int ListView::widthFor(int column, QStringView cell) const {
  const Qt::Alignment alignment = model_->alignmentOf(column);
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.features |= QStyleOptionViewItem::HasDisplay;
  // The icon of a row stands in its first column.
  option.features.setFlag(QStyleOptionViewItem::HasDecoration, column == 0);
  option.text = spacedForColumn(cell.toString(), alignment);
  const int title = header()->sectionSizeHint(column) + fontMetrics().horizontalAdvance(spacedForColumn({}, alignment));
  return std::max(title, style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width());
}

void ListView::widen(int column, const QStringList& cells) {
  for (const QString& cell : cells) {
    setColumnWidth(column, std::max(columnWidth(column), widthFor(column, cell)));
  }
}

void ListView::widenToTitles() {
  for (int column = 0; column < model_->columnCount(); ++column) {
    // What is as narrow as that was put away.
    if (columnWidth(column) > header()->minimumSectionSize()) {
      widen(column, {QString()});
    }
  }
  keepFilled();
}

void ListView::fillRoom() {
  const QScopedValueRollback fitting(fitting_, true);
  const int last = header()->logicalIndex(header()->count() - 1);
  setColumnWidth(last, columnWidth(last) - std::exchange(stretched_, 0));
  int others = header()->length() - columnWidth(fill_.column);
  if (roomForColumns() - others < widthFor(fill_.column, fill_.comfortable)) {
    for (const int column : fill_.mayHide) {
      others -= columnWidth(column);
    }
  }
  setColumnWidth(fill_.column, std::max(roomForColumns() - others, widthFor(fill_.column, fill_.leastShown)));
  filled_ = true;
}

void ListView::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  if (!fitting_) {
    keepFilled();
  }
}

void ListView::keepFilled() {
  filled_ ? fillRoom() : stretchLastColumn();
}

// By the user, or from the settings.
void ListView::columnResized(int column) {
  if (fitting_) {
    return;
  }
  filled_ = false;
  if (header()->visualIndex(column) == header()->count() - 1) {
    stretched_ = 0;
  }
  stretchLastColumn();
}

// A gap behind the last column looks like a column without a title.
void ListView::stretchLastColumn() {
  if (fill_.column < 0 || header()->count() == 0) {
    return;
  }
  const QScopedValueRollback fitting(fitting_, true);
  const int last = header()->logicalIndex(header()->count() - 1);
  const int own = std::max(columnWidth(last) - stretched_, header()->minimumSectionSize());
  const int free = roomForColumns() - (header()->length() - columnWidth(last)) - own;
  stretched_ = std::max(free, 0);
  setColumnWidth(last, own + stretched_);
}
