#include "gui/views/ListView.h"

#include "gui/toolkit/PlainToolTip.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// What stands at the right end of its column would touch what stands at the left of the next.
QString spaced(const QString& text, Qt::Alignment alignment) {
  return alignment.testFlag(Qt::AlignRight) ? text + u"\u00a0\u00a0"_s : text;
}

class ListHeader : public QHeaderView {
 public:
  explicit ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsMovable(true);
    setStretchLastSection(true);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
    QHeaderView::initStyleOptionForIndex(option, column);
    option->text = spaced(option->text, option->textAlignment);
  }
};

/// Aligns a cell like its column's title: once a column, not once a cell.
class ColumnDelegate : public QStyledItemDelegate {
 public:
  explicit ColumnDelegate(QTreeWidget* list) : QStyledItemDelegate(list), list_(list) {}

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    if (event->type() != QEvent::ToolTip || index.data(Qt::ToolTipRole).isValid() || isSeenWhole(option, index)) {
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), plainToolTip(index.data().toString()), list_->viewport(), option.rect);
    return true;
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const int alignment = list_->headerItem()->textAlignment(index.column()); alignment != 0) {
      option->displayAlignment = Qt::Alignment(alignment);
    }
    option->text = spaced(option->text, option->displayAlignment);
    if (option->state.testFlag(QStyle::State_Selected) && !option->state.testFlag(QStyle::State_Active)) {
      option->icon = iconAsUnselected(*option);
    }
  }

 private:
  /// The colour that an icon takes on in a selection is meant for one that the keyboard moves.
  static QIcon iconAsUnselected(const QStyleOptionViewItem& option) {
    const qreal scale = option.widget == nullptr ? 1 : option.widget->devicePixelRatioF();
    QIcon shown;
    shown.addPixmap(option.icon.pixmap(option.decorationSize, scale), QIcon::Selected);
    return shown;
  }

  /// Neither cut by its column nor by the edge of the list.
  bool isSeenWhole(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QSize needed = sizeHint(option, index);
    const QRect text = QStyle::alignedRect(cell.direction, cell.displayAlignment, needed, option.rect);
    return needed.width() <= option.rect.width() && text.left() >= 0 && text.right() < list_->viewport()->width();
  }

  QTreeWidget* list_;
};

QColor between(const QColor& base, const QColor& text) {
  const auto mixed = [](int from, int to) { return from + (to - from) / 5; };
  return {mixed(base.red(), text.red()), mixed(base.green(), text.green()), mixed(base.blue(), text.blue())};
}

/// Gives a selection that the keyboard doesn't move a colour of its own where the desktop has the same for both.
void makeInactive(QPalette& palette) {
  const QColor active = palette.color(QPalette::Active, QPalette::Highlight);
  if (palette.color(QPalette::Inactive, QPalette::Highlight) == active) {
    const QColor text = palette.color(QPalette::Inactive, QPalette::Text);
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     between(palette.color(QPalette::Inactive, QPalette::Base), text));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
  }
}

}  // namespace

ListView::ListView(const QStringList& columns, QWidget* parent) : QTreeWidget(parent) {
  setHeader(new ListHeader(this));
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

int ListView::roomForColumns() const {
  return maximumViewportSize().width() - verticalScrollBar()->sizeHint().width();
}

int ListView::widthFor(int column, QStringView cell) const {
  const auto alignment = Qt::Alignment(headerItem()->textAlignment(column));
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.features |= QStyleOptionViewItem::HasDisplay;
  // The icon of a row stands in its first column.
  option.features.setFlag(QStyleOptionViewItem::HasDecoration, column == 0);
  option.text = spaced(cell.toString(), alignment);
  const int title = header()->sectionSizeHint(column) + fontMetrics().horizontalAdvance(spaced({}, alignment));
  return std::max(title, style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width());
}

void ListView::fillRoom() {
  const int others = header()->length() - columnWidth(fillColumn_);
  setColumnWidth(fillColumn_, std::max(roomForColumns() - others, header()->minimumSectionSize() * 2));
  filledLength_ = header()->length();
}

void ListView::resizeEvent(QResizeEvent* event) {
  QTreeWidget::resizeEvent(event);
  if (fillColumn_ < 0) {
    return;
  }
  if (header()->length() == filledLength_) {
    fillRoom();
  } else {
    filledLength_ = roomForColumns();
  }
}

void ListView::changeEvent(QEvent* event) {
  QTreeWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    Q_EMIT paletteChanged();
  }
}

// The frame stands there anyway: only its colour tells of the keyboard, nothing moves.
bool ListView::event(QEvent* event) {
  const bool result = QTreeWidget::event(event);
  if (event->type() == QEvent::Paint && hasFocus()) {
    QPainter painter(this);
    const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    const int width = std::max(frameWidth(), 1);
    painter.fillRect(0, 0, this->width(), width, colour);
    painter.fillRect(0, height() - width, this->width(), width, colour);
    painter.fillRect(0, 0, width, height(), colour);
    painter.fillRect(this->width() - width, 0, width, height(), colour);
  }
  return result;
}

void ListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (hasFocus() || !selectionModel()->isSelected(index)) {
    QTreeWidget::drawRow(painter, option, index);
    return;
  }
  QStyleOptionViewItem row = option;
  makeInactive(row.palette);
  QTreeWidget::drawRow(painter, row, index);
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

void ListView::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  update();
}

void ListView::focusOutEvent(QFocusEvent* event) {
  QTreeWidget::focusOutEvent(event);
  update();
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
  setCell(row, column, QLocale().toString(number));
}
