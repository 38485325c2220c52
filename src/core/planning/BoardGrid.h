#pragma once

#include <QtGlobal>

/// The arithmetic of the storyboard: a grid with a column for each scene and a row for each viewpoint. Everything is in
/// twips; columns and rows of the book count from 1, places on the screen from 0. The first cell of a row on the screen
/// is the name of its viewpoint, the cards begin behind it.
namespace BoardGrid {

inline constexpr double kCellWidth = 1800;
inline constexpr double kCellHeight = 1300;
inline constexpr double kCardWidth = 1620;
inline constexpr double kCardHeight = 1170;
/// Above row 1, where the chapters' numbers stand.
inline constexpr double kRowTop = 350;
inline constexpr double kMinimumWidth = 4400;
inline constexpr double kMinimumHeight = 4000;
inline constexpr double kFrameTop = 70;
/// Where a board lies that isn't scrolled.
inline constexpr double kRest = -5;
/// However wide the screen: with the one that is dragged there are never more than 60 cards.
inline constexpr int kMostPlaces = 59;

struct Point {
  double x = 0;
  double y = 0;
};

struct Cell {
  qint32 column = 0;
  qint32 row = 0;

  bool operator==(const Cell&) const = default;
};

/// Cards that are begun in a frame of this width, and those that are seen whole.
int visibleColumns(double frameWidth);
int wholeColumns(double frameWidth);
int rowsInView(double frameHeight);
int wholeRows(double frameHeight);
/// The largest values of the two scroll bars: with them the last cards are seen whole.
int lastFirstColumn(int columns, double frameWidth);
int lastFirstRow(int rows, double frameHeight);

/// How many pictures it takes to show each card whole, one behind the other.
int screenshots(int columns, int whole);

double boardWidth(double frameWidth);
double boardHeight(int rows);
Point cardAt(int place, int row);
/// Whose card has its corner nearest to this one. A column left of the first that is seen is that one; rows and columns
/// that the book doesn't have are the caller's.
Cell cellOf(Point card, int firstColumn);
double barTop(int row);
/// Of the line of a name.
double nameTop(int row);
double chapterLine(int place);
/// Where a board of this size lies that wants to lie there: without a gap in its frame.
double fitted(double wanted, double board, double frame);

/// The colour of a row's bar and cards, in blue-green-red order.
quint32 rowColour(int row);

}  // namespace BoardGrid
