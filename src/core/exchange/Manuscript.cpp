#include "core/exchange/Manuscript.h"

#include "core/exchange/HtmlReader.h"
#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Manuscript {

namespace {

/// The line end behind the last line opens no other.
RichText plainToRich(const QString& text) {
  RichText::Builder builder(text.size());
  const int format = builder.charFormat({});
  const int paragraph = builder.paragraphFormat({});
  builder.append(text, format, paragraph);
  return builder.takeClosed(format, paragraph);
}

/// The encoding that a page names for itself near its begin; empty where it names none.
QByteArray charsetOf(const QByteArray& page) {
  constexpr qsizetype kLooked = 1024;
  const QByteArray head = page.first(std::min(page.size(), kLooked)).toLower();
  qsizetype at = head.indexOf("charset");
  at = at < 0 ? -1 : head.indexOf('=', at);
  if (at < 0) {
    return {};
  }
  const auto isOfName = [](char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' || byte == ':';
  };
  const auto* const begin = std::find_if(head.cbegin() + at + 1, head.cend(), isOfName);
  return {begin, std::find_if_not(begin, head.cend(), isOfName) - begin};
}

/// What has no mark and is no UTF-8 is in the encoding that it names, where that is known.
QString pageOf(const QByteArray& bytes) {
  const bool isMarked = QStringConverter::encodingForData(bytes).has_value();
  const QByteArray charset = isMarked || bytes.isValidUtf8() ? QByteArray() : charsetOf(bytes);
  // Latin 1 is what pages of our code page call themselves.
  const bool isOurs = charset.isEmpty() || charset == "iso-8859-1" || charset.startsWith("utf");
  QStringDecoder decoder = isOurs ? QStringDecoder() : QStringDecoder(charset.constData());
  return decoder.isValid() ? QString(decoder.decode(bytes)) : WholeText::fromBytes(bytes);
}

}  // namespace

std::optional<Kind> kindOf(const QString& file) {
  const QString name = Files().FileOnly(file);
  const QString extension = name.contains(u'.') ? Files().ExtOnly(name).trimmed().toLower() : QString();
  if (extension == u"txt") {
    return Kind::Text;
  }
  if (extension == u"htm" || extension == u"html") {
    return Kind::Html;
  }
  return extension == u"rtf" ? std::optional(Kind::Rtf) : std::nullopt;
}

RichText read(const QByteArray& bytes, Kind kind, RtfLosses* losses) {
  if (kind == Kind::Rtf && isRtf(bytes)) {
    return readRtf(bytes, losses);
  }
  return kind == Kind::Html ? readHtml(pageOf(bytes)) : plainToRich(WholeText::fromBytes(bytes));
}

std::optional<QByteArray> sceneText(const QByteArray& bytes) {
  if (isRtf(bytes)) {
    return bytes;
  }
  const std::optional<QString> text = plainText(bytes);
  return text ? std::optional(writeRtf(plainToRich(*text))) : std::nullopt;
}

std::optional<QString> plainText(const QByteArray& bytes) {
  QString text = WholeText::fromBytes(bytes);
  // Documents, archives and pictures have some, texts none.
  return text.contains(QChar::Null) ? std::nullopt : std::optional(std::move(text));
}

bool takesLong(const QString& file) {
  constexpr qint64 kMuch = qint64{1} << 24;
  return QFileInfo(file).size() > kMuch;
}

QByteArray bytesOf(const QString& file) {
  std::optional<QByteArray> bytes = readWholeFile(file);
  if (!bytes) {
    throw RuntimeError(RuntimeError::FileNotFound, toldText(shownText(u"There is no such file: %1"_s), {file}));
  }
  return *std::move(bytes);
}

}  // namespace Manuscript
