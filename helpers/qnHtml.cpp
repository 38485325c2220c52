#include "qnHtml.h"

#include "HtmlReferences.h"
#include "Units.h"

std::size_t cReplace(const char16_t* text, const char16_t* searched, std::size_t length, const char16_t* find,
                     std::size_t findLength, const char16_t* replace, std::size_t replaceLength, char16_t* out) {
  char16_t* to = out;
  const char16_t* kept = searched;
  const char16_t* const end = searched + length;
  // The last place where a hit can begin, and one behind it.
  const char16_t* const last = findLength == 0 || findLength > length ? searched : end - findLength + 1;
  for (const char16_t* at = searched; (at = Units::find(at, last, *find)) < last;) {
    if (!std::equal(find, find + findLength, at)) {
      ++at;
      continue;
    }
    to = std::copy(text + (kept - searched), text + (at - searched), to);
    to = std::copy_n(replace, replaceLength, to);
    at += findLength;
    kept = at;
  }
  to = std::copy(text + (kept - searched), text + length, to);
  return static_cast<std::size_t>(to - out);
}

std::size_t cRemoveChar(char16_t* text, std::size_t length, char16_t charCode) {
  return static_cast<std::size_t>(std::remove(text, text + length, charCode) - text);
}

std::size_t cStripHTML(char16_t* text, std::size_t length) {
  const char16_t* const end = text + length;
  const char16_t* kept = text;
  char16_t* out = text;
  for (const char16_t* at = Units::find(text, end, u'<'); at < end;) {
    const auto* const mark = std::find_if(at + 1, end, [](char16_t unit) { return unit == u'<' || unit == u'>'; });
    if (mark == end) {
      break;
    }
    if (*mark == u'<') {
      at = mark;
      continue;
    }
    out = Units::move(out, kept, at);
    kept = mark + 1;
    at = Units::find(kept, end, u'<');
  }
  return static_cast<std::size_t>(Units::move(out, kept, end) - text);
}

std::size_t cHtmlToChar(char16_t* text, std::size_t length) {
  const char16_t* const end = text + length;
  const char16_t* kept = text;
  char16_t* out = text;
  for (const char16_t* at = Units::find(text, end, u'&'); at < end; at = Units::find(at, end, u'&')) {
    const HtmlReference found = HtmlReferences::at(at, static_cast<std::size_t>(end - at));
    if (found.length == 0) {
      ++at;
      continue;
    }
    out = HtmlReferences::write(Units::move(out, kept, at), found.character);
    at += found.length;
    kept = at;
  }
  return static_cast<std::size_t>(Units::move(out, kept, end) - text);
}

std::size_t cRemoveExtraSpaces(char16_t* text, std::size_t length) {
  return static_cast<std::size_t>(
      std::unique(text, text + length, [](char16_t a, char16_t b) { return a == u' ' && b == u' '; }) - text);
}
