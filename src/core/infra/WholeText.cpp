#include "core/infra/WholeText.h"

#include "core/infra/CodePage.h"
#include "core/infra/cSharedFileSubs.h"

#include <QStringDecoder>

namespace WholeText {

QString fromBytes(QByteArrayView bytes) {
  if (const auto marked = QStringConverter::encodingForData(bytes);
      marked && bytes.size() > 1 && (uchar(bytes[0]) == 0xEF || uchar(bytes[0]) >= 0xFE)) {
    return QStringDecoder(*marked).decode(bytes);
  }
  return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : CodePage::fromBytes(bytes);
}

QByteArray toBytes(QStringView text) {
  return CodePage::canEncode(text) ? CodePage::toBytes(text) : "\xEF\xBB\xBF" + text.toUtf8();
}

void replaceFile(const QString& path, QStringView text) {
  Files().ReplaceFile(path, toBytes(text));
}

}  // namespace WholeText
