#include "core/exchange/HtmlBytes.h"

#include "core/infra/CodePage.h"

#include <QList>

QByteArray toHtmlBytes(QStringView page) {
  QByteArray bytes;
  bytes.reserve(page.size());
  for (const uint character : page.toUcs4()) {
    const int byte = character <= 0xFFFF ? CodePage::toByte(static_cast<char16_t>(character)) : -1;
    if (byte >= 0) {
      bytes.append(static_cast<char>(byte));
    } else {
      bytes.append("&#" + QByteArray::number(character) + ';');
    }
  }
  return bytes;
}
