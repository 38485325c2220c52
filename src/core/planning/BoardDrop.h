#pragma once

#include "core/planning/BoardTables.h"

/// What it does to the open book when a card of the storyboard is put down in another cell.
namespace BoardDrop {

struct Change {
  bool viewpoint = false;
  bool place = false;
};

/// Another row gives the scene its viewpoint, in the place of the former one; another column moves it in front of the
/// scene there, or behind it where it came from the left within a chapter. A row or column that the book doesn't have
/// changes nothing.
Change drop(const BoardTables& tables, BoardGrid::Cell from, BoardGrid::Cell to);

}  // namespace BoardDrop
