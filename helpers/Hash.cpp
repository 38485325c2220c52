#include "Export.h"

#include <cstdint>

/// The bucket, from 0 to `buckets`, of a NUL-ended key. Equal keys give equal buckets (FNV-1a, folded).
QUILLANE_EXPORT std::int16_t cHash(const char* key, std::int16_t buckets) {
  std::uint32_t hash = 2166136261U;
  for (; *key != '\0'; ++key) {
    hash = (hash ^ static_cast<unsigned char>(*key)) * 16777619U;
  }
  hash ^= hash >> 16;
  const std::uint32_t range = buckets < 0 ? 1U : static_cast<std::uint32_t>(buckets) + 1U;
  return static_cast<std::int16_t>(hash % range);
}
