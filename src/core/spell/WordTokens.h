#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>

/// How a text falls into the words that are checked.
namespace WordTokens {

/// Everything but letters a-z, digits, blanks, "'" and á, é, í, ñ, ó, ú becomes a blank, unit by unit: the text keeps
/// its length, so that a position in it is one in the original. A text of nothing but blanks stays.
void cleanUp(QString& text);

/// Calls `found(start, word)` for each word of a text that was cleaned up, in order: what stands from blank to blank,
/// without the "'" around it.
template <class Found>
void each(QStringView cleaned, Found found) {
  const auto isBlank = [](QChar c) { return c == u' '; };
  auto at = cleaned.begin();
  while (at != cleaned.end()) {
    const auto from = std::find_if_not(at, cleaned.end(), isBlank);
    at = std::find_if(from, cleaned.end(), isBlank);
    QStringView word(from, at);
    qsizetype start = from - cleaned.begin();
    for (; word.startsWith(u'\''); ++start) {
      word = word.sliced(1);
    }
    while (word.endsWith(u'\'')) {
      word.chop(1);
    }
    if (!word.isEmpty()) {
      found(start, word);
    }
  }
}

}  // namespace WordTokens
