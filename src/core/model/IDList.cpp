#include "core/model/IDList.h"

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"

#include <algorithm>

namespace {

constexpr size_t kSearchedAsList = 32;

}  // namespace

bool IDList::contains(qint32 id) const {
  if (ids_.size() > kSearchedAsList) {
    return known_.count(id) != 0;
  }
  return std::find(ids_.begin(), ids_.end(), id) != ids_.end();
}

qint32 IDList::indexOf(qint32 id) const {
  const auto found = std::find(ids_.begin(), ids_.end(), id);
  return found == ids_.end() ? 0 : static_cast<qint32>(found - ids_.begin() + 1);
}

void IDList::checkPosition(qint32 position) const {
  if (position < 1 || static_cast<size_t>(position) > ids_.size()) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
}

qint32 IDList::at(qint32 position) const {
  checkPosition(position);
  return ids_[static_cast<size_t>(position) - 1];
}

qint32 IDList::atOrNone(qint32 position, const char* routine, const char* module) const {
  qint32 id = 0;
  Guard(routine, module)([&] { id = at(position); });
  return id;
}

void IDList::remember(qint32 id) {
  if (contains(id)) {
    throw RuntimeError(RuntimeError::DuplicateKey);
  }
  if (ids_.size() == kSearchedAsList) {
    known_.insert(ids_.begin(), ids_.end());
  }
  if (ids_.size() >= kSearchedAsList) {
    known_.insert(id);
  }
}

void IDList::append(qint32 id) {
  remember(id);
  ids_.push_back(id);
}

void IDList::insertBefore(qint32 id, qint32 position) {
  checkPosition(position);
  remember(id);
  ids_.insert(ids_.begin() + (position - 1), id);
}

void IDList::remove(qint32 id) {
  const qint32 position = indexOf(id);
  if (position > 0) {
    removeAt(position);
  }
}

void IDList::removeAt(qint32 position) {
  checkPosition(position);
  const auto at = ids_.begin() + (position - 1);
  known_.erase(*at);
  ids_.erase(at);
  if (ids_.size() <= kSearchedAsList) {
    known_.clear();
  }
}

void IDList::clear() {
  ids_.clear();
  known_.clear();
}
