#include "gui/views/ListDelegate.h"

#include "gui/toolkit/PlainToolTip.h"
#include "gui/views/ListModel.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

/// The colour that an icon takes on in a selection is meant for one that the keyboard moves.
QIcon iconAsUnselected(const QStyleOptionViewItem& option) {
  const qreal scale = option.widget == nullptr ? 1 : option.widget->devicePixelRatioF();
  QIcon shown;
  shown.addPixmap(option.icon.pixmap(option.decorationSize, scale), QIcon::Selected);
  return shown;
}

}  // namespace

QString spacedForColumn(const QString& text, Qt::Alignment alignment) {
  return alignment.testFlag(Qt::AlignRight) ? text + u"\u00a0\u00a0"_s : text;
}

int rowHeight(int needed, const QWidget& view) {
  const int icon = view.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &view);
  return std::max({needed, icon + 2, view.fontMetrics().height() + 4});
}

ListDelegate::ListDelegate(const ListModel& model, QTreeView& view)
    : QStyledItemDelegate(&view), model_(model), view_(view) {}

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->text = spacedForColumn(option->text, option->displayAlignment);
  if (option->state.testFlag(QStyle::State_Selected) && !option->state.testFlag(QStyle::State_Active)) {
    option->icon = iconAsUnselected(*option);
  }
}

QSize ListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize size = QStyledItemDelegate::sizeHint(option, index);
  return {size.width(), rowHeight(size.height(), view_)};
}

// The field in a row is spoken of by the title of its column.
QWidget* ListDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
  QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
  editor->setAccessibleName(model_.headerData(index.column(), Qt::Horizontal, Qt::AccessibleTextRole).toString());
  return editor;
}

/// Neither cut by its column nor by the edge of the list.
bool ListDelegate::isSeenWhole(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QSize needed = QStyledItemDelegate::sizeHint(option, index);
  const QRect text = QStyle::alignedRect(cell.direction, cell.displayAlignment, needed, option.rect);
  return needed.width() <= option.rect.width() && text.left() >= 0 && text.right() < view_.viewport()->width();
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid() || index.data(Qt::ToolTipRole).isValid()) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  QStringList lines;
  if (!isSeenWhole(option, index)) {
    lines.append(index.data().toString());
  }
  if (const QString states = index.data(ListModel::kStatesRole).toString(); !states.isEmpty()) {
    lines.append(states);
  }
  // An empty text takes a tool tip away that is of another cell.
  QToolTip::showText(event->globalPos(), plainToolTip(lines.join(u'\n')), view_.viewport(), option.rect);
  return true;
}
