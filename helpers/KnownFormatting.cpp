// cConvertKnownFormatting: HTML tags to the marks of the reader format.
#include "HtmlReferences.h"
#include "Units.h"
#include "qnHtml.h"

#include <array>
#include <string_view>

namespace {

using HtmlReferences::packed;

constexpr std::uint64_t key(std::string_view name) {
  return packed(name.data(), name.size());
}

struct Mark {
  std::uint64_t tag;
  std::string_view mark;
};

/// Never longer than the tag: the text is worked in place.
constexpr std::array kMarks{
    Mark{key("b"), "b"},   Mark{key("strong"), "b"}, Mark{key("i"), "i"},   Mark{key("em"), "i"},
    Mark{key("u"), "u"},   Mark{key("ins"), "u"},    Mark{key("hr"), "hr"}, Mark{key("center"), "c"},
    Mark{key("h1"), "h1"}, Mark{key("h2"), "h2"},    Mark{key("h3"), "h3"}, Mark{key("h4"), "h4"},
    Mark{key("h5"), "h5"}, Mark{key("h6"), "h6"},
};

constexpr char16_t lower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
}

constexpr bool isBlank(char16_t unit) {
  return unit == u' ' || (unit >= 9 && unit <= 13);
}

/// A tag of the text: its name, lower-cased, and what stands behind the name.
struct TagAt {
  bool closing = false;
  std::uint64_t name = 0;
  const char16_t* attributes = nullptr;
  const char16_t* end = nullptr;

  bool isHeading() const { return name >= key("h1") && name <= key("h6"); }
};

/// The tag from "<" up to the ">" at `close`; a name of 0 for what is no tag.
TagAt tagBetween(const char16_t* at, const char16_t* close) {
  TagAt tag;
  tag.closing = *++at == u'/';
  at += tag.closing ? 1 : 0;
  std::array<char16_t, HtmlReferences::kLongestName> name{};
  std::size_t length = 0;
  while (at < close && length < name.size() && HtmlReferences::digitOf(*at) < 99) {
    name[length++] = lower(*at++);
  }
  tag.attributes = at;
  tag.end = close + 1;
  tag.name = at == close || isBlank(*at) || *at == u'/' ? packed(name.data(), length) : 0;
  return tag;
}

bool beginsSo(const char16_t* at, const char16_t* end, std::u16string_view word) {
  return static_cast<std::size_t>(end - at) >= word.size() &&
         std::equal(word.begin(), word.end(), at, [](char16_t a, char16_t b) { return a == lower(b); });
}

/// True for align=center, however quoted, and for text-align: center.
bool isCentred(const TagAt& tag) {
  constexpr std::u16string_view kAlign = u"align";
  for (const char16_t* at = tag.attributes; at < tag.end; ++at) {
    if (!beginsSo(at, tag.end, kAlign)) {
      continue;
    }
    at += kAlign.size();
    at = std::find_if(at, tag.end, [](char16_t unit) {
      return !isBlank(unit) && unit != u'=' && unit != u':' && unit != u'"' && unit != u'\'';
    });
    if (beginsSo(at, tag.end, u"center")) {
      return true;
    }
    --at;
  }
  return false;
}

class Converter {
 public:
  explicit Converter(char16_t* text) : out_(text), kept_(text) {}

  /// Writes the marks of a tag in its place; an unknown tag stays.
  void take(const char16_t* at, const TagAt& tag) {
    if (tag.name == key("p")) {
      takeParagraph(at, tag);
    } else if (tag.name == key("div")) {
      takeDivision(at, tag);
    } else {
      takeKnown(at, tag);
    }
  }

  char16_t* finish(const char16_t* end) { return Units::move(out_, kept_, end); }

 private:
  void replace(const char16_t* at, const TagAt& tag) {
    out_ = Units::move(out_, kept_, at);
    kept_ = tag.end;
  }

  void put(bool closing, std::string_view mark) {
    *out_++ = u'[';
    if (closing) {
      *out_++ = u'/';
    }
    out_ = std::copy(mark.begin(), mark.end(), out_);
    *out_++ = u']';
  }

  // A paragraph needs no closing tag: the next one ends it. The mark then takes room that the opening tag left.
  void takeParagraph(const char16_t* at, const TagAt& tag) {
    const bool opens = !tag.closing && isCentred(tag);
    if (!centredParagraph_ && !opens) {
      return;
    }
    replace(at, tag);
    if (centredParagraph_) {
      put(true, "c");
    }
    if (opens) {
      put(false, "c");
    }
    centredParagraph_ = opens;
  }

  /// The innermost 64 divisions are told apart.
  void takeDivision(const char16_t* at, const TagAt& tag) {
    const bool centred = tag.closing ? (centredDivisions_ & 1) != 0 : isCentred(tag);
    centredDivisions_ = tag.closing ? centredDivisions_ >> 1 : centredDivisions_ << 1 | (centred ? 1 : 0);
    if (centred) {
      replace(at, tag);
      put(tag.closing, "c");
    }
  }

  void takeKnown(const char16_t* at, const TagAt& tag) {
    const auto* const known =
        std::find_if(kMarks.begin(), kMarks.end(), [&](const Mark& mark) { return mark.tag == tag.name; });
    if (known == kMarks.end() || (tag.closing && tag.name == key("hr"))) {
      return;
    }
    const bool opensCentred = tag.isHeading() && !tag.closing && isCentred(tag);
    replace(at, tag);
    if (opensCentred) {
      put(false, "c");
    }
    put(tag.closing, known->mark);
    if (tag.isHeading() && tag.closing && centredHeading_) {
      put(true, "c");
    }
    centredHeading_ = tag.isHeading() ? opensCentred : centredHeading_;
  }

  char16_t* out_;
  const char16_t* kept_;
  std::uint64_t centredDivisions_ = 0;
  bool centredParagraph_ = false;
  bool centredHeading_ = false;
};

}  // namespace

std::size_t cConvertKnownFormatting(char16_t* text, std::size_t length) {
  const char16_t* const end = text + length;
  Converter converter(text);
  for (const char16_t* at = Units::find(text, end, u'<'); at < end;) {
    const auto* const mark = std::find_if(at + 1, end, [](char16_t unit) { return unit == u'<' || unit == u'>'; });
    if (mark < end && *mark == u'>') {
      converter.take(at, tagBetween(at, mark));
    }
    at = Units::find(mark, end, u'<');
  }
  return static_cast<std::size_t>(converter.finish(end) - text);
}
