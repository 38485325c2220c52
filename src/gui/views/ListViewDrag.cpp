#include "gui/views/ListView.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QLocale>
#include <QMimeData>
#include <QPainter>
#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

// Rows that are dragged. Their tags travel under a form of our own: as plain text they could be dropped into a
// manuscript.

namespace {

QString rowsForm() {
  return u"application/x-quillane-rows"_s;
}

QByteArray joined(const QList<qint32>& tags) {
  QByteArrayList numbers;
  for (const qint32 tag : tags) {
    numbers.append(QByteArray::number(tag));
  }
  return numbers.join(':');
}

QList<qint32> parted(const QByteArray& tags) {
  QList<qint32> numbers;
  for (const QByteArray& tag : tags.split(':')) {
    if (const qint32 number = tag.trimmed().toInt(); number > 0) {
      numbers.append(number);
    }
  }
  return numbers;
}

/// A drop may ask questions and save, which must not happen while the desktop still waits for the drag to end.
struct DragUnderWay {
  bool running = false;
  std::function<void()> drop;
};

DragUnderWay& dragUnderWay() {
  static DragUnderWay drag;
  return drag;
}

/// Rows of another window may be of another kind. What the desktop sends without a source was made by hand.
bool brings(const QDropEvent& event, const QWidget& list) {
  const auto* const source = qobject_cast<QWidget*>(event.source());
  const bool isOfWindow = source == nullptr || source->window() == list.window();
  return isOfWindow && event.mimeData()->hasFormat(rowsForm());
}

QPixmap pictureOf(const QString& text, const QWidget& list) {
  const QFontMetrics metrics = list.fontMetrics();
  const QSize size(metrics.horizontalAdvance(text) + 16, metrics.height() + 8);
  const qreal scale = list.devicePixelRatioF();
  QPixmap picture(size * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(list.palette().color(QPalette::Highlight));
  QPainter painter(&picture);
  painter.setFont(list.font());
  painter.setPen(list.palette().color(QPalette::HighlightedText));
  painter.drawText(QRect({}, size), Qt::AlignCenter, text);
  return picture;
}

}  // namespace

void ListView::setDrags(ListDrags drags) {
  drags_ = std::move(drags);
  model_->setDraggable();
  setDragEnabled(drags_.begun != nullptr);
  setAcceptDrops(drags_.over != nullptr);
  setDropIndicatorShown(false);
}

std::unique_ptr<QMimeData> ListView::pickUp(Qt::DropAction* effect) {
  const QList<qint32> tags = SelectedTags();
  if (!drags_.begun || tags.isEmpty()) {
    return nullptr;
  }
  *effect = drags_.begun();
  auto carried = std::make_unique<QMimeData>();
  carried->setData(rowsForm(), joined(tags));
  return carried;
}

void ListView::startDrag(Qt::DropActions) {
  Qt::DropAction effect = Qt::IgnoreAction;
  std::unique_ptr<QMimeData> carried = pickUp(&effect);
  if (!carried) {
    return;
  }
  const qsizetype rows = SelectedTags().size();
  const QString title = text(SelectedRow(), std::max(fill_.column, 0));
  auto* drag = new QDrag(this);
  drag->setMimeData(carried.release());
  drag->setPixmap(pictureOf(rows == 1 ? title.left(40) : QLocale().toString(rows), *this));
  dragUnderWay() = {true, {}};
  // The window may go while the drag lasts.
  const QPointer<ListView> alive(this);
  drag->exec(effect);
  const std::function<void()> drop = std::exchange(dragUnderWay(), {}).drop;
  if (alive && drop) {
    drop();
  } else if (alive) {
    // The button's way up ended the drag: the list hears of it from nobody else.
    Q_EMIT buttonUp();
  }
}

bool ListView::isDragging() {
  return dragUnderWay().running;
}

bool ListView::highlightForDrop(int row) {
  if (row >= 0 && row != dropHighlight_) {
    dropHighlight_ = row;
    viewport()->update();
  }
  return row >= 0 && dropHighlight_ >= 0;
}

void ListView::clearDropHighlight() {
  dropHighlight_ = -1;
  viewport()->update();
}

void ListView::dragEnterEvent(QDragEnterEvent* event) {
  dragMoveEvent(event);
  // Each move is asked about anew, which only happens to what was let in.
  event->setAccepted(drags_.over && brings(*event, *this));
}

void ListView::dragMoveEvent(QDragMoveEvent* event) {
  const bool ours = drags_.over && brings(*event, *this);
  const QPoint place = event->position().toPoint();
  const Qt::DropAction effect = ours ? drags_.over(indexAt(place).row()) : Qt::IgnoreAction;
  const int margin = autoScrollMargin();
  if (ours && !viewport()->rect().adjusted(0, margin, 0, -margin).contains(place)) {
    startAutoScroll();
  }
  event->setDropAction(effect);
  event->setAccepted(effect != Qt::IgnoreAction);
}

void ListView::dragLeaveEvent(QDragLeaveEvent*) {
  stopAutoScroll();
  clearDropHighlight();
}

void ListView::dropEvent(QDropEvent* event) {
  stopAutoScroll();
  const QByteArray tags = brings(*event, *this) ? event->mimeData()->data(rowsForm()) : QByteArray();
  const int row = indexAt(event->position().toPoint()).row();
  const Qt::DropAction effect = drags_.over && !tags.isEmpty() ? drags_.over(row) : Qt::IgnoreAction;
  event->setDropAction(effect);
  event->setAccepted(effect != Qt::IgnoreAction);
  // Rows may come and go before the desktop has let go.
  const auto drop = [list = QPointer<ListView>(this), tags = parted(tags), target = tagAt(row), effect] {
    if (list && effect != Qt::IgnoreAction) {
      list->drags_.dropped(tags, target);
    }
    if (list) {
      list->clearDropHighlight();
    }
  };
  if (dragUnderWay().running) {
    dragUnderWay().drop = drop;
  } else {
    drop();
  }
}
