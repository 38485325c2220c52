#pragma once

#include "gui/views/ListView.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTreeWidget>
#include <QWidget>

#include <vector>

/// Waits until each of these widgets has been painted.
class Painted : public QObject {
 public:
  explicit Painted(const QList<QWidget*>& awaited) : awaited_(awaited) {
    for (QWidget* widget : awaited) {
      widget->installEventFilter(this);
    }
  }

  /// As in the program's own loop, painting comes before what is left for an idle moment. What else was to be painted
  /// is by then too, and what that has led to.
  void wait() const {
    QCoreApplication::sendPostedEvents();
    while (!awaited_.isEmpty()) {
      QCoreApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      awaited_.removeOne(static_cast<QWidget*>(watched));
    }
    return false;
  }

 private:
  QList<QWidget*> awaited_;
};

/// What the rows of a list show, worked out and at hand.
struct PlainRow {
  QStringList cells;
  QIcon icon;
  QList<QVariant> colours;
  qint32 tag = 0;
};

inline std::vector<PlainRow> rowsOf(const ListView& list) {
  const QAbstractItemModel& model = *list.model();
  std::vector<PlainRow> rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    PlainRow& plain = rows.emplace_back();
    plain.icon = model.index(row, 0).data(Qt::DecorationRole).value<QIcon>();
    plain.tag = list.tagAt(row);
    for (int column = 0; column < model.columnCount(); ++column) {
      const QModelIndex cell = model.index(row, column);
      plain.cells.append(cell.data().toString());
      plain.colours.append(cell.data(Qt::ForegroundRole));
    }
  }
  return rows;
}

/// Qt's own list in the size, the columns and the manner of one of ours.
class PlainList : public QTreeWidget {
 public:
  explicit PlainList(const ListView& like) {
    QStringList titles;
    for (int column = 0; column < like.model()->columnCount(); ++column) {
      titles.append(like.model()->headerData(column, Qt::Horizontal).toString());
      alignments_.append(like.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole));
    }
    setHeaderLabels(titles);
    for (int column = 0; column < titles.size(); ++column) {
      setColumnWidth(column, like.columnWidth(column));
    }
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setFixedSize(like.size());
  }

  void fill(const std::vector<PlainRow>& rows) {
    clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const PlainRow& row : rows) {
      auto* item = new QTreeWidgetItem(row.cells);
      item->setIcon(0, row.icon);
      item->setData(0, Qt::UserRole, row.tag);
      for (int column = 0; column < row.cells.size(); ++column) {
        item->setData(column, Qt::TextAlignmentRole, alignments_.at(column));
        if (row.colours.at(column).isValid()) {
          item->setData(column, Qt::ForegroundRole, row.colours.at(column));
        }
      }
      items.append(item);
    }
    addTopLevelItems(items);
  }

 private:
  QVariantList alignments_;
};

/// A window with such lists for the chapters and the scenes, and nothing else.
class PlainWindow : public QWidget {
 public:
  PlainWindow(const ListView& chaptersLike, const ListView& scenesLike) : chapters(chaptersLike), scenes(scenesLike) {
    auto* row = new QHBoxLayout(this);
    row->addWidget(&chapters);
    row->addWidget(&scenes);
  }

  PlainList chapters;
  PlainList scenes;
};
