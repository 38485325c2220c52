#pragma once

#include <QByteArrayView>
#include <QtGlobal>

/// A piece of RTF as it stands in the bytes.
struct RtfToken {
  enum class Kind : quint8 {
    Text,    ///< A stretch of printable ASCII; first and length.
    Byte,    ///< One byte of text: raw and not ASCII, a raw tab or control, or from \'xx; number.
    Word,    ///< A control word; first and length are its name.
    Symbol,  ///< A backslash and one other character; number.
    Open,
    Close,
    End
  };

  Kind kind = Kind::End;
  bool hasNumber = false;
  qint32 number = 0;
  const char* first = nullptr;
  qsizetype length = 0;
};

/// Parts RTF into tokens. Raw line ends and NULs are passed over. Knows no group and no meaning, save that
/// what \binN announces is skipped with it.
class RtfLexer {
 public:
  explicit RtfLexer(QByteArrayView bytes) : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

  /// Fills the token in; a number of a word beyond 32 bits is cut to the nearest. End comes for ever.
  void next(RtfToken& token);
  /// Where the next token begins.
  const char* position() const { return at_; }
  bool atEnd() const { return at_ == end_; }
  QByteArrayView rest() const { return {at_, end_}; }
  /// Goes to the brace that closes the group, from anywhere in it; to the end when there is none.
  void skipGroup();

 private:
  void readEscape(RtfToken& token);
  void readWord(RtfToken& token);
  void readNumber(RtfToken& token);
  bool readHexByte(RtfToken& token);
  void skipBinary(const RtfToken& word);

  const char* at_;
  const char* end_;
};
