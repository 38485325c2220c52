#include "core/infra/clsHashTable.h"

#include "core/infra/CodePage.h"
#include "core/infra/HelperLibrary.h"
#include "core/infra/RuntimeError.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

constexpr qint16 kFirstBucketCount = 500;
/// Bucket numbers have 16 bits. Beyond, each bucket is split by the key's own bits.
constexpr qint16 kMostBuckets = 32000;
constexpr qint32 kFirstCapacity = 100;
constexpr int kGrowth = 4;
constexpr unsigned kGrowthBits = 2;

using HashRoutine = qint16 (*)(const char* key, qint16 buckets);

HashRoutine hashRoutine() {
  static const auto routine = reinterpret_cast<HashRoutine>(helperRoutine("Hash.dll", "cHash"));
  return routine;
}

quint32 textCheck(QStringView text) {
  return static_cast<quint32>(qHash(text));
}

/// Amounts from a damaged file must not overflow into undefined behaviour.
qint32 wrappingSum(qint32 a, qint32 b) {
  return static_cast<qint32>(static_cast<quint32>(a) + static_cast<quint32>(b));
}

}  // namespace

void clsHashTable::Init() {
  bucketCount_ = kFirstBucketCount;
  splitBits_ = 0;
  growthFactor_ = 1.5F;
  highWater_ = 0;
  liveCount_ = 0;
  marked_ = {};
  buckets_.assign(static_cast<size_t>(bucketCount_) + 1, {});
  records_.assign(kFirstCapacity + 1, {});
  bySmallID_.clear();
  flags_.assign(kFirstCapacity + 1, 0);
  links_.assign(kFirstCapacity + 1, {});
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

quint8 clsHashTable::areaFlag(int area) {
  if (area < 1 || area > HashRecord::kAreas) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return static_cast<quint8>(1 << (area - 1));
}

size_t clsHashTable::chainOf(const char* key, quint32 check) const {
  constexpr quint32 kSpread = 0x9E3779B1U;
  const auto bucket = static_cast<size_t>(hashRoutine()(key, bucketCount_));
  const quint32 spread = check * kSpread;
  return bucket << splitBits_ | static_cast<size_t>(quint64{spread} >> (32 - splitBits_));
}

size_t clsHashTable::chainOf(qint32 id) const {
  std::array<char, 12> digits{};
  std::to_chars(digits.data(), digits.data() + digits.size() - 1, id);
  return chainOf(digits.data(), static_cast<quint32>(id));
}

size_t clsHashTable::chainOf(QStringView text, quint32 check) const {
  QVarLengthArray<char, 64> key;
  key.reserve(text.size() + 1);
  for (const QChar character : text) {
    const char16_t unit = character.unicode();
    const int byte = CodePage::toByte(unit);
    if (byte > 0) {
      key.push_back(static_cast<char>(byte));
      continue;
    }
    // Two bytes that end no key: the words of other scripts must not share one.
    key.push_back(static_cast<char>(0x80 | unit >> 9));
    key.push_back(static_cast<char>(0x80 | (unit & 0x7F)));
  }
  key.push_back('\0');
  return chainOf(key.constData(), check);
}

qint32& clsHashTable::bySmallID(qint32 id) {
  const auto index = static_cast<size_t>(id);
  if (index >= bySmallID_.size()) {
    bySmallID_.resize(index + index / 2 + 1);
  }
  return bySmallID_[index];
}

qint32 clsHashTable::find(qint32 id) const {
  if (isSmall(id)) {
    const auto index = static_cast<size_t>(id);
    return index < bySmallID_.size() && bySmallID_[index] != 0 ? bySmallID_[index] : kMiss;
  }
  if (!initialised_) {
    return kMiss;
  }
  const auto check = static_cast<quint32>(id);
  for (Link step = buckets_[chainOf(id)]; step.record != 0; step = linkOf(std::abs(step.record))) {
    if (step.check == check && step.record > 0) {
      return step.record;
    }
  }
  return kMiss;
}

qint32 clsHashTable::find(QStringView text, quint32 check) const {
  for (Link step = buckets_[chainOf(text, check)]; step.record != 0; step = linkOf(std::abs(step.record))) {
    if (step.check == check && step.record < 0 && at(-step.record).Text == text) {
      return -step.record;
    }
  }
  return kMiss;
}

qint32 clsHashTable::findOrInsert(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    return found;
  }
  HashRecord record;
  record.ID = id;
  return insert(std::move(record), Key::ID);
}

qint32 clsHashTable::newNode() {
  const qint32 node = nodes_.Alloc();
  const auto top = static_cast<qint32>(records_.size()) - 1;
  if (node > top) {
    const auto grown =
        static_cast<size_t>(std::max(node, static_cast<qint32>(std::lround(static_cast<float>(top) * growthFactor_))));
    records_.resize(grown + 1);
    flags_.resize(grown + 1);
    links_.resize(grown + 1);
    keyedBy_.resize(grown + 1, Key::None);
  }
  return node;
}

