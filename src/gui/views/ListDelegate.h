#pragma once

#include <QStyledItemDelegate>

class ListModel;
class QTreeView;

/// What stands at the right end of its column would touch what stands at the left of the next.
QString spacedForColumn(const QString& text, Qt::Alignment alignment);
/// The height of the rows of all lists, with and without an icon, for a row that needs so much.
int rowHeight(int needed, const QWidget& view);

/// Draws the cells of a list: aligned like their column's title, and with a tool tip where one isn't seen whole.
class ListDelegate : public QStyledItemDelegate {
 public:
  ListDelegate(const ListModel& model, QTreeView& view);

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  bool isSeenWhole(const QStyleOptionViewItem& option, const QModelIndex& index) const;

  const ListModel& model_;
  QTreeView& view_;
};
