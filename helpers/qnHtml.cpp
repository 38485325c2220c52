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
    if (*mark == u'<' || Units::startsWith(at, end, u"<!--")) {
      at = Units::find(mark, end, u'<');
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

// Four units that hold no two blanks side by side are moved at once. Units::zeros may name too many, never too few.
std::size_t cRemoveExtraSpaces(char16_t* text, std::size_t length) {
  const char16_t* at = text;
  const char16_t* const end = text + length;
  char16_t* out = text;
  bool blankBefore = false;
  const auto takeOne = [&] {
    const bool blank = *at == u' ';
    *out = *at++;
    out += blank && blankBefore ? 0 : 1;
    blankBefore = blank;
  };
  while (end - at >= 4) {
    const std::uint64_t four = Units::load(at);
    const std::uint64_t blanks = Units::zeros(four ^ Units::all(u' '));
    if ((blanks & (blanks << 16 | (blankBefore ? Units::kFirstHigh : 0))) == 0) {
      Units::store(out, four);
      blankBefore = at[3] == u' ';
      at += 4;
      out += 4;
      continue;
    }
    for (int i = 0; i < 4; ++i) {
      takeOne();
    }
  }
  while (at < end) {
    takeOne();
  }
  return static_cast<std::size_t>(out - text);
}
