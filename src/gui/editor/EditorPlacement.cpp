#include "gui/editor/EditorPlacement.h"

#include "gui/toolkit/Twips.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

double LastEditorLeft = 0;
double LastEditorTop = 0;

namespace {

/// What of a title bar is enough to take hold of the window.
constexpr int kGrip = 200;

/// `seen` is how much of the size has to be in the room.
int placeAlong(int last, int size, int seen, int roomStart, int roomSize) {
  const bool onScreen = last > 0 && last >= roomStart && last < roomStart + roomSize;
  return onScreen ? qMin(last, roomStart + roomSize - seen) : roomStart + (roomSize - size) / 2;
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

QMargins expectedFrame(const QWidget& window) {
  for (const QWidget* const other : QApplication::topLevelWidgets()) {
    const QMargins frame = other->isVisible() ? other->windowHandle()->frameMargins() : QMargins();
    if (!frame.isNull()) {
      return frame;
    }
  }
  return {0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window), 0, 0};
}

void placeEditor(QWidget& window) {
  const QRect room = screenOfLast(window).availableGeometry();
  const QMargins frame = expectedFrame(window);
  const QRect place = editorPlace(LastEditorLeft, LastEditorTop, window.size().grownBy(frame), room);
  const QSize inside = place.size().shrunkBy(frame);
  window.setMinimumSize(window.minimumSize().boundedTo(inside));
  window.resize(inside);
  window.move(place.topLeft());
}
