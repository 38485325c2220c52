#include "core/infra/clsHashNodes.h"

#include <algorithm>
#include <cmath>

void clsHashNodes::Init(qint32 size, float growth) {
  growthFactor_ = growth;
  nextFree_.assign(static_cast<size_t>(size) + 1, 0);
  linkCells(1, size);
  freeHead_ = 1;
}

void clsHashNodes::linkCells(qint32 from, qint32 to) {
  for (qint32 i = from; i <= to; ++i) {
    nextFree_[static_cast<size_t>(i)] = i < to ? i + 1 : 0;
  }
}

qint32 clsHashNodes::Alloc() {
  if (freeHead_ == 0) {
    const auto top = static_cast<qint32>(nextFree_.size()) - 1;
    const auto grown = std::max(top + 1, static_cast<qint32>(std::lround(static_cast<float>(top) * growthFactor_)));
    nextFree_.resize(static_cast<size_t>(grown) + 1);
    linkCells(top + 1, grown);
    freeHead_ = top + 1;
  }
  const qint32 node = freeHead_;
  freeHead_ = nextFree_[static_cast<size_t>(node)];
  return node;
}

void clsHashNodes::Free(qint32 node) {
  nextFree_[static_cast<size_t>(node)] = freeHead_;
  freeHead_ = node;
}
