#include "text/TextBasics.h"

#include <QStringMatcher>

#include <algorithm>

namespace {

bool hasCase(QChar character) {
  return character.isLetter() || character.unicode() > 0x7F;
}

/// The first character is looked for by itself, which is many times as fast where it has no case, as in a tag.
qsizetype findByFirst(QStringView text, QStringView what, qsizetype from, Qt::CaseSensitivity cs) {
  for (qsizetype at = text.indexOf(what[0], from); at >= 0; at = text.indexOf(what[0], at + 1)) {
    if (text.sliced(at).startsWith(what, cs)) {
      return at;
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
  return hasCase(what[0]) ? text.indexOf(what, from, cs) : findByFirst(text, what, from, cs);
}

QString replaceAll(const QString& text, QStringView what, QStringView with, Qt::CaseSensitivity cs) {
  if (what.isEmpty()) {
    return text;
  }
  const bool anchored = !hasCase(what[0]);
  const QStringMatcher matcher(what, cs);
  const auto next = [&](qsizetype from) {
    return anchored ? findByFirst(text, what, from, cs) : matcher.indexIn(text, from);
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

QStringView trimmedRight(QStringView text) {
  while (!text.isEmpty() && text.back() == u' ') {
    text.chop(1);
  }
  return text;
}

QStringView trimmed(QStringView text) {
  text = trimmedRight(text);
  return text.sliced(std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; }) - text.begin());
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
