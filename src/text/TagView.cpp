#include "text/TagView.h"

#include "infra/CodePage.h"
#include "infra/Numbers.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr quint64 kFold = 0x2020202020202020ULL;
constexpr qsizetype kKeyLength = 8;

quint64 foldedKey(const char* from, qsizetype available) {
  quint64 key = 0;
  if (available >= kKeyLength) {
    std::memcpy(&key, from, kKeyLength);
  } else {
    std::memcpy(&key, from, static_cast<size_t>(available));
  }
  return key | kFold;
}

/// Ones where the first bytes of a key stand in memory, by their number.
std::array<quint64, kKeyLength + 1> keyMasks() {
  std::array<quint64, kKeyLength + 1> masks{};
  for (size_t i = 0; i < masks.size(); ++i) {
    std::memset(&masks[i], 0xFF, i);
  }
  return masks;
}

}  // namespace

TagIndex::TagIndex(QByteArrayView text) : text_(text) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  // A line of a project file holds two tags in about thirty characters.
  const auto expected = static_cast<size_t>(text.size() / 15 + 16);
  positions_.reserve(expected);
  keys_.reserve(expected);
  for (const char* at = begin; at < end; ++at) {
    at = static_cast<const char*>(std::memchr(at, '<', static_cast<size_t>(end - at)));
    if (at == nullptr) {
      break;
    }
    positions_.push_back(at - begin);
    keys_.push_back(foldedKey(at + 1, end - at - 1));
  }
}

TagView::TagView(const TagIndex& index)
    : TagView(index, 0, index.text_.size(), 0, static_cast<qsizetype>(index.positions_.size())) {}

qsizetype TagView::first(QByteArrayView tag, qsizetype entry) const {
  static const auto masks = keyMasks();
  const QByteArrayView name = tag.sliced(1);
  const quint64 mask = masks[static_cast<size_t>(std::min(name.size(), kKeyLength))];
  const quint64 key = foldedKey(name.data(), name.size()) & mask;
  const quint64* const keys = index_->keys_.data();
  for (qsizetype i = entry; i < endEntry_; ++i) {
    if ((keys[i] & mask) == key && Tags::startsWith(index_->text_.sliced(positionOf(i), to_ - positionOf(i)), tag)) {
      return i;
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
  const qsizetype close = first(tag.close, open);
  const qsizetype start = positionOf(open);
  if (close == open + 1) {
    return index_->text_.sliced(start + tag.open.size(), positionOf(close) - start - tag.open.size());
  }
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
