#include "core/spell/CaretWord.h"

#include <algorithm>

TextMark wordAtCaret(QStringView text, qsizetype caret) {
  caret = std::clamp<qsizetype>(caret, 0, text.size());
  qsizetype start = caret;
  while (start > 0 && text[start - 1] != u' ' && text[start - 1] != u'\n') {
    --start;
  }
  const auto isEnd = [](QChar c) { return c == u' ' || c == u'.' || c == u'\r'; };
  const auto end = std::find_if(text.begin() + caret, text.end(), isEnd) - text.begin();
  QStringView word = text.sliced(start, end - start);
  for (const QChar closing : {u'"', u'\'', u'?', u'!'}) {
    if (word.endsWith(closing)) {
      word.chop(1);
    }
  }
  return {start, word.size(), TextMark::Kind::Misspelling};
}
