#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the last editor stood when it saved, in twips; all editors share it.
extern double LastEditorLeft;
extern double LastEditorTop;

/// The corner of a window of this size, in pixels: where the last one stood when that is still on the screen,
/// else such that it is centred. The two directions are settled apart.
QPoint editorPlace(double leftTwips, double topTwips, QSize window, const QRect& screen);
