#pragma once

#include <QtGlobal>

#include <unordered_set>
#include <vector>

/// An ordered list of entity IDs in which no ID stands twice. Positions count from 1.
class IDList {
 public:
  qint32 Count() const { return static_cast<qint32>(ids_.size()); }
  bool isEmpty() const { return ids_.empty(); }
  bool contains(qint32 id) const;
  /// 1-based position; 0 when the ID isn't listed.
  qint32 indexOf(qint32 id) const;
  /// Throws RuntimeError 9 outside 1 to Count.
  qint32 at(qint32 position) const;
  /// The same for a routine that never fails: 0 outside, and that is logged under its name.
  qint32 atOrNone(qint32 position, const char* routine, const char* module) const;

  /// Throws RuntimeError 457 when the ID is listed already.
  void append(qint32 id);
  /// Before the position; throws RuntimeError 457 for a listed ID, 9 for a position outside 1 to Count.
  void insertBefore(qint32 id, qint32 position);
  /// An ID that isn't listed is ignored.
  void remove(qint32 id);
  void removeAt(qint32 position);
  void clear();

  std::vector<qint32>::const_iterator begin() const { return ids_.begin(); }
  std::vector<qint32>::const_iterator end() const { return ids_.end(); }

 private:
  void checkPosition(qint32 position) const;
  void remember(qint32 id);

  std::vector<qint32> ids_;
  /// Filled only for long lists: most hold a handful and are searched faster as they are.
  std::unordered_set<qint32> known_;
};
