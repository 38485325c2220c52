#include "gui/editor/EditorPlacement.h"

#include "gui/toolkit/Twips.h"

double LastEditorLeft = 0;
double LastEditorTop = 0;

namespace {

int placeAlong(int last, int size, int screenStart, int screenSize) {
  const bool onScreen = last > 0 && last >= screenStart && last < screenStart + screenSize;
  return onScreen ? last : screenStart + qMax(0, (screenSize - size) / 2);
}

}  // namespace

QPoint editorPlace(double leftTwips, double topTwips, QSize window, const QRect& screen) {
  return {placeAlong(Twips::toPixels(leftTwips), window.width(), screen.left(), screen.width()),
          placeAlong(Twips::toPixels(topTwips), window.height(), screen.top(), screen.height())};
}
