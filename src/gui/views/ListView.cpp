#include "gui/views/ListView.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Colours.h"
#include "gui/views/ListDelegate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class ListHeader : public QHeaderView {
 public:
  explicit ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsMovable(true);
    setFirstSectionMovable(true);
    setStretchLastSection(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  }

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
    QHeaderView::initStyleOptionForIndex(option, column);
    option->text = spacedForColumn(option->text, option->textAlignment);
  }
};

/// Gives a selection that the keyboard doesn't move a colour of its own where the desktop has the same for both.
void makeInactive(QPalette& palette) {
  const QColor active = palette.color(QPalette::Active, QPalette::Highlight);
  if (palette.color(QPalette::Inactive, QPalette::Highlight) == active) {
    const QColor text = palette.color(QPalette::Inactive, QPalette::Text);
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     Colours::mixed(text, palette.color(QPalette::Inactive, QPalette::Base), 20));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
  }
}

}  // namespace

ListView::ListView(const QStringList& columns, QWidget* parent)
    : QTreeView(parent), model_(new ListModel(columns, *this, this)) {
  setHeader(new ListHeader(this));
  setModel(model_);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setExpandsOnDoubleClick(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setItemDelegate(new ListDelegate(*model_, *this));
  connect(header(), &QHeaderView::sectionResized, this, &ListView::columnResized);
}

/// What of a list outlives its rows.
struct ListView::Kept {
  QList<qint32> selected;
  qint32 current = 0;
  qint32 top = 0;
  int topRow = 0;
  int across = 0;
};

ListView::Kept ListView::kept() const {
  const int top = indexAt({0, 0}).row();
  return {SelectedTags(), tagAt(currentIndex().row()), tagAt(top), top, horizontalScrollBar()->value()};
}

void ListView::setRows(QList<qint32> tags, ListModel::Maker make) {
  const QScopedValueRollback quiet(quiet_, true);
  const Kept before = kept();
  if (model_->setRows(std::move(tags), std::move(make))) {
    restore(before);
  }
  dropHighlight_ = -1;
  sayEmpty();
}

void ListView::restore(const Kept& before) {
  if (before.top == 0 && before.selected.isEmpty()) {
    return;
  }
  QHash<qint32, int> places;
  for (int row = 0; row < rowCount(); ++row) {
    places.insert(tagAt(row), row);
  }
  QItemSelection selection;
  for (const qint32 tag : before.selected) {
    if (const int row = places.value(tag, -1); row >= 0) {
      const QModelIndex index = model_->index(row, 0);
      selection.append(QItemSelectionRange(index));
    }
  }
  const int current = places.value(before.current, -1);
  if (current >= 0) {
    selectionModel()->setCurrentIndex(model_->index(current, 0), QItemSelectionModel::NoUpdate);
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  // In a list that is the same on the whole another row may stand where the first one was seen.
  const bool hasOthers = current >= 0 || !selection.isEmpty();
  if (const int row = places.value(before.top, hasOthers ? std::min(before.topRow, rowCount() - 1) : -1); row >= 0) {
    scrollTo(model_->index(row, 0), QAbstractItemView::PositionAtTop);
    horizontalScrollBar()->setValue(before.across);
  }
}

int ListView::SelectedRow() const {
  const QModelIndex current = currentIndex();
  if (current.isValid() && selectionModel()->isSelected(current)) {
    return current.row();
  }
  int first = -1;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    first = first < 0 ? range.top() : std::min(first, range.top());
  }
  return first;
}

QList<qint32> ListView::SelectedTags() const {
  QList<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    rows.append(index.row());
  }
  std::sort(rows.begin(), rows.end());
  QList<qint32> tags;
  for (const int row : rows) {
    tags.append(tagAt(row));
  }
  return tags;
}

void ListView::SelectRow(int row) {
  const QModelIndex index = model_->index(row, 0);
  if (index.isValid()) {
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
  }
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  if (!quiet_) {
    Q_EMIT rowsSelected();
  }
}

// Qt would look for the place of every cell, to paint what is seen of them.
void ListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QList<int>& roles) {
  const QRect seen = viewport()->rect();
  const QModelIndex lastSeen = indexAt(seen.bottomLeft());
  const int first = std::max(topLeft.row(), indexAt(seen.topLeft()).row());
  const int last = lastSeen.isValid() ? std::min(bottomRight.row(), lastSeen.row()) : bottomRight.row();
  if (first <= last) {
    QTreeView::dataChanged(topLeft.siblingAtRow(first), bottomRight.siblingAtRow(last), roles);
  }
}

