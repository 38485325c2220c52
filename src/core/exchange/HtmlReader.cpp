#include "core/exchange/HtmlReader.h"

#include "core/exchange/PageTags.h"
#include "helpers/HtmlReferences.h"

#include <QHash>
#include <QSet>

#include <array>
#include <utility>

using namespace PageTags;
using namespace Qt::StringLiterals;

namespace {

constexpr bool isBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == u'\f';
}

constexpr bool isLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

constexpr bool isPartOfName(char16_t unit) {
  return unit != u'\0' && unit != u'/' && unit != u'>' && !isBlank(unit);
}

/// Tags that end another that isn't closed, besides the paragraph, which each block ends.
constexpr std::pair<QStringView, QStringView> kEnding[] = {
    {u"li", u"li"}, {u"td", u"td"}, {u"td", u"th"}, {u"th", u"th"}, {u"th", u"td"}, {u"tr", u"td"}, {u"tr", u"th"},
};

class HtmlReader {
 public:
  explicit HtmlReader(QStringView html) : html_(html), builder_(html.size()) {
    for (quint8 looks = 0; looks < kLooks; ++looks) {
      CharFormat format;
      format.bold = (looks & kBold) != 0;
      format.italic = (looks & kItalic) != 0;
      format.underline = (looks & kUnderlined) != 0 ? CharFormat::Underline::Single : CharFormat::Underline::None;
      formats_[looks] = builder_.charFormat(format);
    }
    paragraph_ = builder_.paragraphFormat({});
  }

  RichText read() {
    for (qsizetype at = 0; at < html_.size();) {
      const qsizetype found = html_.indexOf(u'<', at);
      const qsizetype end = found < 0 ? html_.size() : found;
      addText(html_.sliced(at, end - at));
      at = found < 0 ? end : passTag(found);
      if (at >= html_.size() && inHead_) {
        // No body has begun: what looked like a head was the text.
        inHead_ = false;
        hasHead_ = false;
        at = headAt_;
      }
    }
    return builder_.takeClosed(formats_[0], paragraph_);
  }

 private:
  char16_t unitAt(qsizetype at) const { return at < html_.size() ? html_[at].unicode() : u'\0'; }

  /// What "<" begins here; where the text goes on.
  qsizetype passTag(qsizetype at) {
    const char16_t next = unitAt(at + 1);
    if (next == u'!' || next == u'?') {
      return passDeclaration(at);
    }
    const bool closes = next == u'/';
    const qsizetype name = at + (closes ? 2 : 1);
    if (closes && unitAt(name) == u'>') {
      return name + 1;
    }
    const qsizetype end = isLetter(unitAt(name)) ? endOfTag(name) : -1;
    if (end < 0) {
      addWord(u"<");
      return at + 1;
    }
    const bool isWhole = unitAt(end) == u'>';
    const qsizetype behind = isWhole ? end + 1 : end;
    qsizetype nameEnd = name;
    while (nameEnd < end && !isBlank(unitAt(nameEnd)) && unitAt(nameEnd) != u'/') {
      ++nameEnd;
    }
    const TagName called(html_.sliced(name, nameEnd - name));
    const QStringView attributes = html_.sliced(nameEnd, end - nameEnd);
    const TagRule rule = called.rule();
    if (rule.kind == Tag::Head) {
      inHead_ = !closes && hasHead_ && !hasText_;
      headAt_ = behind;
      return behind;
    }
    if (rule.kind == Tag::NoText) {
      return closes || attributes.endsWith(u'/') ? behind : behindNoText(called.toString(), behind);
    }
    // What has its place in a body begins it.
    inHead_ = inHead_ && rule.kind == Tag::Unknown;
    closes ? close(called, rule) : open(called, rule, attributes);
    return behind;
  }

  /// The ">" of the tag, or the "<" of the next where it has none; -1 where neither comes.
  qsizetype endOfTag(qsizetype at) const {
    bool valueBegins = false;
    for (; at < html_.size(); ++at) {
      const char16_t unit = unitAt(at);
      if (unit == u'>' || unit == u'<') {
        return at;
      }
      if (valueBegins && (unit == u'"' || unit == u'\'')) {
        at = endOfValue(at);
      }
      valueBegins = unit == u'=' || (valueBegins && isBlank(unit));
    }
    return -1;
  }