void clsHashTable::link(qint32 node) {
  if (kindOf(node) == Key::ID && isSmall(at(node).ID)) {
    bySmallID(at(node).ID) = node;
  } else {
    linkInChain(node);
  }
}

/// At the head, so that the newest is found first.
void clsHashTable::linkInChain(qint32 node) {
  const HashRecord& record = at(node);
  const bool byText = kindOf(node) == Key::Text;
  const quint32 check = byText ? textCheck(record.Text) : static_cast<quint32>(record.ID);
  Link& head = buckets_[byText ? chainOf(record.Text, check) : chainOf(record.ID)];
  linkOf(node) = std::exchange(head, {check, byText ? -node : node});
}

/// Takes a record that is keyed by ID out of where it is found.
void clsHashTable::unlink(qint32 node) {
  const qint32 id = at(node).ID;
  if (isSmall(id)) {
    bySmallID(id) = 0;
    return;
  }
  Link* to = &buckets_[chainOf(id)];
  while (to->record != node) {
    to = &linkOf(std::abs(to->record));
  }
  *to = std::exchange(linkOf(node), {});
}

qint32 clsHashTable::insert(HashRecord record, Key kind) {
  ensureInitialised();
  growBuckets();
  const qint32 node = newNode();
  at(node) = std::move(record);
  kindOf(node) = kind;
  link(node);
  ++liveCount_;
  highWater_ = std::max(highWater_, node);
  return node;
}

void clsHashTable::growBuckets() {
  if (static_cast<size_t>(liveCount_) < buckets_.size()) {
    return;
  }
  if (bucketCount_ < kMostBuckets) {
    bucketCount_ = static_cast<qint16>(std::min<int>(kMostBuckets, bucketCount_ * kGrowth));
  } else {
    splitBits_ += kGrowthBits;
  }
  buckets_.assign((static_cast<size_t>(bucketCount_) + 1) << splitBits_, {});
  for (qint32 i = 1; i < static_cast<qint32>(records_.size()); ++i) {
    if (kindOf(i) != Key::None) {
      link(i);
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
  const quint32 check = textCheck(text);
  qint32 found = find(text, check);
  if (found == kMiss) {
    HashRecord record;
    record.Text = text.toString();
    found = insert(std::move(record), Key::Text);
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
  unlink(found);
  setFlags(found, 0);
  at(found) = {};
  kindOf(found) = Key::None;
  --liveCount_;
  nodes_.Free(found);
}

void clsHashTable::setFlags(qint32 index, quint8 flags) {
  quint8& held = flags_[static_cast<size_t>(index)];
  if (held == flags) {
    return;
  }
  for (size_t bit = 0; bit < marked_.size(); ++bit) {
    marked_[bit] += (flags >> bit & 1) - (held >> bit & 1);
  }
  held = flags;
}

std::vector<qint32> clsHashTable::marked(quint8 flag) const {
  const auto left = static_cast<size_t>(marked_[static_cast<size_t>(std::countr_zero(flag))]);
  std::vector<qint32> ids;
  ids.reserve(left);
  for (qint32 i = 1; i <= highWater_ && ids.size() < left; ++i) {
    if ((flagsOf(i) & flag) != 0) {
      ids.push_back(at(i).ID);
    }
  }
  return ids;
}

bool clsHashTable::IsLocked(qint32 id) const {
  const qint32 found = find(id);
  return found != kMiss && (flagsOf(found) & kLocked) != 0;
}

bool clsHashTable::HasChanged(qint32 id, int area) const {
  const quint8 flag = areaFlag(area);
  const qint32 found = find(id);
  return found != kMiss && (flagsOf(found) & flag) != 0;
}

void clsHashTable::ResetChangedByArea(int area) {
  const quint8 flag = areaFlag(area);
  for (qint32 i = 1; i <= highWater_; ++i) {
    lowerFlags(i, flag);
  }
}

void clsHashTable::ResetChanged(qint32 id, int area) {
  const quint8 flag = areaFlag(area);
  const qint32 found = find(id);
  if (found != kMiss) {
    lowerFlags(found, flag);
  }
}

void clsHashTable::ResetAllChanged(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    lowerFlags(found, kAllChanged);
  }
}

void clsHashTable::LockRec(qint32 id) {
  raiseFlags(findOrInsert(id), kLocked);
}

void clsHashTable::UnLockRec(qint32 id) {
  const qint32 found = find(id);
  if (found != kMiss) {
    lowerFlags(found, kLocked);
  }
}

void clsHashTable::MarkUpdated(qint32 id) {
  raiseFlags(findOrInsert(id), kAllChanged);
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
  HashRecord record = at(index);
  const quint8 flags = flagsOf(index);
  for (int area = 1; area <= HashRecord::kAreas; ++area) {
    record.Changed[static_cast<size_t>(area) - 1] = (flags & areaFlag(area)) != 0;
  }
  record.Locked = (flags & kLocked) != 0;
  return record;
}
