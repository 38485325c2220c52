#include "core/text/TagView.h"

#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"
#include "core/infra/RuntimeError.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr qsizetype kKeyLength = 8;
/// So many keys are compared at once.
constexpr qsizetype kTogether = 16;

/// A number of the first eight bytes of a name, up to its ">" where that comes earlier, case ignored.
quint32 keyOf(const char* name, qsizetype available) {
  constexpr quint64 kCaseBits = 0x2020202020202020ULL;
  constexpr quint64 kEnds = 0x3E3E3E3E3E3E3E3EULL;
  constexpr quint64 kOnes = 0x0101010101010101ULL;
  constexpr quint64 kHighBits = 0x8080808080808080ULL;
  quint64 bytes = 0;
  if (available >= kKeyLength) {
    std::memcpy(&bytes, name, kKeyLength);
  } else {
    std::memcpy(&bytes, name, static_cast<size_t>(available));
  }
  bytes = qFromLittleEndian(bytes) | kCaseBits;
  // The lowest byte that is ">" has its high bit set here; what stands behind it is no part of the name.
  const quint64 difference = bytes ^ kEnds;
  const quint64 ends = (difference - kOnes) & ~difference & kHighBits;
  if (ends != 0) {
    bytes &= ends ^ (ends - 1);
  }
  return static_cast<quint32>((bytes * 0x9E3779B97F4A7C15ULL) >> 32);
}

}  // namespace

// A "<" that another one follows begins no tag. What is left may still be every second byte.
TagIndex::TagIndex(QByteArrayView text) : text_(text) {
  if (text.size() > qsizetype{std::numeric_limits<quint32>::max()}) {
    throw RuntimeError(RuntimeError::OutOfMemory);
  }
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  // A line of a project file holds two tags in about thirty characters.
  const auto expected = static_cast<size_t>(text.size() / 15 + kTogether);
  positions_.reserve(expected);
  keys_.reserve(expected + kTogether);
  for (const char* at = begin; at < end; ++at) {
    at = static_cast<const char*>(std::memchr(at, '<', static_cast<size_t>(end - at)));
    if (at == nullptr) {
      break;
    }
    if (end - at < 2 || at[1] == '<') {
      continue;
    }
    if (positions_.size() == positions_.capacity()) {
      makeRoom(at, end);
    }
    positions_.push_back(static_cast<quint32>(at - begin));
    keys_.push_back(keyOf(at + 1, end - at - 1));
  }
  keys_.resize(keys_.size() + kTogether);
}

void TagIndex::makeRoom(const char* from, const char* end) {
  size_t more = 0;
  for (const char* at = from; at + 1 < end; ++at) {
    more += static_cast<size_t>(at[0] == '<' && at[1] != '<');
  }
  positions_.reserve(positions_.size() + more);
  keys_.reserve(keys_.size() + more + kTogether);
}

qsizetype TagIndex::memory() const {
  return static_cast<qsizetype>(positions_.capacity() * sizeof(positions_[0]) + keys_.capacity() * sizeof(keys_[0]));
}

TagView::TagView(const TagIndex& index)
    : TagView(index, 0, index.text_.size(), 0, static_cast<qsizetype>(index.positions_.size())) {}

bool TagView::isAt(QByteArrayView tag, qsizetype entry) const {
  return entry < endEntry_ && Tags::startsWith(index_->text_.sliced(positionOf(entry), to_ - positionOf(entry)), tag);
}

qsizetype TagView::first(QByteArrayView tag, qsizetype entry) const {
  const quint32 key = keyOf(tag.data() + 1, tag.size() - 1);
  for (qsizetype i = entry; i < endEntry_; i += kTogether) {
    const quint32* const keys = index_->keys_.data() + i;
    bool any = false;
    for (qsizetype k = 0; k < kTogether; ++k) {
      any |= keys[k] == key;
    }
    for (qsizetype k = 0; any && k < kTogether; ++k) {
      if (keys[k] == key && isAt(tag, i + k)) {
        return i + k;
      }
    }
  }
  return -1;
}

TagView TagView::block(const Tag& tag) const {
  const qsizetype open = first(tag.open, firstEntry_);
  if (open < 0) {
    return {*index_, to_, to_, endEntry_, endEntry_};
  }
  const qsizetype close = first(tag.close, open);
  return close < 0 ? TagView(*index_, positionOf(open), to_, open, endEntry_)
                   : TagView(*index_, positionOf(open), positionOf(close) + tag.close.size(), open, close + 1);
}

std::vector<TagView> TagView::split(QByteArrayView delimiter) const {
  std::vector<TagView> pieces;
  qsizetype from = from_;
  qsizetype entry = firstEntry_;
  for (qsizetype found = first(delimiter, entry); found >= 0; found = first(delimiter, entry)) {
    pieces.push_back({*index_, from, positionOf(found), entry, found});
    from = positionOf(found) + delimiter.size();
    entry = found + 1;
  }
  pieces.push_back({*index_, from, to_, entry, endEntry_});
  return pieces;
}

QByteArrayView TagView::value(const Tag& tag, QByteArray& scratch) const {
  const qsizetype open = first(tag.open, firstEntry_);
  if (open < 0) {
    return {};
  }
  const qsizetype start = positionOf(open);
  if (isAt(tag.close, open + 1)) {
    return index_->text_.sliced(start + tag.open.size(), positionOf(open + 1) - start - tag.open.size());
  }
  const qsizetype close = first(tag.close, open);
  const qsizetype end = close < 0 ? to_ : positionOf(close) + tag.close.size();
  scratch = Tags::withoutTags(index_->text_.sliced(start, end - start), tag);
  return scratch;
}

QByteArray TagView::bytes(const Tag& tag) const {
  QByteArray scratch;
  const QByteArrayView found = value(tag, scratch);
  return scratch.isEmpty() ? found.toByteArray() : scratch;
}

QString TagView::raw(const Tag& tag) const {
  QByteArray scratch;
  return CodePage::fromBytes(value(tag, scratch));
}

QString TagView::text(const Tag& tag) const {
  QByteArray scratch;
  return Tags::HtmlDecode(value(tag, scratch));
}

bool TagView::boolean(const Tag& tag) const {
  QByteArray scratch;
  return value(tag, scratch) == QByteArrayView("-1");
}

qint32 TagView::integer32(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::ValTo32(value(tag, scratch));
}

qint16 TagView::integer16(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::ValTo16(value(tag, scratch));
}

qint32 TagView::strictInteger(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::Strict32(value(tag, scratch));
}

qint32 TagView::date(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::DayNumber(value(tag, scratch));
}
