#include "spell/clsHashTable.h"

#include "infra/CodePage.h"
#include "infra/HelperLibrary.h"
#include "infra/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qint16 kFirstBucketCount = 500;
/// Bucket numbers have 16 bits; the chains grow only beyond this.
constexpr qint16 kMostBuckets = 32000;
constexpr qint32 kFirstCapacity = 100;
/// The average chain at which the buckets grow.
constexpr qint32 kChainLimit = 4;

using HashRoutine = qint16 (*)(const char* key, qint16 buckets);

HashRoutine hashRoutine() {
  static const auto routine = reinterpret_cast<HashRoutine>(helperRoutine("Hash.dll", "cHash"));
  return routine;
}

/// Amounts from a damaged file must not overflow into undefined behaviour.
qint32 wrappingSum(qint32 a, qint32 b) {
  return static_cast<qint32>(static_cast<quint32>(a) + static_cast<quint32>(b));
}

}  // namespace

void clsHashTable::Init() {
  bucketCount_ = kFirstBucketCount;
  growthFactor_ = 1.5F;
  highWater_ = 0;
  liveCount_ = 0;
  lockedCount_ = 0;
  buckets_.assign(static_cast<size_t>(bucketCount_) + 1, 0);
  records_.assign(kFirstCapacity + 1, {});
  nextInChain_.assign(kFirstCapacity + 1, 0);
  keyedBy_.assign(kFirstCapacity + 1, Key::None);
  nodes_.Init(kFirstCapacity, growthFactor_);
  initialised_ = true;
}

void clsHashTable::ClearArrays() {
  *this = clsHashTable();
}

void clsHashTable::ensureInitialised() {
  if (!initialised_) {
    Init();
  }
}

size_t clsHashTable::areaIndex(int area) {
  if (area < 1 || area > HashRecord::kAreas) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return static_cast<size_t>(area) - 1;
}

QByteArray clsHashTable::keyOf(qint32 index) const {
  const bool byText = keyedBy_[static_cast<size_t>(index)] == Key::Text;
  return byText ? CodePage::toBytes(at(index).Text) : QByteArray::number(at(index).ID);
}

qint16 clsHashTable::bucketOf(const QByteArray& key) const {
  return hashRoutine()(key.constData(), bucketCount_);
}

template <class Same>
qint32 clsHashTable::findInBucket(qint16 bucket, Key kind, Same same) const {
  for (qint32 i = buckets_[static_cast<size_t>(bucket)]; i != 0; i = nextInChain_[static_cast<size_t>(i)]) {
    if (keyedBy_[static_cast<size_t>(i)] == kind && same(at(i))) {
      return i;
    }
  }
  return kMiss;
}

qint32 clsHashTable::find(qint32 id) const {
  if (!initialised_) {
    return kMiss;
  }
  return findInBucket(bucketOf(QByteArray::number(id)), Key::ID,
                      [id](const HashRecord& record) { return record.ID == id; });
}

qint32 clsHashTable::findOrInsert(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    return found;
  }
  HashRecord record;
  record.ID = id;
  return insert(std::move(record), Key::ID, QByteArray::number(id));
}

qint32 clsHashTable::insert(HashRecord record, Key kind, const QByteArray& key) {
  ensureInitialised();
  growBuckets();
  const qint32 node = nodes_.Alloc();
  const auto top = static_cast<qint32>(records_.size()) - 1;
  if (node > top) {
    const auto grown =
        static_cast<size_t>(std::max(node, static_cast<qint32>(std::lround(static_cast<float>(top) * growthFactor_))));
    records_.resize(grown + 1);
    nextInChain_.resize(grown + 1);
    keyedBy_.resize(grown + 1, Key::None);
  }
  auto& head = buckets_[static_cast<size_t>(bucketOf(key))];
  nextInChain_[static_cast<size_t>(node)] = head;
  head = node;
  at(node) = std::move(record);
  keyedBy_[static_cast<size_t>(node)] = kind;
  ++liveCount_;
  highWater_ = std::max(highWater_, node);
  return node;
}

