#include "core/text/RtfPicture.h"

#include "core/infra/Hex.h"
#include "core/text/RtfLexer.h"

#include <algorithm>
#include <limits>

namespace {

using Kind = RtfPicture::Kind;

struct KindWord {
  QByteArrayView name;
  Kind kind;
};
constexpr KindWord kKinds[] = {{"pngblip", Kind::Png},
                               {"jpegblip", Kind::Jpeg},
                               {"dibitmap", Kind::Bitmap},
                               {"wmetafile", Kind::Metafile},
                               {"emfblip", Kind::Enhanced}};

struct NumberWord {
  QByteArrayView name;
  qint32 RtfPicture::*field;
};
constexpr NumberWord kNumbers[] = {{"picw", &RtfPicture::picw},           {"pich", &RtfPicture::pich},
                                   {"picwgoal", &RtfPicture::picwgoal},   {"pichgoal", &RtfPicture::pichgoal},
                                   {"picscalex", &RtfPicture::picscalex}, {"picscaley", &RtfPicture::picscaley},
                                   {"piccropl", &RtfPicture::piccropl},   {"piccropt", &RtfPicture::piccropt},
                                   {"piccropr", &RtfPicture::piccropr},   {"piccropb", &RtfPicture::piccropb}};

bool isBlank(char byte) {
  return byte == ' ' || byte == '\r' || byte == '\n' || byte == '\t' || byte == '\0';
}

QByteArrayView nameOf(const RtfToken& word) {
  return {word.first, word.length};
}

void readWord(const RtfToken& word, RtfPicture& picture) {
  for (const KindWord& entry : kKinds) {
    if (entry.name == nameOf(word)) {
      picture.kind = entry.kind;
    }
  }
  for (const NumberWord& entry : kNumbers) {
    if (word.hasNumber && entry.name == nameOf(word)) {
      picture.*entry.field = word.number;
    }
  }
}

/// What \bin, just read, has announced, as far as it is there.
QByteArrayView binaryData(const RtfToken& word, const char* end) {
  const char* data = word.first + word.length;
  data = std::find_if(data, end, [](char byte) { return byte < '0' || byte > '9'; });
  return {data != end && *data == ' ' ? data + 1 : data, end};
}

/// Goes through groups in search of pictures.
class PictureFinder {
 public:
  explicit PictureFinder(QByteArrayView group) : lexer_(group), end_(group.data() + group.size()) {}

  std::optional<RtfPicture> next() {
    RtfToken token;
    for (lexer_.next(token); token.kind != RtfToken::Kind::End; lexer_.next(token)) {
      if (token.kind == RtfToken::Kind::Word && nameOf(token) == "pict") {
        return readPicture();
      }
    }
    return std::nullopt;
  }

 private:
  /// From behind \pict to the data, or to the end of the group when there are none.
  RtfPicture readPicture() {
    RtfPicture picture;
    RtfToken token;
    while (!atDigits()) {
      lexer_.next(token);
      if (token.kind == RtfToken::Kind::End || token.kind == RtfToken::Kind::Close) {
        return picture;
      }
      if (token.kind == RtfToken::Kind::Open) {
        lexer_.skipGroup();
        lexer_.next(token);
      } else if (token.kind == RtfToken::Kind::Word && nameOf(token) == "bin" && token.number > 0) {
        picture.isBinary = true;
        picture.data = binaryData(token, lexer_.position());
        return picture;
      } else if (token.kind == RtfToken::Kind::Word) {
        readWord(token, picture);
      }
    }
    picture.data = {lexer_.position(), end_};
    return picture;
  }

  /// Passes over blanks. The lexer would read the digits to their end.
  bool atDigits() {
    const char* const at = std::find_if_not(lexer_.position(), end_, isBlank);
    lexer_ = RtfLexer(QByteArrayView(at, end_));
    return at != end_ && Hex::digit(*at) >= 0;
  }

