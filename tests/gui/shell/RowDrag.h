#pragma once

#include "gui/views/ListView.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>

#include <memory>

/// A drag of the selected rows of a list, made of the events that the desktop would send.
class RowDrag {
 public:
  /// What the pointer says over the row (-1: below the rows), after it came from the list's first row.
  Qt::DropAction hover(ListView& from, ListView& to, int row) {
    Qt::DropAction effect{};
    carried_ = from.pickUp(&effect);
    if (!carried_) {
      return Qt::IgnoreAction;
    }
    QDragEnterEvent enter(placeIn(to, 0), effect, carried_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(to.viewport(), &enter);
    QDragMoveEvent move(placeIn(to, row), effect, carried_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(to.viewport(), &move);
    return enter.isAccepted() && move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
  }

  /// False when the drop is refused.
  bool drop(ListView& from, ListView& to, int row) {
    const Qt::DropAction effect = hover(from, to, row);
    if (effect == Qt::IgnoreAction) {
      QDragLeaveEvent leave;
      QCoreApplication::sendEvent(to.viewport(), &leave);
      return false;
    }
    QDropEvent event(QPointF(placeIn(to, row)), effect, carried_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(to.viewport(), &event);
    return true;
  }

  static QPoint placeIn(const ListView& list, int row) {
    if (row < 0) {
      return {5, list.viewport()->height() - 2};
    }
    return list.visualRect(list.model()->index(row, 0)).center();
  }

 private:
  std::unique_ptr<QMimeData> carried_;
};
