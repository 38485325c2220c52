#include "core/infra/WholeText.h"

#include "core/infra/CodePage.h"
#include "core/infra/cSharedFileSubs.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace {

/// Copies a block of plain ASCII, which most of every text is; their number, 0 where none begins here.
qsizetype copyAscii(const char16_t* from, const char16_t* end, char* to) {
  constexpr int kBlock = 16;
  constexpr char16_t kBeyond = 0x80;
  const char16_t* at = from;
  for (; end - at >= kBlock; at += kBlock, to += kBlock) {
    unsigned all = 0;
    for (int i = 0; i < kBlock; ++i) {
      all |= at[i];
    }
    if (all >= kBeyond) {
      break;
    }
    for (int i = 0; i < kBlock; ++i) {
      to[i] = static_cast<char>(at[i]);
    }
  }
  while (at != end && *at < kBeyond) {
    *to++ = static_cast<char>(*at++);
  }
  return at - from;
}

std::optional<QStringConverter::Encoding> markOf(QByteArrayView bytes) {
  const bool mayBeMark = bytes.size() > 1 && (uchar(bytes[0]) == 0xEF || uchar(bytes[0]) >= 0xFE);
  return mayBeMark ? QStringConverter::encodingForData(bytes) : std::nullopt;
}

}  // namespace

namespace WholeText {

QString fromBytes(QByteArrayView bytes) {
  if (const auto marked = markOf(bytes)) {
    return QStringDecoder(*marked).decode(bytes);
  }
  return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : CodePage::fromBytes(bytes);
}

std::optional<QByteArray> encodedAs(QByteArrayView bytes, QStringView text) {
  if (const auto marked = markOf(bytes)) {
    return QByteArray(QStringEncoder(*marked).encode(text));
  }
  if (bytes.isValidUtf8()) {
    return text.toUtf8();
  }
  return CodePage::canEncode(text) ? std::optional(CodePage::toBytes(text)) : std::nullopt;
}

void Builder::append(QStringView piece) {
  if (!isUnicode_ && appendSingle(piece)) {
    return;
  }
  if (!isUnicode_) {
    bytes_ = "\xEF\xBB\xBF" + CodePage::fromBytes(bytes_).toUtf8();
    isUnicode_ = true;
  }
  bytes_ += piece.toUtf8();
}

/// False when some character has no byte; nothing is appended then.
bool Builder::appendSingle(QStringView piece) {
  const qsizetype before = bytes_.size();
  bytes_.resize(before + piece.size());
  char* out = bytes_.data() + before;
  const char16_t* at = piece.utf16();
  const char16_t* const end = at + piece.size();
  while (at != end) {
    if (const qsizetype ascii = copyAscii(at, end, out); ascii > 0) {
      at += ascii;
      out += ascii;
      continue;
    }
    const int byte = CodePage::toByte(*at++);
    if (byte < 0) {
      bytes_.truncate(before);
      return false;
    }
    *out++ = static_cast<char>(byte);
  }
  return true;
}

QByteArray toBytes(QStringView text) {
  Builder builder;
  builder.append(text);
  return builder.take();
}

void replaceFile(const QString& path, QStringView text) {
  Files().ReplaceFile(path, toBytes(text));
}

}  // namespace WholeText