  RtfLexer lexer_;
  const char* end_;
};

bool canBeShown(const RtfPicture& picture) {
  return picture.kind != Kind::Other && !picture.data.isEmpty();
}

/// Reads digits, up to what ends them.
class DigitReader {
 public:
  explicit DigitReader(QByteArrayView data) : at_(data.data()), end_(data.data() + data.size()) {}

  /// The next pair; -1 at the end.
  int byte() {
    const int high = digit();
    const int low = high < 0 ? -1 : digit();
    return low < 0 ? -1 : high << 4 | low;
  }

 private:
  int digit() {
    while (at_ != end_) {
      const int worth = Hex::digit(*at_);
      if (worth >= 0) {
        ++at_;
        return worth;
      }
      if (*at_ == '{' || *at_ == '}' || *at_ == '\\') {
        return -1;
      }
      ++at_;
    }
    return -1;
  }

  const char* at_;
  const char* end_;
};

/// Cut where an ending character stands, so that groups which follow aren't counted in.
QByteArrayView digitsOf(QByteArrayView data) {
  for (const char end : {'}', '\\', '{'}) {
    const qsizetype at = data.indexOf(end);
    data = at < 0 ? data : data.first(at);
  }
  return data;
}

QByteArray decoded(QByteArrayView digits, qsizetype limit) {
  QByteArray bytes(std::min(limit, digits.size() / 2), Qt::Uninitialized);
  DigitReader reader(digits);
  char* out = bytes.data();
  for (const char* const end = out + bytes.size(); out != end; ++out) {
    const int byte = reader.byte();
    if (byte < 0) {
      break;
    }
    *out = static_cast<char>(byte);
  }
  bytes.truncate(out - bytes.constData());
  return bytes;
}

bool leavesSome(qint32 goal, qint32 before, qint32 behind) {
  return qint64{std::max(before, 0)} + std::max(behind, 0) < goal;
}

int scaled(int twips, qint32 percent) {
  const qint64 size = qint64{twips} * (percent > 0 ? percent : 100) / 100;
  return static_cast<int>(std::min<qint64>(size, std::numeric_limits<int>::max()));
}

}  // namespace

std::optional<RtfPicture> findRtfPicture(QByteArrayView group) {
  PictureFinder finder(group);
  std::optional<RtfPicture> first;
  for (auto picture = finder.next(); picture; picture = finder.next()) {
    if (canBeShown(*picture)) {
      return picture;
    }
    first = first ? first : picture;
  }
  return first;
}

QByteArray rtfPictureBytes(const RtfPicture& picture) {
  if (picture.isBinary) {
    return picture.data.toByteArray();
  }
  const QByteArrayView digits = digitsOf(picture.data);
  return decoded(digits, digits.size());
}

QByteArray rtfPictureHead(const RtfPicture& picture, qsizetype bytes) {
  bytes = std::max<qsizetype>(bytes, 0);
  return picture.isBinary ? picture.data.first(std::min(bytes, picture.data.size())).toByteArray()
                          : decoded(picture.data, bytes);
}

QMargins rtfPictureCrop(const RtfPicture& picture) {
  QMargins crop;
  if (leavesSome(picture.picwgoal, picture.piccropl, picture.piccropr)) {
    crop.setLeft(std::max(picture.piccropl, 0));
    crop.setRight(std::max(picture.piccropr, 0));
  }
  if (leavesSome(picture.pichgoal, picture.piccropt, picture.piccropb)) {
    crop.setTop(std::max(picture.piccropt, 0));
    crop.setBottom(std::max(picture.piccropb, 0));
  }
  return crop;
}

QSize rtfPictureSize(const RtfPicture& picture) {
  if (picture.picwgoal <= 0 || picture.pichgoal <= 0) {
    return {};
  }
  const QSize cropped = QSize(picture.picwgoal, picture.pichgoal).shrunkBy(rtfPictureCrop(picture));
  return {scaled(cropped.width(), picture.picscalex), scaled(cropped.height(), picture.picscaley)};
}
