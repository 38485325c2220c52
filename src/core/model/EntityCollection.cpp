#include "core/model/EntityCollection.h"

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/model/Collections.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsScene.h"

#include <algorithm>
#include <limits>

template <class Traits>
void EntityCollection<Traits>::Clear() {
  const std::vector<Pointer> leaving = std::move(entities_);
  entities_.clear();
  byID_.clear();
  renumbered_.clear();
  lowestFree_ = 1;
  maximum_ = 0;
  maximumStale_ = false;
  if constexpr (Traits::kClearsEach) {
    for (const Pointer& entity : leaving) {
      entity->Clear();
    }
  }
}

template <class Traits>
qint32 EntityCollection<Traits>::nextID() const {
  const qint32 highest = maximumID();
  if (highest < std::numeric_limits<qint32>::max()) {
    return highest + 1;
  }
  // From where the last search ended: for each of many entities from 1 on it would take ever longer.
  while (byID_.count(lowestFree_) != 0) {
    ++lowestFree_;
  }
  return lowestFree_;
}

/// The highest ID in the collection, 0 when it is empty.
template <class Traits>
qint32 EntityCollection<Traits>::maximumID() const {
  if (maximumStale_) {
    maximum_ = 0;
    for (const auto& [id, entity] : byID_) {
      maximum_ = std::max(maximum_, id);
    }
    maximumStale_ = false;
  }
  return maximum_;
}

template <class Traits>
void EntityCollection<Traits>::addRead(const std::vector<Pointer>& entities, qint32 highest) {
  maximum_ = std::max(maximum_, highest);
  for (const Pointer& entity : entities) {
    const qint32 id = idOf(entity);
    if (byID_.count(id) != 0) {
      entity->GenerateID();
      renumbered_.push_back({id, entity});
    }
    add(entity);
  }
}

template <class Traits>
auto EntityCollection<Traits>::byID(qint32 id) const -> Pointer {
  const auto found = byID_.find(id);
  return found == byID_.end() ? std::make_shared<Entity>() : found->second;
}

template <class Traits>
auto EntityCollection<Traits>::byIndex(qint32 index) const -> Pointer {
  if (index > Count()) {
    return nullptr;
  }
  Pointer result;
  Guard(Traits::kByIndex, Traits::kModule)([&] { result = entities_[position(index)]; });
  return result;
}

template <class Traits>
bool EntityCollection<Traits>::add(const Pointer& entity) {
  return insert(entity, Count() + 1, Traits::kAdd);
}

template <class Traits>
bool EntityCollection<Traits>::insert(const Pointer& entity, qint32 before, const char* routine) {
  return Guard(routine, Traits::kModule)([&] {
    const qint32 id = idOf(entity);
    const auto at = before > Count() ? entities_.size() : position(before);
    if (!byID_.emplace(id, entity).second) {
      throw RuntimeError(RuntimeError::DuplicateKey);
    }
    entities_.insert(entities_.begin() + static_cast<std::ptrdiff_t>(at), entity);
    maximum_ = std::max(maximum_, id);
  });
}

template <class Traits>
bool EntityCollection<Traits>::assign(qint32 index, const Pointer& entity) {
  if (index > Count()) {
    return insert(entity, index, Traits::kByIndex);
  }
  return Guard(Traits::kByIndex, Traits::kModule)([&] {
    Pointer& place = entities_[position(index)];
    const qint32 id = idOf(entity);
    if (const auto known = byID_.find(id); known != byID_.end() && known->second != place) {
      throw RuntimeError(RuntimeError::DuplicateKey);
    }
    forget(place);
    byID_[id] = entity;
    place = entity;
  });
}

template <class Traits>
bool EntityCollection<Traits>::removeID(qint32 id) {
  return Guard(Traits::kRemoveByID, Traits::kModule)([&] {
    const auto found = byID_.find(id);
    if (found == byID_.end()) {
      throw RuntimeError(RuntimeError::InvalidCall);
    }
    entities_.erase(std::find(entities_.begin(), entities_.end(), found->second));
    byID_.erase(found);
    lowestFree_ = 1;
    maximumStale_ = true;
  });
}

template <class Traits>
void EntityCollection<Traits>::removeIndex(qint32 index) {
  Guard(Traits::kRemoveByIndex, Traits::kModule)([&] {
    const size_t at = position(index);
    forget(entities_[at]);
    entities_.erase(entities_.begin() + static_cast<std::ptrdiff_t>(at));
  });
}

/// A position above the count gives no object, and somebody may add what they got.
template <class Traits>
qint32 EntityCollection<Traits>::idOf(const Pointer& entity) {
  if (!entity) {
    throw RuntimeError(RuntimeError::NoObject);
  }
  return entity->ID();
}

template <class Traits>
size_t EntityCollection<Traits>::position(qint32 index) const {
  if (index < 1 || index > Count()) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return static_cast<size_t>(index) - 1;
}

template <class Traits>
void EntityCollection<Traits>::forget(const Pointer& entity) {
  const auto found =
      std::find_if(byID_.begin(), byID_.end(), [&](const auto& entry) { return entry.second == entity; });
  if (found != byID_.end()) {
    byID_.erase(found);
  }
  lowestFree_ = 1;
  maximumStale_ = true;
}

// What reads and writes them is instantiated where the tags are known.
template class EntityCollection<SceneTraits>;
template class EntityCollection<ChapterTraits>;
template class EntityCollection<CharacterTraits>;
template class EntityCollection<LocationTraits>;
template class EntityCollection<ItemTraits>;
template class EntityCollection<NoteTraits>;
