#pragma once

#include <QStringView>

#include <algorithm>

/// Blanks are U+0020 alone: tabs and line ends stay.
namespace Blanks {

inline QStringView trimmedRight(QStringView text) {
  while (!text.isEmpty() && text.back() == u' ') {
    text.chop(1);
  }
  return text;
}

inline QStringView trimmed(QStringView text) {
  text = trimmedRight(text);
  return text.sliced(std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; }) - text.begin());
}

/// A text compare: neither case nor the blanks around a text count. Below, at or above zero.
inline int compare(QStringView a, QStringView b) {
  return trimmed(a).compare(trimmed(b), Qt::CaseInsensitive);
}

}  // namespace Blanks
