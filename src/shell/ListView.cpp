#include "shell/ListView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

/// Aligns a cell like its column's title: once a column, not once a cell.
class ColumnDelegate : public QStyledItemDelegate {
 public:
  explicit ColumnDelegate(QTreeWidget* list) : QStyledItemDelegate(list), list_(list) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const int alignment = list_->headerItem()->textAlignment(index.column()); alignment != 0) {
      option->displayAlignment = Qt::Alignment(alignment);
    }
  }

 private:
  QTreeWidget* list_;
};

}  // namespace

ListView::ListView(const QStringList& columns, QWidget* parent) : QTreeWidget(parent) {
  setColumnCount(static_cast<int>(columns.size()));
  setHeaderLabels(columns);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setItemDelegate(new ColumnDelegate(this));
  connect(this, &QTreeWidget::itemDoubleClicked, this, &ListView::rowOpened);
}

qint32 ListView::tagOf(const QTreeWidgetItem& row) {
  return row.data(0, Qt::UserRole).toInt();
}

void ListView::setTag(QTreeWidgetItem& row, qint32 id) {
  row.setData(0, Qt::UserRole, id);
}

QTreeWidgetItem* ListView::SelectedItem() const {
  QTreeWidgetItem* current = currentItem();
  if (current != nullptr && current->isSelected()) {
    return current;
  }
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.constFirst();
}

qint32 ListView::SelectedTag() const {
  const QTreeWidgetItem* row = SelectedItem();
  return row == nullptr ? 0 : tagOf(*row);
}

QList<qint32> ListView::SelectedTags() const {
  QList<qint32> tags;
  for (int row = 0; row < topLevelItemCount(); ++row) {
    const QTreeWidgetItem* item = topLevelItem(row);
    if (item->isSelected()) {
      tags.append(tagOf(*item));
    }
  }
  return tags;
}

int ListView::rowOfTag(qint32 id) const {
  for (int row = 0; row < topLevelItemCount(); ++row) {
    if (tagOf(*topLevelItem(row)) == id) {
      return row;
    }
  }
  return -1;
}

void ListView::SelectRow(int row) {
  if (QTreeWidgetItem* item = topLevelItem(row)) {
    setCurrentItem(item, 0, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollToItem(item);
  }
}

void ListView::SelectTag(qint32 id) {
  SelectRow(std::max(rowOfTag(id), 0));
}

void ListView::fitColumn(int column) {
  const int others = header()->length() - columnWidth(column);
  const int room = maximumViewportSize().width() - verticalScrollBar()->sizeHint().width();
  setColumnWidth(column, std::max(room - others, header()->minimumSectionSize() * 2));
}

void ListView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // One press opens once, however long it lasts.
    if (!event->isAutoRepeat()) {
      Q_EMIT enterPressed();
    }
    return;
  }
  keyIsDown_ = true;
  QTreeWidget::keyPressEvent(event);
}

void ListView::keyReleaseEvent(QKeyEvent* event) {
  QTreeWidget::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) {
    endKey(event->key());
  }
}

void ListView::focusOutEvent(QFocusEvent* event) {
  QTreeWidget::focusOutEvent(event);
  if (keyIsDown_) {
    endKey(0);
  }
}

void ListView::mousePressEvent(QMouseEvent* event) {
  // A key whose release went elsewhere is down no longer.
  keyIsDown_ = false;
  QTreeWidget::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
  QTreeWidget::mouseReleaseEvent(event);
  Q_EMIT buttonUp();
}

void ListView::endKey(int key) {
  keyIsDown_ = false;
  Q_EMIT keyUp(key);
}

void setCell(QTreeWidgetItem& row, int column, const QString& text) {
  if (row.text(column) != text) {
    row.setText(column, text);
  }
}

void setCell(QTreeWidgetItem& row, int column, qint32 number) {
  setCell(row, column, QString::number(number));
}
