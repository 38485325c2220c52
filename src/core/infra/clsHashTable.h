#pragma once

#include "core/infra/clsHashNodes.h"

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
/// removed one leaves a gap that the next insertion fills. A record's number is stable while it lives. The buckets
/// grow fourfold whenever there are as many records, so that a look-up takes the same time at any size; that costs
/// each record about a third of a hashing more, all told. IDs that are given out in order are small numbers: those
/// need no bucket and are found by an array.
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
  bool AnyLocked() const { return marked_[kLockedBit] > 0; }
  /// The IDs that have changed for an area, or that are locked, in the order of their records. Nothing is looked at
  /// when none is.
  std::vector<qint32> changedIDs(int area) const { return marked(areaFlag(area)); }
  std::vector<qint32> changedIDs(ChangeArea area) const { return changedIDs(static_cast<int>(area)); }
  std::vector<qint32> lockedIDs() const { return marked(kLocked); }

 private:
  static constexpr qint32 kMiss = -1;
  /// IDs from 0 to below this are small.
  static constexpr quint32 kSmallIDs = 1U << 20;
  static constexpr quint8 kAllChanged = (1 << HashRecord::kAreas) - 1;
  static constexpr int kLockedBit = HashRecord::kAreas;
  static constexpr quint8 kLocked = 1 << kLockedBit;
  enum class Key : quint8 { None, ID, Text };
  /// A step of a chain, with what tells the record that it leads to, so that a record that is passed over is not
  /// looked at.
  struct Link {
    /// The ID itself, or the hash of the text.
    quint32 check = 0;
    /// The record's number, negative when it is keyed by text; 0 ends the chain.
    qint32 record = 0;
  };

  void ensureInitialised();
  size_t chainOf(const char* key, quint32 check) const;
  size_t chainOf(qint32 id) const;
  size_t chainOf(QStringView text, quint32 check) const;
  qint32 find(qint32 id) const;
  qint32 find(QStringView text, quint32 check) const;
  qint32 findOrInsert(qint32 id);
  qint32 newNode();
  void link(qint32 node);
  void linkInChain(qint32 node);
  void unlink(qint32 node);
  qint32 insert(HashRecord record, Key kind);
  void growBuckets();
  Link& linkOf(qint32 index) { return links_[static_cast<size_t>(index)]; }
  const Link& linkOf(qint32 index) const { return links_[static_cast<size_t>(index)]; }
  static bool isSmall(qint32 id) { return static_cast<quint32>(id) < kSmallIDs; }
  qint32& bySmallID(qint32 id);
  Key& kindOf(qint32 index) { return keyedBy_[static_cast<size_t>(index)]; }
  HashRecord& at(qint32 index) { return records_[static_cast<size_t>(index)]; }
  const HashRecord& at(qint32 index) const { return records_[static_cast<size_t>(index)]; }
  quint8 flagsOf(qint32 index) const { return flags_[static_cast<size_t>(index)]; }
  void setFlags(qint32 index, quint8 flags);
  void raiseFlags(qint32 index, quint8 flags) { setFlags(index, flagsOf(index) | flags); }
  void lowerFlags(qint32 index, quint8 flags) { setFlags(index, static_cast<quint8>(flagsOf(index) & ~flags)); }
  std::vector<qint32> marked(quint8 flag) const;
  /// The bit of an area among a record's flags.
  static quint8 areaFlag(int area);

  /// Without their flags.
  std::vector<HashRecord> records_;
  /// Changed and Locked of each record, side by side: they are what is polled.
  std::vector<quint8> flags_;
  /// How many records have each of these flags.
  std::array<qint32, HashRecord::kAreas + 1> marked_{};
  /// The next in the chain, for each record.
  std::vector<Link> links_;
  /// How each record is keyed; None for a free cell.
  std::vector<Key> keyedBy_;
  /// The heads of the chains: one for each bucket, or 2 to the power of splitBits_ of them.
  std::vector<Link> buckets_;
  /// The record of each small ID, 0 for none.
  std::vector<qint32> bySmallID_;
  clsHashNodes nodes_;
  qint16 bucketCount_ = 0;
  unsigned splitBits_ = 0;
  float growthFactor_ = 1.5F;
  qint32 highWater_ = 0;
  qint32 liveCount_ = 0;
  bool initialised_ = false;
};
