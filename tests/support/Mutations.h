#pragma once

#include <QByteArray>
#include <QList>

/// Damages bytes in the ways that files get damaged: cut off, bits turned, pieces doubled, lost or moved, and
/// some of `snippets` put in. The same generator state gives the same damage.
template <class Generator>
QByteArray mutated(QByteArray bytes, Generator& random, const QList<QByteArray>& snippets) {
  const auto below = [&](qsizetype limit) {
    return limit <= 0 ? qsizetype{0} : static_cast<qsizetype>(random() % static_cast<quint64>(limit));
  };
  for (qsizetype edits = 1 + below(4); edits > 0; --edits) {
    const qsizetype at = below(bytes.size() + 1);
    const qsizetype length = below(40);
    switch (random() % 6) {
      case 0:
        bytes.insert(at, snippets[below(snippets.size())]);
        break;
      case 1:
        bytes.remove(at, length);
        break;
      case 2:
        bytes.insert(at, bytes.mid(below(bytes.size()), length));
        break;
      case 3:
        if (at < bytes.size()) {
          bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
        break;
      case 4:
        if (at < bytes.size()) {
          bytes[at] = static_cast<char>(random());
        }
        break;
      default:
        if (below(6) == 0) {
          bytes.truncate(at);
        }
    }
  }
  return bytes;
}
