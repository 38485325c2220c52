#include "gui/editor/EditorPlacement.h"

#include "gui/toolkit/Twips.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

#include <algorithm>

double LastEditorLeft = 0;
double LastEditorTop = 0;

namespace {

/// What of a title bar is enough to take hold of the window.
constexpr int kGrip = 200;
/// As high as a title bar, so that the one of the window behind is seen.
constexpr int kStep = 30;
/// So near the one behind can't be seen. The frame that a desktop puts around moves a window by as much, too.
constexpr int kSamePlace = kStep / 2;

/// `seen` is how much of the size has to be in the room.
int placeAlong(int last, int size, int seen, int roomStart, int roomSize) {
  const bool onScreen = last > 0 && last >= roomStart && last < roomStart + roomSize;
  return onScreen ? qMin(last, roomStart + roomSize - seen) : roomStart + (roomSize - size) / 2;
}

bool standsOnAnother(QPoint place, const QList<QPoint>& others) {
  return std::any_of(others.begin(), others.end(), [place](QPoint other) {
    return qAbs(place.x() - other.x()) <= kSamePlace && qAbs(place.y() - other.y()) <= kSamePlace;
  });
}

const QScreen& screenOfLast(const QWidget& window) {
  const QPoint last(Twips::toPixels(LastEditorLeft), Twips::toPixels(LastEditorTop));
  const QScreen* const there = last.isNull() ? nullptr : QGuiApplication::screenAt(last);
  return there != nullptr ? *there : *window.screen();
}

}  // namespace

QRect editorPlace(double leftTwips, double topTwips, QSize window, const QRect& room) {
  const QSize size = window.boundedTo(room.size());
  return {
      QPoint(placeAlong(Twips::toPixels(leftTwips), size.width(), qMin(size.width(), kGrip), room.left(), room.width()),
             placeAlong(Twips::toPixels(topTwips), size.height(), size.height(), room.top(), room.height())),
      size};
}

QRect editorPlaceBeside(const QRect& place, const QList<QPoint>& others, QSize smallest, const QRect& room) {
  QRect found = place;
  for (qsizetype steps = 0; steps <= others.size() && standsOnAnother(found.topLeft(), others); ++steps) {
    const QRect step = found.translated(kStep, kStep) & room;
    const bool isLarge = step.width() >= smallest.width() && step.height() >= smallest.height();
    found = isLarge ? step : QRect(room.topLeft(), place.size());
  }
  return found;
}

QMargins expectedFrame(const QWidget& window) {
  for (const QWidget* const other : QApplication::topLevelWidgets()) {
    const QMargins frame = other->isVisible() ? other->windowHandle()->frameMargins() : QMargins();
    if (!frame.isNull()) {
      return frame;
    }
  }
  return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window), 0, 0};
}

void placeEditor(QWidget& window, const QList<QPoint>& others) {
  const QRect room = screenOfLast(window).availableGeometry();
  const QMargins frame = expectedFrame(window);
  const QSize smallest = window.minimumSize().expandedTo(window.minimumSizeHint()).grownBy(frame);
  const QRect last = editorPlace(LastEditorLeft, LastEditorTop, window.size().grownBy(frame), room);
  const QRect place = editorPlaceBeside(last, others, smallest, room);
  const QSize inside = place.size().shrunkBy(frame);
  window.setMinimumSize(window.minimumSize().boundedTo(inside));
  window.resize(inside);
  window.move(place.topLeft());
}