  /// The closing quotation mark. A value behind which the tag doesn't go on has lost it.
  qsizetype endOfValue(qsizetype quote) const {
    const qsizetype end = html_.indexOf(html_[quote], quote + 1);
    const char16_t behind = end < 0 ? u'\0' : unitAt(end + 1);
    return isBlank(behind) || behind == u'/' || behind == u'>' ? end : quote;
  }

  qsizetype passDeclaration(qsizetype at) {
    if (html_.sliced(at).startsWith(u"<!--")) {
      const qsizetype end = commentsEnd_ ? html_.indexOf(u"-->", at + 4) : -1;
      if (end >= 0) {
        return end + 3;
      }
      commentsEnd_ = false;
    }
    const qsizetype end = endOfTag(at + 1);
    return end < 0 ? html_.size() : end + (unitAt(end) == u'>' ? 1 : 0);
  }

  /// Where its closing tag begins; behind the opening one where there is none.
  qsizetype behindNoText(const QString& name, qsizetype at) {
    if (neverClosed_.contains(name)) {
      return at;
    }
    const QString closing = u"</"_s + name;
    qsizetype end = html_.indexOf(closing, at, Qt::CaseInsensitive);
    while (end >= 0 && isPartOfName(unitAt(end + closing.size()))) {
      end = html_.indexOf(closing, end + 1, Qt::CaseInsensitive);
    }
    if (end < 0) {
      neverClosed_.insert(name);
      return at;
    }
    if (name == u"style") {
      sheets_.read(html_.sliced(at, end - at));
    }
    return end;
  }

  void open(const TagName& name, TagRule rule, QStringView attributes) {
    switch (rule.kind) {
      case Tag::Break:
        endLine();
        break;
      case Tag::Cell:
        openBlock(name, attributes);
        if (lineHasText_) {
          addWord(u"\t");
        }
        break;
      case Tag::Preformatted:
        endBlock();
        openBlock(name, attributes);
        ++preformatted_;
        lineEndIsTheTags_ = true;
        break;
      case Tag::Block:
        endBlock();
        openBlock(name, attributes);
        break;
      case Tag::Quotation:
        addWord(u"\u201C");
        [[fallthrough]];
      case Tag::Letters:
        openLooks(name, rule.looks, sheets_.wishOf(name, attributes));
        break;
      default:
        break;
    }
  }

  void close(const TagName& name, TagRule rule) {
    switch (rule.kind) {
      case Tag::Break:
        endLine();
        break;
      case Tag::Preformatted:
        preformatted_ = qMax(0, preformatted_ - 1);
        [[fallthrough]];
      case Tag::Block:
        endBlock();
        [[fallthrough]];
      case Tag::Cell:
        closeBlock(name.toString());
        break;
      case Tag::Quotation:
        addWord(u"\u201D");
        [[fallthrough]];
      case Tag::Letters:
        closeLooks(name.toString());
        break;
      default:
        break;
    }
  }

  // Blocks are counted from the first that says how its letters look, each up to the tag that ends it.
  void openBlock(const TagName& name, QStringView attributes) {
    const Wish wish = sheets_.wishOf(name, attributes);
    if (openBlocks_ == 0 && wish.isNone()) {
      return;
    }
    const QString called = name.toString();
    closeBlock(u"p"_s);
    for (const auto& [next, ended] : kEnding) {
      if (called == next) {
        closeBlock(ended.toString());
      }
    }
    if (called != u"hr" && (openBlocks_ > 0 || !wish.isNone())) {
      ++openBlocks_;
      openLooks(name, 0, wish);
    }
  }
  void closeBlock(const QString& name) {
    if (openBlocks_ > 0 && closeLooks(name)) {
      --openBlocks_;
    }
  }

  /// How many more tags ask for each look from here on.
  using Shift = std::array<int, 3>;

  // Tags that overlap end each by its own name.
  void openLooks(const TagName& name, quint8 looks, Wish wish) {
    Wish all{looks, 0};
    all.add(wish);
    Shift shift{};
    for (size_t i = 0; i < shift.size(); ++i) {
      const auto look = 1U << i;
      shift[i] = (all.on & look) != 0 ? 1 : (all.off & look) != 0 ? -qMax(0, counts_[i]) : 0;
    }
    open_[name.toString()].append(shift);
    count(shift, 1);
  }
  bool closeLooks(const QString& name) {
    const auto found = open_.find(name);
    if (found == open_.end() || found->isEmpty()) {
      return false;
    }
    count(found->takeLast(), -1);
    return true;
  }
  void count(const Shift& shift, int sign) {
    quint8 shown = 0;
    for (size_t i = 0; i < counts_.size(); ++i) {
      counts_[i] += sign * shift[i];
      shown = static_cast<quint8>(shown | (counts_[i] > 0 ? 1U << i : 0U));
    }
    looks_ = shown;
  }