void ListView::setEmptyText(const QString& text) {
  emptyText_ = text;
  sayEmpty();
  viewport()->update();
}

void ListView::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (rowCount() > 0 || emptyText_.isEmpty()) {
    return;
  }
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const int margin = fontMetrics().averageCharWidth() * 2;
  painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                   Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap, translatedLines(emptyText_));
}

// The frame stands there anyway: only its colour tells of the keyboard, nothing moves.
bool ListView::event(QEvent* event) {
  const bool result = QTreeView::event(event);
  if (event->type() == QEvent::Paint && hasFocus()) {
    frameFocus();
  } else if (event->type() == QEvent::LanguageChange) {
    // The model translates its titles whenever they are asked for.
    header()->viewport()->update();
  }
  return result;
}

void ListView::frameFocus() {
  QPainter painter(this);
  const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
  const int width = std::max(frameWidth(), 1);
  painter.fillRect(0, 0, this->width(), width, colour);
  painter.fillRect(0, height() - width, this->width(), width, colour);
  painter.fillRect(0, 0, width, height(), colour);
  painter.fillRect(this->width() - width, 0, width, height(), colour);
}

void ListView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  if (hasFocus() || !selectionModel()->isSelected(index)) {
    QTreeView::drawRow(painter, option, index);
  } else {
    QStyleOptionViewItem row = option;
    makeInactive(row.palette);
    QTreeView::drawRow(painter, row, index);
  }
  if (index.row() == dropHighlight_) {
    painter->save();
    painter->setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), 2));
    painter->drawRect(QRect(0, option.rect.top(), viewport()->width(), option.rect.height()).adjusted(1, 1, -2, -1));
    painter->restore();
  }
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
  QPoint place = event->globalPos();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    const QRect row = visualRect(currentIndex()) & viewport()->rect();
    place = viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
  }
  event->accept();
  Q_EMIT menuWanted(place);
}

bool ListView::moveKey(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::AltModifier) {
    return false;
  }
  switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
      Q_EMIT moveWanted(event.key() == Qt::Key_Up ? -1 : 1);
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      Q_EMIT moveToNeighbourWanted(event.key() == Qt::Key_PageUp ? -1 : 1);
      return true;
    default:
      return false;
  }
}

void ListView::keyPressEvent(QKeyEvent* event) {
  if (state() == QAbstractItemView::EditingState) {
    QTreeView::keyPressEvent(event);
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // One press opens once, however long it lasts.
    if (!event->isAutoRepeat()) {
      Q_EMIT enterPressed();
    }
    return;
  }
  if (moveKey(*event)) {
    return;
  }
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    // The desktop itself only asks for a menu when the key for it is pressed, which small keyboards don't have.
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    contextMenuEvent(&asked);
    return;
  }
  keyDown_ = event->key();
  QTreeView::keyPressEvent(event);
}

void ListView::keyReleaseEvent(QKeyEvent* event) {
  QTreeView::keyReleaseEvent(event);
  if (!event->isAutoRepeat() && keyIsDown()) {
    // Of two keys that were down together only the one that went down last is known to be meant for this list.
    endKey(event->key() == keyDown_ ? event->key() : 0);
  }
}

void ListView::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  focusIsNew_ = true;
  update();
  tellCurrentRow();
}

void ListView::focusOutEvent(QFocusEvent* event) {
  QTreeView::focusOutEvent(event);
  update();
  if (keyIsDown()) {
    endKey(0);
  }
}

void ListView::mousePressEvent(QMouseEvent* event) {
  // A key whose release went elsewhere is down no longer.
  keyDown_ = 0;
  QTreeView::mousePressEvent(event);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
  const bool onRow = indexAt(event->position().toPoint()).isValid();
  QTreeView::mouseDoubleClickEvent(event);
  if (onRow && event->button() == Qt::LeftButton) {
    Q_EMIT rowOpened();
  }
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  focusIsNew_ = false;
  Q_EMIT buttonUp();
}

// The click that brings the keyboard back to a list is not yet one on its row.
bool ListView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool wanted = trigger != QAbstractItemView::SelectedClicked || !focusIsNew_;
  return QTreeView::edit(index, wanted ? trigger : QAbstractItemView::NoEditTriggers, event);
}

void ListView::finishEdit() {
  if (QWidget* const editor = indexWidget(currentIndex())) {
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
  }
}

void ListView::endKey(int key) {
  keyDown_ = 0;
  Q_EMIT keyUp(key);
}
