#pragma once

#include "spell/clsHashNodes.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <array>
#include <vector>

/// One record: change tracking goes by ID, word frequency by text.
struct HashRecord {
  static constexpr int kAreas = 5;

  qint32 ID = 0;
  std::array<bool, kAreas> Changed{};
  bool Locked = false;
  qint32 Count = 0;
  qint32 Value = 0;
  QString Text;
  bool Deleted = false;
};

/// The windows that poll the change tables.
enum class ChangeArea { MainWindow = 1, SceneList = 2, Storyboard = 4 };

/// A chained hash table of small records, keyed by ID or by text. Records are numbered from 1 to HighWater; a
/// removed one leaves a gap that the next insertion fills. A record's number is stable while it lives.
class clsHashTable {
 public:
  void AddToCount(qint32 id) { AddAmtToCount(id, 1); }
  void AddAmtToCount(qint32 id, qint32 amount);
  void AddToValue(QStringView text);
  void SetText(qint32 id, const QString& text);
  /// Removes the record; an unknown ID is ignored.
  void ResetCount(qint32 id);

  bool IsLocked(qint32 id) const;
  /// False for an unknown ID. An area outside 1 to 5 throws RuntimeError 9, whether or not the record exists;
  /// so do the two resets by area.
  bool HasChanged(qint32 id, int area) const;
  bool HasChanged(qint32 id, ChangeArea area) const { return HasChanged(id, static_cast<int>(area)); }
  void ResetChangedByArea(int area);
  void ResetChanged(qint32 id, int area);
  void ResetChanged(qint32 id, ChangeArea area) { ResetChanged(id, static_cast<int>(area)); }
  void ResetAllChanged(qint32 id);

  void LockRec(qint32 id);
  void UnLockRec(qint32 id);
  void MarkUpdated(qint32 id);
  void MarkDeleted(qint32 id);

  /// Finds the record and clears Deleted, or adds one; `index` is its number.
  void InsertRecord(qint32 id, qint32& index);
  void Init();
  void ClearArrays();

  /// The highest record number in use.
  qint32 HighWater() const { return highWater_; }
  void setHighWater(qint32 index);
  /// A copy of the record with this number; throws RuntimeError 9 outside 1 to the table's size.
  HashRecord Record(qint32 index) const;
  /// True when a record of the table is locked.
  bool AnyLocked() const { return lockedCount_ > 0; }

 private:
  static constexpr qint32 kMiss = -1;
  enum class Key : quint8 { None, ID, Text };

  void ensureInitialised();
  qint16 bucketOf(const QByteArray& key) const;
  QByteArray keyOf(qint32 index) const;
  template <class Same>
  qint32 findInBucket(qint16 bucket, Key kind, Same same) const;
  qint32 find(qint32 id) const;
  qint32 findOrInsert(qint32 id);
  qint32 insert(HashRecord record, Key kind, const QByteArray& key);
  void growBuckets();
  HashRecord& at(qint32 index) { return records_[static_cast<size_t>(index)]; }
  const HashRecord& at(qint32 index) const { return records_[static_cast<size_t>(index)]; }
  static size_t areaIndex(int area);

  std::vector<HashRecord> records_;
  std::vector<qint32> nextInChain_;
  std::vector<qint32> buckets_;
  /// How each record is keyed; None for a free cell.
  std::vector<Key> keyedBy_;
  clsHashNodes nodes_;
  qint16 bucketCount_ = 0;
  float growthFactor_ = 1.5F;
  qint32 highWater_ = 0;
  qint32 liveCount_ = 0;
  qint32 lockedCount_ = 0;
  bool initialised_ = false;
};