  void addText(QStringView text) {
    if (inHead_) {
      return;
    }
    for (qsizetype at = 0; at < text.size();) {
      const char16_t unit = text[at].unicode();
      if (isBlank(unit)) {
        at += addBlank(text.sliced(at));
      } else if (unit == u'&') {
        at += addReference(text.sliced(at));
      } else {
        const qsizetype end = endOfWords(text, at);
        addWord(text.sliced(at, end - at));
        at = end;
      }
    }
  }

  /// Words that single blanks part are taken as one piece.
  static qsizetype endOfWords(QStringView text, qsizetype at) {
    const char16_t* const units = text.utf16();
    const qsizetype size = text.size();
    for (qsizetype end = at + 1; end < size; ++end) {
      const bool isSingleBlank =
          units[end] == u' ' && end + 1 < size && units[end + 1] > u' ' && units[end + 1] != u'&';
      if (units[end] <= u'&' && !isSingleBlank && (units[end] == u'&' || isBlank(units[end]))) {
        return end;
      }
    }
    return size;
  }

  /// How many units it was.
  qsizetype addBlank(QStringView text) {
    if (preformatted_ == 0) {
      blank_ = lineHasText_ ? formats_[looks_] : kNoBlank;
      return 1;
    }
    if (text.front() == u'\r' || text.front() == u'\n') {
      if (!std::exchange(lineEndIsTheTags_, false)) {
        endLine();
      }
      return text.startsWith(u"\r\n") ? 2 : 1;
    }
    addWord(text.first(1));
    return 1;
  }

  qsizetype addReference(QStringView text) {
    constexpr QStringView kApostrophe = u"&apos;";  // it is younger than the table
    if (text.startsWith(kApostrophe)) {
      addWord(u"'");
      return kApostrophe.size();
    }
    const HtmlReference found = HtmlReferences::at(text.utf16(), static_cast<size_t>(text.size()));
    if (found.length == 0) {
      addWord(text.first(1));
      return 1;
    }
    std::array<char16_t, 2> units{};
    const char16_t* const end = HtmlReferences::write(units.data(), found.character);
    const QStringView letters(units.data(), end - units.data());
    isBlank(letters.front().unicode()) ? static_cast<void>(addBlank(letters)) : addWord(letters);
    return static_cast<qsizetype>(found.length);
  }

  void addWord(QStringView units) {
    if (inHead_) {
      return;
    }
    if (blank_ != kNoBlank) {
      builder_.appendUnit(u' ', blank_);
      blank_ = kNoBlank;
    }
    builder_.append(units, formats_[looks_], paragraph_);
    lineHasText_ = true;
    hasText_ = true;
    lineEndIsTheTags_ = false;
  }

  void endLine() {
    builder_.endParagraph(formats_[looks_], paragraph_);
    blank_ = kNoBlank;
    lineHasText_ = false;
  }
  void endBlock() {
    blank_ = kNoBlank;
    if (lineHasText_) {
      endLine();
    }
  }

  static constexpr int kNoBlank = -1;

  QStringView html_;
  RichText::Builder builder_;
  std::array<int, kLooks> formats_{};
  int paragraph_ = 0;
  quint8 looks_ = 0;
  StyleSheets sheets_;
  /// How many open tags ask for each look.
  Shift counts_{};
  QHash<QString, QList<Shift>> open_;
  int openBlocks_ = 0;
  bool hasText_ = false;
  bool hasHead_ = true;
  bool inHead_ = false;
  qsizetype headAt_ = 0;
  /// The format of white space that stands behind the last word; it is a blank if another word follows.
  int blank_ = kNoBlank;
  bool lineHasText_ = false;
  int preformatted_ = 0;
  /// A line end right behind the tag is not the text's.
  bool lineEndIsTheTags_ = false;
  /// What was sought in vain isn't sought again.
  bool commentsEnd_ = true;
  QSet<QString> neverClosed_;
};

}  // namespace

RichText readHtml(const QString& html) {
  return HtmlReader(html).read();
}
