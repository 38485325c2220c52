#pragma once

#include <QByteArrayView>
#include <QStringDecoder>
#include <QStringView>
#include <QtGlobal>

#include <array>
#include <memory>
#include <vector>

/// Bytes of one code page to Unicode. A byte sequence is one to four bytes; what a code page lacks becomes
/// U+FFFD. Objects live as long as the program and are used by its one thread.
class ByteDecoder {
 public:
  static constexpr int kSymbol = 42;  ///< Not a code page: bytes of symbol fonts, U+F000 and up.
  static constexpr int kUtf8 = 65001;
  static constexpr char16_t kInvalid = 0xFFFD;

  /// The decoder of a code page; Windows-1252 for an unknown one.
  static const ByteDecoder& of(int codePage);

  /// False when sequences of two bytes are known to be such and no more.
  bool knowsPairs() const { return pairs_.isValid(); }
  bool isSymbol() const { return codePage_ == kSymbol; }
  /// Bytes in the sequence that this byte begins.
  int sequenceLength(uchar lead) const { return lengths_[lead]; }
  /// The character of a whole sequence.
  char32_t decode(QByteArrayView sequence) const;
  /// The character of a byte that is a sequence by itself.
  char16_t single(uchar byte) const { return singles_[byte]; }
  /// True when the byte may follow in a sequence that is begun.
  bool mayFollow(uchar byte) const { return codePage_ == kUtf8 ? (byte & 0xC0U) == 0x80 : byte >= 0x30; }

  explicit ByteDecoder(int codePage);

 private:
  char16_t decodePair(uchar lead, uchar trail) const;

  int codePage_;
  std::array<uchar, 256> lengths_{};
  std::array<char16_t, 256> singles_{};
  mutable QStringDecoder pairs_;
  mutable std::vector<char16_t> known_;  ///< Pairs decoded before; empty until the first.
};

/// True for the fonts of old whose characters are pictures, numbered from U+F021 on.
bool isSymbolFont(QStringView name);

/// The code page of a \fcharset number; 0 when it means the document's own.
int codePageOfCharset(int charset);
