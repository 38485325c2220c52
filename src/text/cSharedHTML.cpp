#include "text/cSharedHTML.h"

#include "infra/CodePage.h"
#include "infra/Guard.h"
#include "infra/HelperLibrary.h"
#include "infra/RuntimeError.h"

#include <QChar>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "cSharedHTML";

using CountRoutine = qint32 (*)(const char* text);
using EncodeRoutine = size_t (*)(const char* text, size_t length, char* out);
using DecodeRoutine = std::ptrdiff_t (*)(const char* text, size_t length, char* out);

template <class Routine>
Routine routineOf(const char* library, const char* name) {
  static const auto routine = reinterpret_cast<Routine>(helperRoutine(library, name));
  return routine;
}

/// A byte of the same class for a character that the code page lacks, so that any script counts its words.
char standIn(char32_t character) {
  if (QChar::isLetterOrNumber(character)) {
    return 'x';
  }
  return QChar::isSpace(character) ? ' ' : '.';
}

QByteArray classedBytes(QStringView text) {
  QByteArray bytes(text.size(), Qt::Uninitialized);
  char* out = bytes.data();
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i].unicode();
    const int byte = unit < 0x80 ? unit : CodePage::toByte(unit);
    if (byte > 0) {
      *out++ = static_cast<char>(byte);
    } else if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      *out++ = standIn(QChar::surrogateToUcs4(text[i], text[i + 1]));
      ++i;
    } else {
      *out++ = standIn(unit);
    }
  }
  bytes.truncate(out - bytes.data());
  return bytes;
}

}  // namespace

qint32 cSharedHTML::CalcWordCount(QStringView text) const {
  if (text.isEmpty()) {
    return 0;
  }
  qint32 words = 0;
  const Guard guard("CalcWordCount", kModule);
  guard([&] { words = routineOf<CountRoutine>("qnHtml.dll", "cWordCount")(classedBytes(text).constData()); });
  return words;
}

QByteArray cSharedHTML::EncodeMime64String(QByteArrayView bytes) const {
  const auto encode = routineOf<EncodeRoutine>("qnHtml2.dll", "cEncode64String");
  QByteArray out((bytes.size() + 2) / 3 * 4, Qt::Uninitialized);
  encode(bytes.data(), static_cast<size_t>(bytes.size()), out.data());
  return out;
}

QByteArray cSharedHTML::DecodeMime64(QByteArrayView text) const {
  const auto decode = routineOf<DecodeRoutine>("qnHtml2.dll", "cDecode64String");
  QByteArray out((text.size() / 4 + 1) * 3, Qt::Uninitialized);
  const std::ptrdiff_t size = decode(text.data(), static_cast<size_t>(text.size()), out.data());
  if (size < 0) {
    throw RuntimeError(RuntimeError::InvalidCall, u"The text is no Base64"_s);
  }
  out.truncate(size);
  return out;
}

cSharedHTML& Html() {
  static cSharedHTML html;
  return html;
}
