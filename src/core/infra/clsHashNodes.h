#pragma once

#include <QtGlobal>

#include <vector>

/// Hands out the indices of free cells, from 1, through a linked list; grows when none is left.
class clsHashNodes {
 public:
  void Init(qint32 size, float growth);
  qint32 Alloc();
  /// The cell is the next one to be handed out again.
  void Free(qint32 node);

 private:
  void linkCells(qint32 from, qint32 to);

  std::vector<qint32> nextFree_;
  qint32 freeHead_ = 0;
  float growthFactor_ = 1.5F;
};
