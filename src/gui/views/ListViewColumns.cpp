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
  const QScopedValueRollback fitting(fitting_, true);
  for (const QString& cell : cells) {
    setColumnWidth(column, std::max(columnWidth(column), widthFor(column, cell)));
  }
}

// What the former language's titles took is given back first: the widths are kept for the next time.
void ListView::widenToTitles(const QHash<int, QStringList>& cells) {
  {
    const QScopedValueRollback fitting(fitting_, true);
    const int last = header()->logicalIndex(header()->count() - 1);
    setColumnWidth(last, columnWidth(last) - std::exchange(stretched_, 0));
    for (int column = 0; column < model_->columnCount(); ++column) {
      setColumnWidth(column, columnWidth(column) - widened_.value(column));
    }
    const int before = header()->length();
    for (int column = 0; column < model_->columnCount(); ++column) {
      const int own = columnWidth(column);
      if (!putAway_.contains(column)) {
        widen(column, cells.value(column) + QStringList{QString()});
      }
      widened_.insert(column, columnWidth(column) - own);
    }
    narrowFilled(header()->length() - std::max(before, roomForColumns()));
  }
  keepFilled();
}

/// By these pixels, as far as it can spare them.
void ListView::narrowFilled(int pixels) {
  if (filled_ || fill_.column < 0 || pixels <= 0) {
    return;
  }
  const int own = columnWidth(fill_.column);
  setColumnWidth(fill_.column, std::min(own, std::max(own - pixels, widthFor(fill_.column, {}))));
  widened_[fill_.column] += columnWidth(fill_.column) - own;
}

void ListView::fillRoom() {
  const QScopedValueRollback fitting(fitting_, true);
  const int last = header()->logicalIndex(header()->count() - 1);
  setColumnWidth(last, columnWidth(last) - std::exchange(stretched_, 0));
  int others = header()->length() - columnWidth(fill_.column);
  // What fitted in the former language shall fit in this one.
  int spared = 0;
  for (auto extra = widened_.cbegin(); extra != widened_.cend(); ++extra) {
    spared += extra.key() == fill_.column ? 0 : extra.value();
  }
  const auto needed = [&](const QString& cell) {
    return std::max(widthFor(fill_.column, cell) - spared, widthFor(fill_.column, {}));
  };
  if (roomForColumns() - others < needed(fill_.comfortable)) {
    for (const int column : fill_.mayHide) {
      others -= columnWidth(column);
    }
  }
  setColumnWidth(fill_.column, std::max(roomForColumns() - others, needed(fill_.leastShown)));
  widened_.remove(fill_.column);
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
  widened_.remove(column);
  const int least = header()->minimumSectionSize();
  if (columnWidth(column) <= least && widthFor(column, {}) > least) {
    putAway_.insert(column);
  } else {
    putAway_.remove(column);
  }
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
