#include "core/persist/ElementWriter.h"

#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace {

/// Tabs, both tags and the line's end of the longest field, a number included.
constexpr qsizetype kRoomForTags = 128;
constexpr qsizetype kGrowth = 8192;

/// A block of a size known beforehand from either end of the bytes: two moves and no loop for what a tag is long.
template <size_t Block>
void copyEnds(char* to, const char* from, size_t size) {
  std::array<char, Block> first;
  std::array<char, Block> last;
  std::memcpy(first.data(), from, Block);
  std::memcpy(last.data(), from + size - Block, Block);
  std::memcpy(to, first.data(), Block);
  std::memcpy(to + size - Block, last.data(), Block);
}

/// Copies what is mostly a tag: tens of thousands of calls of the library's copy would be a third of a save.
void copyShort(char* to, const char* from, size_t size) {
  if (size > 32 || size < 4) {
    std::memcpy(to, from, size);
  } else if (size >= 16) {
    copyEnds<16>(to, from, size);
  } else if (size >= 8) {
    copyEnds<8>(to, from, size);
  } else {
    copyEnds<4>(to, from, size);
  }
}

}  // namespace

ElementWriter::ElementWriter(QByteArray& out, const Tag& element) : out_(out), element_(element) {
  to_ = out_.data() + out_.size();
  end_ = to_;
  ensureRoom(0);
  *to_++ = '\t';
  put(element.open);
  put("\r\n");
}

ElementWriter::~ElementWriter() {
  ensureRoom(0);
  *to_++ = '\t';
  put(element_.close);
  out_.resize(to_ - out_.constData());
}

void ElementWriter::ensureRoom(qsizetype content) {
  const qsizetype needed = content + kRoomForTags;
  if (end_ - to_ >= needed) {
    return;
  }
  const qsizetype used = to_ - out_.constData();
  out_.resize(used + std::max(needed, kGrowth));
  to_ = out_.data() + used;
  end_ = out_.constData() + out_.size();
}

void ElementWriter::put(QByteArrayView bytes) {
  copyShort(to_, bytes.data(), static_cast<size_t>(bytes.size()));
  to_ += bytes.size();
}

void ElementWriter::line(QByteArrayView content) {
  ensureRoom(content.size());
  put("\t\t");
  put(content);
  put("\r\n");
}

void ElementWriter::open(const Tag& tag) {
  *to_++ = '\t';
  *to_++ = '\t';
  put(tag.open);
}

void ElementWriter::close(const Tag& tag) {
  put(tag.close);
  *to_++ = '\r';
  *to_++ = '\n';
}

void ElementWriter::text(const Tag& tag, QStringView value) {
  ensureRoom((value.size() + 1) * Tags::kMostEscaped);
  open(tag);
  to_ = Tags::writeHtmlEncoded(to_, value);
  close(tag);
}

void ElementWriter::textUnlessEmpty(const Tag& tag, QStringView value) {
  if (!value.isEmpty()) {
    text(tag, value);
  }
}

void ElementWriter::raw(const Tag& tag, QStringView value) {
  const QByteArray bytes = CodePage::toBytes(value);
  ensureRoom(bytes.size());
  open(tag);
  put(bytes);
  close(tag);
}

void ElementWriter::integer(const Tag& tag, qint32 value) {
  ensureRoom(0);
  open(tag);
  to_ = std::to_chars(to_, to_ + kRoomForTags / 4, value).ptr;
  close(tag);
}

void ElementWriter::integerUnlessZero(const Tag& tag, qint32 value) {
  if (value != 0) {
    integer(tag, value);
  }
}

void ElementWriter::boolean(const Tag& tag, bool value) {
  integer(tag, value ? -1 : 0);
}

void ElementWriter::booleanIfTrue(const Tag& tag, bool value) {
  if (value) {
    boolean(tag, value);
  }
}

void ElementWriter::date(const Tag& tag, qint32 dayNumber) {
  ensureRoom(0);
  open(tag);
  put(Numbers::IsoDate(dayNumber));
  close(tag);
}

void ElementWriter::base64(const Tag& tag, const Tag& data, QByteArrayView encoded) {
  line(tag.open);
  ensureRoom(encoded.size());
  put("\t\t\t");
  put(data.open);
  put(encoded);
  put(data.close);
  put("\r\n");
  line(tag.close);
}
