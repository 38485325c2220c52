#pragma once

#include "gui/views/ListModel.h"

#include <QHash>
#include <QSet>
#include <QTreeView>

#include <memory>

class QMimeData;

/// How a list takes part in drags of rows. What is dragged is the tags of the selected rows in list order. Only a list
/// of the same window that has picked up rows gives such a drag.
struct ListDrags {
  /// Rows are picked up: the effect that the drag has. Empty for a list that gives none away.
  std::function<Qt::DropAction()> begun = {};
  /// The effect over a row, -1 for none; IgnoreAction refuses.
  std::function<Qt::DropAction(int row)> over = {};
  /// Rows with these tags were dropped on the row with the tag `target`, 0 for none.
  std::function<void(const QList<qint32>& tags, qint32 target)> dropped = {};
};

/// The column that gives or takes room with its list, and what of it has to be seen in any case. Where less than what
/// is comfortable would be, some columns go behind the edge of the list instead.
struct FillRule {
  int column = -1;
  QString leastShown = {};
  QString comfortable = {};
  QList<int> mayHide = {};
};

/// A list of model rows in columns. A row's tag is the ID of what it shows. Cells stand as the titles of their
/// columns do; a cell that isn't seen whole tells its text in a tool tip. The list with the keyboard has a frame in
/// the colour of the selection, the selection of the others is without colour.
class ListView : public QTreeView {
  Q_OBJECT

 public:
  explicit ListView(const QStringList& columns, QWidget* parent = nullptr);

  ListModel& rows() { return *model_; }
  /// These rows in the place of the former ones. What is selected, where the keyboard is and how far the list is
  /// scrolled stays as far as the same rows are there; nobody is told of a selection that has gone.
  void setRows(QList<qint32> tags, ListModel::Maker make);
  void clear() { setRows({}, {}); }
  int rowCount() const { return model_->rowCount(); }
  qint32 tagAt(int row) const { return model_->tagAt(row); }
  /// Index of the row with this tag; -1 when there is none.
  int rowOfTag(qint32 id) const { return model_->rowOfTag(id); }
  QString text(int row, int column) const { return model_->index(row, column).data().toString(); }
  void updateRow(int row) { model_->updateRow(row); }
  /// Takes what is being typed into the selected row, if anything is.
  void finishEdit();

  /// The selected row: the current one if it is selected, else the first selected; -1 when none is.
  int SelectedRow() const;
  /// Its tag; 0 when none is selected.
  qint32 SelectedTag() const { return tagAt(SelectedRow()); }
  /// The tags of all selected rows in list order.
  QList<qint32> SelectedTags() const;
  /// Selects this row alone, makes it the current one and brings it into view; nothing for an index outside.
  void SelectRow(int row);
  /// Selects the row with this tag, the first row when there is none.
  void SelectTag(qint32 id) { SelectRow(std::max(rowOfTag(id), 0)); }

  /// What stands in the place of rows where there are none.
  void setEmptyText(const QString& text);
  /// What the columns may take together.
  int roomForColumns() const;
  /// What a column needs for its title and for cells such as this one.
  int widthFor(int column, QStringView cell) const;
  /// Makes a column no narrower than any of these cells needs.
  void widen(int column, const QStringList& cells);
  /// The same for all columns that are seen, their titles and these cells of some; the column that fills the list
  /// makes room for it.
  void widenToTitles(const QHash<int, QStringList>& cells = {});
  void setFillRule(FillRule rule) { fill_ = std::move(rule); }
  /// Makes the columns fill the list, and keep it filled at any size until the user changes a width. Where his are
  /// shorter than the list the last column is stretched.
  void fillRoom();
  bool isFilled() const { return filled_; }
  /// True while a key is down that may move the selection: its release tells the end.
  bool keyIsDown() const { return keyDown_ != 0; }

  void setDrags(ListDrags drags);
  /// The row under the pointer becomes the one that a drop would hit. Over no row the last one stays marked. False
  /// when there is none under the pointer.
  bool highlightForDrop(int row);
  int dropHighlight() const { return dropHighlight_; }
  void clearDropHighlight();
  /// What a drag of the selected rows carries; the list's `begun` has been asked. Null when nothing is selected.
  std::unique_ptr<QMimeData> pickUp(Qt::DropAction* effect);
  /// Rows of some list are on their way.
  static bool isDragging();

 Q_SIGNALS:
  /// Other rows are selected than before.
  void rowsSelected();
  /// A double click on a row.
  void rowOpened();
  void enterPressed();
  /// A key went up that had gone down here, or, as 0, the keyboard went elsewhere while one was down.
  void keyUp(int key);
  /// The left or another mouse button went up.
  void buttonUp();
  /// A menu is asked for, by the right button or by a key.
  void menuWanted(const QPoint& globalPosition);
  /// The selected row is to go up (-1) or down (1), or to the neighbour before or behind of what holds the list.
  void moveWanted(int step);
  void moveToNeighbourWanted(int step);

 protected:
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QList<int>& roles) override;
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void startDrag(Qt::DropActions supported) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Kept;

  bool moveKey(const QKeyEvent& event);
  void endKey(int key);
  void tellCurrentRow();
  void frameFocus();
  void sayEmpty();
  void keepFilled();
  void columnResized(int column);
  void narrowFilled(int pixels);
  void stretchLastColumn();
  Kept kept() const;
  void restore(const Kept& kept);

  ListModel* model_;
  int keyDown_ = 0;
  /// The keyboard has come here, and no click was made since.
  bool focusIsNew_ = false;
  QString emptyText_;
  bool quiet_ = false;
  FillRule fill_;
  bool filled_ = false;
  bool fitting_ = false;
  /// What the last column has been stretched by.
  int stretched_ = 0;
  /// What titles of another language have made of the columns' widths.
  QHash<int, int> widened_;
  /// The columns that the user has made as narrow as can be.
  QSet<int> putAway_;
  ListDrags drags_;
  int dropHighlight_ = -1;
};
