#pragma once

#include <QList>
#include <QMargins>
#include <QRect>
#include <QSize>

class QWidget;

/// Where the last editor stood when it saved, in twips; all editors share it.
extern double LastEditorLeft;
extern double LastEditorTop;

/// Where a window of this size goes, in pixels and with its frame: where the last one stood when that is still on
/// the screen, else such that it is centred. The two directions are settled apart. One that is larger than the room
/// that the screen has for windows becomes smaller. All of a centred window is in the room, and of any other all from
/// top to bottom and a grip of its title bar.
QRect editorPlace(double leftTwips, double topTwips, QSize window, const QRect& room);

/// The same place, unless another window stands exactly there: then a step right and below it, as often as that is so.
/// All of the window stays in the room then. Where it would stand out it becomes smaller, down to the smallest size
/// that it can have; where that doesn't help either it goes to the corner of the room. Sizes are with the frame.
QRect editorPlaceBeside(const QRect& place, const QList<QPoint>& others, QSize smallest, const QRect& room);

/// What the desktop will put around a window that isn't on the screen yet: what it has put around another one of
/// ours, else what the style supposes.
QMargins expectedFrame(const QWidget& window);

/// Moves a window that is going to be shown to its place and within the room of its screen, on none of the others.
void placeEditor(QWidget& window, const QList<QPoint>& others);
