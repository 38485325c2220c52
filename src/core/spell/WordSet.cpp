#include "core/spell/WordSet.h"

#include "core/infra/RuntimeError.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

namespace {

constexpr size_t kFirstSlots = 64;

quint32 hashOf(QByteArrayView bytes) {
  return static_cast<quint32>(qHashBits(bytes.data(), static_cast<size_t>(bytes.size())));
}

/// Copies ASCII in small letters; false, with the copy half done, when something else is among it.
template <class Unit>
bool foldAscii(const Unit* from, qsizetype count, char* to) {
  uint all = 0;
  for (qsizetype i = 0; i < count; ++i) {
    const uint unit = static_cast<std::make_unsigned_t<Unit>>(from[i]);
    all |= unit;
    const bool isCapital = unit - 'A' <= 'Z' - 'A';
    to[i] = static_cast<char>(unit | (isCapital ? 0x20U : 0U));
  }
  return all < 0x80;
}

}  // namespace

WordKey::WordKey(QStringView word) : bytes_(word.size()) {
  if (!foldAscii(word.utf16(), word.size(), bytes_.data())) {
    foldAll(word.toString());
  }
  hash_ = hashOf(bytes_);
}

WordKey::WordKey(QByteArrayView word) : bytes_(word.size()) {
  if (!foldAscii(word.data(), word.size(), bytes_.data())) {
    foldAll(QString::fromUtf8(word));
  }
  hash_ = hashOf(bytes_);
}

void WordKey::foldAll(const QString& word) {
  const QByteArray folded = word.toCaseFolded().toUtf8();
  bytes_.clear();
  bytes_.append(folded.constData(), folded.size());
}

size_t WordSet::placeOf(const WordKey& key) const {
  const size_t mask = slots_.size() - 1;
  const auto length = static_cast<size_t>(key.bytes().size());
  size_t place = key.hash() & mask;
  for (; slots_[place].length != 0; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.hash == key.hash() && slot.length == length &&
        std::memcmp(letters_.data() + slot.start, key.bytes().data(), length) == 0) {
      break;
    }
  }
  return place;
}

bool WordSet::contains(const WordKey& key) const {
  return size_ != 0 && slots_[placeOf(key)].length != 0;
}

bool WordSet::insert(const WordKey& key) {
  const QByteArrayView word = key.bytes();
  if (word.isEmpty()) {
    return false;
  }
  reserve(size_ + 1);
  Slot& slot = slots_[placeOf(key)];
  if (slot.length != 0) {
    return false;
  }
  if (letters_.size() + static_cast<size_t>(word.size()) > std::numeric_limits<quint32>::max()) {
    throw RuntimeError(RuntimeError::OutOfMemory);
  }
  slot = {key.hash(), static_cast<quint32>(letters_.size()), static_cast<quint32>(word.size())};
  letters_.insert(letters_.end(), word.begin(), word.end());
  ++size_;
  return true;
}

void WordSet::reserve(size_t words) {
  // At most two thirds of the slots are taken, so that the way to a free one is short.
  const size_t needed = words + words / 2 + 1;
  if (needed > slots_.size()) {
    rehash(std::max(kFirstSlots, std::bit_ceil(needed)));
  }
}

void WordSet::rehash(size_t slots) {
  std::vector<Slot> old(slots);
  old.swap(slots_);
  const size_t mask = slots - 1;
  for (const Slot& slot : old) {
    if (slot.length == 0) {
      continue;
    }
    size_t place = slot.hash & mask;
    while (slots_[place].length != 0) {
      place = (place + 1) & mask;
    }
    slots_[place] = slot;
  }
}
