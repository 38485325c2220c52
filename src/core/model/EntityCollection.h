#pragma once

#include <QtGlobal>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

class OlderFiles;
class TagView;

/// The ordered, keyed collection behind the six kinds of entity. It owns its entities; the key is the ID that an
/// entity had when it was added. Positions count from 1.
///
/// A look-up by ID never fails: an unknown ID gives a new blank object in no collection. By index there is no object
/// above the count. An add of an ID that is there already is logged and nothing else. What is logged stands under the
/// names in the traits, which say what a kind is and what its operations are called.
template <class Traits>
class EntityCollection {
 public:
  using Entity = typename Traits::Entity;
  using Pointer = std::shared_ptr<Entity>;

  qint32 Count() const { return static_cast<qint32>(entities_.size()); }

  typename std::vector<Pointer>::const_iterator begin() const { return entities_.begin(); }
  typename std::vector<Pointer>::const_iterator end() const { return entities_.end(); }

  /// Empties the collection; the entities that leave are cleared first to last where the kind says so.
  void Clear();
  /// Prints the block to an open file. When that isn't one it says so in the log, prints nothing and is true all the
  /// same; a failure while printing makes it false and goes on.
  bool WriteXML(int file) const;
  /// Replaces the content by that of a block; the first error ends it with false. An entity whose ID is taken gets
  /// another one.
  bool CreateFromXML(const TagView& block);
  /// The same by a list file of a generation-3 project; what its entries name and isn't there is logged and left out.
  /// False when the list isn't there.
  bool ImportQN3(const QString& File, OlderFiles& from);

  /// An entity that was read and whose ID another one had.
  struct Renumbered {
    qint32 former;
    Pointer entity;
  };
  const std::vector<Renumbered>& renumbered() const { return renumbered_; }

  /// The ID that a new entity takes: the one behind the highest, or the lowest free one when there is none behind.
  qint32 nextID() const;

 protected:
  ~EntityCollection() = default;

  /// Adds what was read, in its order. `highest` is the highest ID among it, so that no new one meets a later one.
  void addRead(const std::vector<Pointer>& entities, qint32 highest);
  Pointer byID(qint32 id) const;
  /// Below 1 the failure is logged and there is no object either.
  Pointer byIndex(qint32 index) const;
  /// Assigns an ID where there is none. False, and logged, when the ID is there already.
  bool add(const Pointer& entity);
  /// Before the position; at the end when that is above the count.
  bool insert(const Pointer& entity, qint32 before, const char* routine);
  /// Replaces the entity at an index; above the count it is an add. False, and logged, when that failed.
  bool assign(qint32 index, const Pointer& entity);
  /// False, and logged, for an unknown ID.
  bool removeID(qint32 id);
  void removeIndex(qint32 index);
  /// Entities that come out the same stay as they stood.
  template <class Before>
  void sort(Before before) {
    std::stable_sort(entities_.begin(), entities_.end(), before);
  }

 private:
  static qint32 idOf(const Pointer& entity);
  qint32 maximumID() const;
  size_t position(qint32 index) const;
  void forget(const Pointer& entity);

  std::vector<Pointer> entities_;
  std::vector<Renumbered> renumbered_;
  std::unordered_map<qint32, Pointer> byID_;
  /// Every ID below it is taken.
  mutable qint32 lowestFree_ = 1;
  mutable qint32 maximum_ = 0;
  mutable bool maximumStale_ = false;
};
