#include "core/text/TextBasics.h"

#include <QStringMatcher>

#include <algorithm>

namespace {

bool hasCase(QChar character) {
  return character.isLetter() || character.unicode() > 0x7F;
}

/// The place in what is sought by which it is looked for: a character without case, and rather not one that every
/// tag has. -1 when all have case.
qsizetype anchorOf(QStringView what) {
  const auto* const caseless = std::find_if_not(what.begin(), what.end(), hasCase);
  const auto* const rare =
      std::find_if(caseless, what.end(), [](QChar c) { return !hasCase(c) && c != u'<' && c != u'>'; });
  if (caseless == what.end()) {
    return -1;
  }
  return (rare == what.end() ? caseless : rare) - what.begin();
}

/// Looking for one character is many times as fast as looking for a text without regard to case.
qsizetype findByAnchor(QStringView text, QStringView what, qsizetype anchor, qsizetype from, Qt::CaseSensitivity cs) {
  for (qsizetype at = text.indexOf(what[anchor], from + anchor); at >= 0; at = text.indexOf(what[anchor], at + 1)) {
    if (text.sliced(at - anchor).startsWith(what, cs)) {
      return at - anchor;
    }
  }
  return -1;
}

}  // namespace

namespace TextBasics {

qsizetype find(QStringView text, QStringView what, qsizetype from, Qt::CaseSensitivity cs) {
  if (from >= text.size() || what.isEmpty()) {
    return from < text.size() ? from : -1;
  }
  const qsizetype anchor = anchorOf(what);
  return anchor < 0 ? text.indexOf(what, from, cs) : findByAnchor(text, what, anchor, from, cs);
}

QString replaceAll(const QString& text, QStringView what, QStringView with, Qt::CaseSensitivity cs) {
  if (what.isEmpty()) {
    return text;
  }
  const qsizetype anchor = anchorOf(what);
  const QStringMatcher matcher(what, cs);
  const auto next = [&](qsizetype from) {
    return anchor < 0 ? matcher.indexIn(text, from) : findByAnchor(text, what, anchor, from, cs);
  };
  qsizetype at = next(0);
  if (at < 0) {
    return text;
  }
  QString replaced;
  replaced.reserve(text.size());
  qsizetype kept = 0;
  for (; at >= 0; at = next(kept)) {
    replaced.append(QStringView(text).sliced(kept, at - kept)).append(with);
    kept = at + what.size();
  }
  return replaced.append(QStringView(text).sliced(kept));
}

void trimRight(QString& text) {
  text.truncate(trimmedRight(text).size());
}

void trim(QString& text) {
  trimRight(text);
  const qsizetype front = text.size() - trimmed(text).size();
  if (front > 0) {
    text.remove(0, front);
  }
}

}  // namespace TextBasics
