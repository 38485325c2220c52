#include "core/infra/KeyedLines.h"

#include "core/infra/CodePage.h"

namespace KeyedLines {

QList<QByteArray> of(const QByteArray& content) {
  const QByteArray lineEnd = content.contains("\r\n") ? "\r\n" : "\n";
  QList<QByteArray> lines;
  for (qsizetype from = 0; from < content.size();) {
    const qsizetype end = content.indexOf(lineEnd, from);
    lines.append(content.sliced(from, (end < 0 ? content.size() : end) - from));
    from += lines.constLast().size() + lineEnd.size();
  }
  return lines;
}

std::optional<KeyAndValue> parted(const QByteArray& line) {
  const qsizetype comma = line.indexOf(',');
  QString key = comma < 0 ? QString() : CodePage::fromMarkedBytes(line.first(comma));
  if (key.trimmed().isEmpty()) {
    return {};
  }
  return KeyAndValue{std::move(key), CodePage::fromMarkedBytes(line.sliced(comma + 1))};
}

}  // namespace KeyedLines
