#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

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

/// The same bytes as a disk or a stranger may have left them; each `kind` from 0 to 3 in a way of its own: cut off,
/// zeros, any bytes, damaged here and there.
template <class Generator>
QByteArray damaged(QByteArray bytes, qsizetype kind, Generator& random, const QList<QByteArray>& snippets) {
  switch (kind) {
    case 0:
      return bytes.first(static_cast<qsizetype>(random() % (static_cast<quint64>(bytes.size()) + 1)));
    case 1:
      return bytes.fill('\0');
    case 2:
      for (char& byte : bytes) {
        byte = static_cast<char>(random());
      }
      return bytes;
    default:
      return mutated(std::move(bytes), random, snippets);
  }
}
