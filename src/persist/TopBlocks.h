#pragma once

#include "text/Tags.h"

#include <array>

/// What Tags::ExtractWithTags gives for each of several tags over the same text, found in one pass over it.
template <std::size_t N>
std::array<QByteArrayView, N> extractTopBlocks(QByteArrayView text, const std::array<Tag, N>& tags) {
  std::array<qsizetype, N> opened;
  opened.fill(-1);
  std::size_t missing = N;
  for (qsizetype at = Tags::find(text, "<"); at >= 0 && missing > 0; at = Tags::find(text, "<", at + 1)) {
    for (std::size_t i = 0; i < N; ++i) {
      if (opened[i] < 0 && Tags::startsWith(text.sliced(at), tags[i].open)) {
        opened[i] = at;
        --missing;
      }
    }
  }
  std::array<QByteArrayView, N> blocks;
  for (std::size_t i = 0; i < N; ++i) {
    if (opened[i] >= 0) {
      blocks[i] = Tags::ExtractWithTags(text.sliced(opened[i]), tags[i]);
    }
  }
  return blocks;
}
