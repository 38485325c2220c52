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
  bool isQuotation = false;
  const char16_t* attributes = nullptr;
  const char16_t* end = nullptr;

  bool closesItself() const { return end[-2] == u'/'; }
  bool isHeading() const { return name >= key("h1") && name <= key("h6"); }
};

/// The tag from "<" up to the ">" at `close`; a name of 0 for what is no tag.
TagAt tagBetween(const char16_t* at, const char16_t* close) {
  TagAt tag;
  tag.closing = *++at == u'/';
  at += tag.closing ? 1 : 0;
  constexpr std::u16string_view kQuotation = u"blockquote";  // too long to be packed
  std::array<char16_t, kQuotation.size()> name{};
  std::size_t length = 0;
  while (at < close && length < name.size() && HtmlReferences::digitOf(*at) < 99) {
    name[length++] = lower(*at++);
  }
  tag.attributes = at;
  tag.end = close + 1;
  const bool ended = at == close || isBlank(*at) || *at == u'/';
  tag.name = ended ? packed(name.data(), length) : 0;
  tag.isQuotation = ended && std::u16string_view(name.data(), length) == kQuotation;
  return tag;
}

bool beginsSo(const char16_t* at, const char16_t* end, std::u16string_view word) {
  return static_cast<std::size_t>(end - at) >= word.size() &&
         std::equal(word.begin(), word.end(), at, [](char16_t a, char16_t b) { return a == lower(b); });
}

/// Whether a name can begin here: not within one, except behind "text-".
bool nameBegins(const char16_t* attributes, const char16_t* at) {
  constexpr std::u16string_view kText = u"text-";
  const auto inName = [attributes](const char16_t* behind) {
    return behind > attributes &&
           (HtmlReferences::digitOf(behind[-1]) < 99 || behind[-1] == u'-' || behind[-1] == u'_');
  };
  const bool behindText = static_cast<std::size_t>(at - attributes) >= kText.size() &&
                          beginsSo(at - kText.size(), at, kText) && !inName(at - kText.size());
  return behindText || !inName(at);
}

/// True for align=center, however quoted, and for text-align: center.
bool isCentred(const TagAt& tag) {
  constexpr std::u16string_view kAlign = u"align";
  for (const char16_t* at = tag.attributes; at < tag.end; ++at) {
    if (!beginsSo(at, tag.end, kAlign) || !nameBegins(tag.attributes, at)) {
      continue;
    }
    const auto* const name = at + kAlign.size();
    at = std::find_if(name, tag.end, [](char16_t unit) {
      return !isBlank(unit) && unit != u'=' && unit != u':' && unit != u'"' && unit != u'\'';
    });
    const bool assigned = std::any_of(name, at, [](char16_t unit) { return unit == u'=' || unit == u':'; });
    if (assigned && beginsSo(at, tag.end, u"center")) {
      return true;
    }
    --at;
  }
  return false;
}

/// What ends a paragraph besides the next one.
constexpr std::array kBlocks{key("div"),     key("center"),  key("hr"),      key("table"), key("tr"),
                             key("td"),      key("th"),      key("ul"),      key("ol"),    key("li"),
                             key("dl"),      key("dt"),      key("dd"),      key("pre"),   key("form"),
                             key("address"), key("section"), key("article"), key("body"),  key("html")};

bool isBlock(const TagAt& tag) {
  return tag.isHeading() || tag.isQuotation || std::find(kBlocks.begin(), kBlocks.end(), tag.name) != kBlocks.end();
}

/// Passes over comments. A mark without its partner is none; that is found out once.
class CommentSkipper {
 public:
  explicit CommentSkipper(const char16_t* end) : end_(end) {}

  /// Behind the comment that begins at "<"; null when none does.
  const char16_t* behind(const char16_t* at) {
    constexpr std::u16string_view kOpen = u"<!--";
    constexpr std::u16string_view kClose = u"-->";
    if (noneCloses_ || !Units::startsWith(at, end_, kOpen)) {
      return nullptr;
    }
    const auto* const close = std::search(at + kOpen.size(), end_, kClose.begin(), kClose.end());
    noneCloses_ = close == end_;
    return noneCloses_ ? nullptr : close + kClose.size();
  }

 private:
  const char16_t* end_;
  bool noneCloses_ = false;
};

class Converter {
 public:
  explicit Converter(char16_t* text) : out_(text), kept_(text) {}

  /// Writes the marks of a tag in its place; an unknown tag stays.
  void take(const char16_t* at, const TagAt& tag) {
    if (tag.name == key("p")) {
      takeParagraph(at, tag);
      return;
    }
    if (isBlock(tag)) {
      endParagraph(at);
    }
    if (tag.name == key("div")) {
      takeDivision(at, tag);
    } else {
      takeKnown(at, tag);
    }
  }

  char16_t* finish(const char16_t* end) {
    endParagraph(end);
    return Units::move(out_, kept_, end);
  }

 private:
  /// The mark takes room that the paragraph's opening tag left.
  void endParagraph(const char16_t* at) {
    if (!centredParagraph_) {
      return;
    }
    out_ = Units::move(out_, kept_, at);
    kept_ = at;
    put(true, "c");
    centredParagraph_ = false;
  }

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

  // A paragraph needs no closing tag: the next one ends it.
  void takeParagraph(const char16_t* at, const TagAt& tag) {
    const bool opens = !tag.closing && isCentred(tag);
    if (!centredParagraph_ && !opens) {
      return;
    }
    endParagraph(at);
    replace(at, tag);
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
    const bool isRule = tag.name == key("hr");
    if (known == kMarks.end() || (isRule ? tag.closing : tag.closesItself())) {
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
  CommentSkipper comments(end);
  for (const char16_t* at = Units::find(text, end, u'<'); at < end;) {
    if (const char16_t* const behind = comments.behind(at)) {
      at = Units::find(behind, end, u'<');
      continue;
    }
    const auto* const mark = std::find_if(at + 1, end, [](char16_t unit) { return unit == u'<' || unit == u'>'; });
    if (mark < end && *mark == u'>') {
      converter.take(at, tagBetween(at, mark));
    }
    at = Units::find(mark, end, u'<');
  }
  return static_cast<std::size_t>(converter.finish(end) - text);
}
