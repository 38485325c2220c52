#include "core/exchange/Manuscript.h"

#include "core/exchange/HtmlReader.h"
#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"

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
  const QString text = WholeText::fromBytes(bytes);
  return kind == Kind::Html ? readHtml(text) : plainToRich(text);
}

std::optional<QByteArray> sceneText(const QByteArray& bytes) {
  if (isRtf(bytes)) {
    return bytes;
  }
  const QString text = WholeText::fromBytes(bytes);
  // Documents, archives and pictures have some, texts none.
  if (text.contains(QChar::Null)) {
    return {};
  }
  return writeRtf(plainToRich(text));
}

QByteArray bytesOf(const QString& file) {
  std::optional<QByteArray> bytes = readWholeFile(file);
  if (!bytes) {
    throw RuntimeError(RuntimeError::FileNotFound, u"There is no such file: "_s + file);
  }
  return *std::move(bytes);
}

}  // namespace Manuscript
