#include "core/planning/BoardGrid.h"

#include "core/planning/Rgb.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kBoardMore = 200;
constexpr double kExtraHeight = 500;
constexpr double kBarShare = 0.3;
constexpr double kNameShare = 0.35;
constexpr double kNameBelow = 50;

constexpr std::array kRowColours{rgb(0, 0, 255),   rgb(192, 0, 0),     rgb(128, 0, 128), rgb(0, 128, 0),
                                 rgb(255, 128, 0), rgb(255, 192, 255), rgb(0, 176, 0),   rgb(128, 64, 0),
                                 rgb(255, 255, 0), rgb(0, 255, 255),   rgb(255, 0, 0)};

/// Halves to the even number.
int rounded(double value) {
  return static_cast<int>(std::nearbyint(value));
}

}  // namespace

namespace BoardGrid {

int visibleColumns(double frameWidth) {
  return std::clamp(rounded(frameWidth / kCellWidth), 0, kMostPlaces);
}

int wholeColumns(double frameWidth) {
  return std::clamp(static_cast<int>(frameWidth / kCellWidth) - 1, 1, kMostPlaces);
}

int rowsInView(double frameHeight) {
  return static_cast<int>(frameHeight / kCellHeight);
}

int wholeRows(double frameHeight) {
  return std::max(static_cast<int>((frameHeight - cardAt(0, 1).y - kCardHeight) / kCellHeight) + 1, 1);
}

int lastFirstColumn(int columns, double frameWidth) {
  return std::max(std::max(columns - visibleColumns(frameWidth), 1) + 1, columns - wholeColumns(frameWidth));
}

int lastFirstRow(int rows, double frameHeight) {
  return std::max(rows - wholeRows(frameHeight), 1);
}

int screenshots(int columns, int whole) {
  return (columns + whole - 1) / whole;
}

double boardWidth(double frameWidth) {
  return frameWidth + kBoardMore;
}

double boardHeight(int rows) {
  return rows * kCellHeight + kExtraHeight;
}

Point cardAt(int place, int row) {
  return {(place + 1) * kCellWidth + (kCellWidth - kCardWidth) / 2,
          (row - 1) * kCellHeight + kRowTop + (kCellHeight - kCardHeight) / 5};
}

Cell cellOf(Point card, int firstColumn) {
  return {std::max(rounded(card.x / kCellWidth), 1) + firstColumn, rounded(card.y / kCellHeight + 1)};
}

double barTop(int row) {
  return (row - 1 + kBarShare) * kCellHeight + kRowTop;
}

double nameTop(int row) {
  return (row - 1 + kNameShare) * kCellHeight + kRowTop + kNameBelow;
}

double chapterLine(int place) {
  return (place + 1) * kCellWidth;
}

double fitted(double wanted, double board, double frame) {
  const double top = std::min(std::max(wanted, frame - board), 0.0);
  return top == 0 ? kRest : top;
}

quint32 rowColour(int row) {
  return kRowColours[static_cast<size_t>(std::max(row - 1, 0)) % kRowColours.size()];
}

}  // namespace BoardGrid