// The buckets double while the chains would get long, so look-ups stay flat up to some 100,000 records.
void clsHashTable::growBuckets() {
  if (liveCount_ < kChainLimit * bucketCount_ || bucketCount_ >= kMostBuckets) {
    return;
  }
  bucketCount_ = static_cast<qint16>(std::min<int>(kMostBuckets, bucketCount_ * 4));
  buckets_.assign(static_cast<size_t>(bucketCount_) + 1, 0);
  for (qint32 i = 1; i < static_cast<qint32>(records_.size()); ++i) {
    if (keyedBy_[static_cast<size_t>(i)] != Key::None) {
      auto& head = buckets_[static_cast<size_t>(bucketOf(keyOf(i)))];
      nextInChain_[static_cast<size_t>(i)] = head;
      head = i;
    }
  }
}

void clsHashTable::setHighWater(qint32 index) {
  highWater_ = std::clamp(index, 0, std::max(0, static_cast<qint32>(records_.size()) - 1));
}

void clsHashTable::AddAmtToCount(qint32 id, qint32 amount) {
  HashRecord& record = at(findOrInsert(id));
  record.Count = wrappingSum(record.Count, amount);
}

void clsHashTable::AddToValue(QStringView text) {
  ensureInitialised();
  const QByteArray key = CodePage::toBytes(text);
  qint32 found = findInBucket(bucketOf(key), Key::Text, [&](const HashRecord& record) { return record.Text == text; });
  if (found == kMiss) {
    HashRecord record;
    record.Text = text.toString();
    found = insert(std::move(record), Key::Text, key);
  }
  at(found).Value = wrappingSum(at(found).Value, 1);
}

void clsHashTable::SetText(qint32 id, const QString& text) {
  at(findOrInsert(id)).Text = text;
}

void clsHashTable::ResetCount(qint32 id) {
  const qint32 found = find(id);
  if (found == kMiss) {
    return;
  }
  auto* link = &buckets_[static_cast<size_t>(bucketOf(QByteArray::number(id)))];
  while (*link != found) {
    link = &nextInChain_[static_cast<size_t>(*link)];
  }
  *link = nextInChain_[static_cast<size_t>(found)];
  lockedCount_ -= at(found).Locked ? 1 : 0;
  at(found) = {};
  keyedBy_[static_cast<size_t>(found)] = Key::None;
  --liveCount_;
  nodes_.Free(found);
}

bool clsHashTable::IsLocked(qint32 id) const {
  const qint32 found = find(id);
  return found != kMiss && at(found).Locked;
}

bool clsHashTable::HasChanged(qint32 id, int area) const {
  const size_t index = areaIndex(area);
  const qint32 found = find(id);
  return found != kMiss && at(found).Changed[index];
}

void clsHashTable::ResetChangedByArea(int area) {
  const size_t index = areaIndex(area);
  for (qint32 i = 1; i <= highWater_; ++i) {
    at(i).Changed[index] = false;
  }
}

void clsHashTable::ResetChanged(qint32 id, int area) {
  const size_t index = areaIndex(area);
  const qint32 found = find(id);
  if (found != kMiss) {
    at(found).Changed[index] = false;
  }
}

void clsHashTable::ResetAllChanged(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    at(found).Changed.fill(false);
  }
}

void clsHashTable::LockRec(qint32 id) {
  HashRecord& record = at(findOrInsert(id));
  lockedCount_ += record.Locked ? 0 : 1;
  record.Locked = true;
}

void clsHashTable::UnLockRec(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    lockedCount_ -= at(found).Locked ? 1 : 0;
    at(found).Locked = false;
  }
}

void clsHashTable::MarkUpdated(qint32 id) {
  at(findOrInsert(id)).Changed.fill(true);
}

void clsHashTable::MarkDeleted(qint32 id) {
  MarkUpdated(id);
  at(find(id)).Deleted = true;
}

void clsHashTable::InsertRecord(qint32 id, qint32& index) {
  index = findOrInsert(id);
  at(index).Deleted = false;
}

HashRecord clsHashTable::Record(qint32 index) const {
  if (index < 1 || static_cast<size_t>(index) >= records_.size()) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return at(index);
}
