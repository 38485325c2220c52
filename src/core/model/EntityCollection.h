#pragma once

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_map>
#include <vector>

/// The ordered, keyed collection behind the six kinds of entity. It owns its entities; the key is the ID that an
/// entity had when it was added. Positions count from 1. The collections give it their own names.
template <class Entity>
class EntityCollection {
 public:
  using Pointer = std::shared_ptr<Entity>;

  qint32 Count() const { return static_cast<qint32>(entities_.size()); }

  typename std::vector<Pointer>::const_iterator begin() const { return entities_.begin(); }
  typename std::vector<Pointer>::const_iterator end() const { return entities_.end(); }

  /// The ID that a new entity takes: the one behind the highest, or the lowest free one when there is none behind.
  qint32 nextID() const {
    const qint32 highest = maximumID();
    if (highest < std::numeric_limits<qint32>::max()) {
      return highest + 1;
    }
    qint32 free = 1;
    while (byID_.count(free) != 0) {
      ++free;
    }
    return free;
  }

  /// The highest ID in the collection, 0 when it is empty.
  qint32 maximumID() const {
    if (maximumStale_) {
      maximum_ = 0;
      for (const auto& [id, entity] : byID_) {
        maximum_ = std::max(maximum_, id);
      }
      maximumStale_ = false;
    }
    return maximum_;
  }

 protected:
  ~EntityCollection() = default;

  /// Never fails: an unknown ID gives a new blank entity that is in no collection.
  Pointer byID(qint32 id) const {
    const auto found = byID_.find(id);
    return found == byID_.end() ? std::make_shared<Entity>() : found->second;
  }

  /// No object above the count; below 1 the failure is logged and there is no object either.
  Pointer byIndex(qint32 index, const char* routine, const char* module) const {
    if (index > Count()) {
      return nullptr;
    }
    Pointer result;
    const Guard guard(routine, module);
    guard([&] { result = entities_.at(position(index)); });
    return result;
  }

  /// Assigns an ID where there is none. False, and logged, when the ID is there already.
  bool add(const Pointer& entity, const char* routine, const char* module) {
    return insert(entity, Count() + 1, routine, module);
  }

  /// Before the position; at the end when that is above the count.
  bool insert(const Pointer& entity, qint32 before, const char* routine, const char* module) {
    const Guard guard(routine, module);
    return guard([&] {
      const qint32 id = idOf(entity);
      const auto at = before > Count() ? entities_.size() : position(before);
      if (!byID_.emplace(id, entity).second) {
        throw RuntimeError(RuntimeError::DuplicateKey);
      }
      entities_.insert(entities_.begin() + static_cast<std::ptrdiff_t>(at), entity);
      maximum_ = std::max(maximum_, id);
    });
  }

  /// Replaces the entity at an index; above the count it is an add. False, and logged, when that failed.
  bool assign(qint32 index, const Pointer& entity, const char* routine, const char* module) {
    if (index > Count()) {
      return add(entity, routine, module);
    }
    const Guard guard(routine, module);
    return guard([&] {
      Pointer& place = entities_.at(position(index));
      const qint32 id = idOf(entity);
      if (const auto known = byID_.find(id); known != byID_.end() && known->second != place) {
        throw RuntimeError(RuntimeError::DuplicateKey);
      }
      forget(place);
      byID_[id] = entity;
      place = entity;
      maximumStale_ = true;
    });
  }

  /// False, and logged, for an unknown ID.
  bool removeID(qint32 id, const char* routine, const char* module) {
    const Guard guard(routine, module);
    return guard([&] {
      const auto found = byID_.find(id);
      if (found == byID_.end()) {
        throw RuntimeError(RuntimeError::InvalidCall);
      }
      entities_.erase(std::find(entities_.begin(), entities_.end(), found->second));
      byID_.erase(found);
      maximumStale_ = true;
    });
  }

  void removeIndex(qint32 index, const char* routine, const char* module) {
    const Guard guard(routine, module);
    guard([&] {
      const size_t at = position(index);
      forget(entities_.at(at));
      entities_.erase(entities_.begin() + static_cast<std::ptrdiff_t>(at));
    });
  }

  void removeAll() {
    entities_.clear();
    byID_.clear();
    maximum_ = 0;
    maximumStale_ = false;
  }

  /// `Clear` of each entity, first to last, and out with it.
  void clearEach() {
    const std::vector<Pointer> leaving = std::move(entities_);
    removeAll();
    for (const Pointer& entity : leaving) {
      entity->Clear();
    }
  }

 private:
  /// A position above the count gives no object, and somebody may add what they got.
  static qint32 idOf(const Pointer& entity) {
    if (!entity) {
      throw RuntimeError(RuntimeError::NoObject);
    }
    return entity->ID();
  }

  size_t position(qint32 index) const {
    if (index < 1 || index > Count()) {
      throw RuntimeError(RuntimeError::OutOfBounds);
    }
    return static_cast<size_t>(index) - 1;
  }

  void forget(const Pointer& entity) {
    const auto found =
        std::find_if(byID_.begin(), byID_.end(), [&](const auto& entry) { return entry.second == entity; });
    if (found != byID_.end()) {
      byID_.erase(found);
    }
    maximumStale_ = true;
  }

  std::vector<Pointer> entities_;
  std::unordered_map<qint32, Pointer> byID_;
  mutable qint32 maximum_ = 0;
  mutable bool maximumStale_ = false;
};
