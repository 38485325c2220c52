#include "text/ElementReader.h"

#include "infra/CodePage.h"
#include "infra/Numbers.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr quint64 kFold = 0x2020202020202020ULL;

quint64 foldedKey(const char* from, qsizetype available) {
  quint64 key = 0;
  std::memcpy(&key, from, static_cast<size_t>(std::min<qsizetype>(available, 8)));
  return key | kFold;
}

/// Ones where the first `length` bytes of a key stand in memory.
quint64 maskOf(qsizetype length) {
  quint64 mask = 0;
  std::memset(&mask, 0xFF, static_cast<size_t>(std::min<qsizetype>(length, 8)));
  return mask;
}

}  // namespace

ElementReader::ElementReader(QByteArrayView element) : text_(element) {
  const char* const begin = element.data();
  const char* const end = begin + element.size();
  positions_.reserve(96);
  keys_.reserve(96);
  for (const char* at = begin; at < end; ++at) {
    at = static_cast<const char*>(std::memchr(at, '<', static_cast<size_t>(end - at)));
    if (at == nullptr) {
      break;
    }
    positions_.push_back(at - begin);
    keys_.push_back(foldedKey(at + 1, end - at - 1));
  }
}

qsizetype ElementReader::firstAt(QByteArrayView tag, size_t from) const {
  const QByteArrayView name = tag.sliced(1);
  const quint64 mask = maskOf(name.size());
  const quint64 key = foldedKey(name.data(), name.size()) & mask;
  for (size_t i = from; i < keys_.size(); ++i) {
    if ((keys_[i] & mask) != key) {
      continue;
    }
    const qsizetype at = positions_[i];
    if (text_.size() - at >= tag.size() && qstrnicmp(text_.data() + at, tag.data(), static_cast<size_t>(tag.size())) == 0) {
      return static_cast<qsizetype>(i);
    }
  }
  return -1;
}

QByteArrayView ElementReader::value(const Tag& tag, QByteArray& scratch) const {
  const qsizetype open = firstAt(tag.open, 0);
  if (open < 0) {
    return {};
  }
  const auto opened = static_cast<size_t>(open);
  const qsizetype close = firstAt(tag.close, opened);
  const qsizetype start = positions_[opened];
  const bool plain = close == open + 1;
  if (plain) {
    return text_.sliced(start + tag.open.size(), positions_[opened + 1] - start - tag.open.size());
  }
  const qsizetype end = close < 0 ? text_.size() : positions_[static_cast<size_t>(close)] + tag.close.size();
  scratch = Tags::withoutTags(text_.sliced(start, end - start), tag);
  return scratch;
}

QByteArray ElementReader::bytes(const Tag& tag) const {
  QByteArray scratch;
  const QByteArrayView found = value(tag, scratch);
  return scratch.isEmpty() ? found.toByteArray() : scratch;
}

QString ElementReader::raw(const Tag& tag) const {
  QByteArray scratch;
  return CodePage::fromBytes(value(tag, scratch));
}

QString ElementReader::text(const Tag& tag) const {
  QByteArray scratch;
  return Tags::HtmlDecode(value(tag, scratch));
}

bool ElementReader::boolean(const Tag& tag) const {
  QByteArray scratch;
  return value(tag, scratch) == QByteArrayView("-1");
}

qint32 ElementReader::integer32(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::ValTo32(value(tag, scratch));
}

qint16 ElementReader::integer16(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::ValTo16(value(tag, scratch));
}

qint32 ElementReader::strictInteger(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::Strict32(value(tag, scratch));
}

qint32 ElementReader::date(const Tag& tag) const {
  QByteArray scratch;
  return Numbers::DayNumber(value(tag, scratch));
}
