#include "core/exchange/HtmlReader.h"

#include "core/exchange/HtmlTags.h"
#include "core/text/cSharedHTML.h"
#include "helpers/HtmlReferences.h"

#include <QHash>
#include <QSet>

#include <array>

using namespace HtmlTags;
using namespace Qt::StringLiterals;

namespace {

constexpr bool isBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == u'\f';
}

constexpr bool isLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

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
    if (rule.kind == Tag::NoText) {
      return closes || attributes.endsWith(u'/') ? behind : behindNoText(called.toString(), behind);
    }
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

  /// The closing quotation mark; a value that runs into the next tag has lost it.
  qsizetype endOfValue(qsizetype quote) const {
    qsizetype at = quote + 1;
    while (at < html_.size() && unitAt(at) != unitAt(quote) && unitAt(at) != u'<') {
      ++at;
    }
    return unitAt(at) == unitAt(quote) ? at : quote;
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
    const qsizetype end = html_.indexOf(u"</"_s + name, at, Qt::CaseInsensitive);
    if (end < 0) {
      neverClosed_.insert(name);
    }
    return end < 0 ? at : end;
  }

  void open(const TagName& name, TagRule rule, QStringView attributes) {
    switch (rule.kind) {
      case Tag::Break:
        endLine();
        break;
      case Tag::Cell:
        if (lineHasText_) {
          addWord(u"\t");
        }
        break;
      case Tag::Preformatted:
        endBlock();
        ++preformatted_;
        break;
      case Tag::Block:
        endBlock();
        break;
      case Tag::Letters:
        openLetters(name.toString(), styledLooks(rule.looks, attributes));
        break;
      default:
        break;
    }
  }

  void close(const TagName& name, TagRule rule) {
    switch (rule.kind) {
      case Tag::Preformatted:
        preformatted_ = qMax(0, preformatted_ - 1);
        [[fallthrough]];
      case Tag::Block:
        endBlock();
        break;
      case Tag::Letters:
        closeLetters(name.toString());
        break;
      default:
        break;
    }
  }

  // Tags that overlap end each by its own name.
  void openLetters(const QString& name, quint8 looks) {
    open_[name].append(looks);
    count(looks, 1);
  }
  void closeLetters(const QString& name) {
    const auto found = open_.find(name);
    if (found != open_.end() && !found->isEmpty()) {
      count(found->takeLast(), -1);
    }
  }
  void count(quint8 looks, int by) {
    quint8 shown = 0;
    for (size_t i = 0; i < counts_.size(); ++i) {
      const auto look = static_cast<quint8>(1U << i);
      counts_[i] += (looks & look) != 0 ? by : 0;
      shown = static_cast<quint8>(shown | (counts_[i] > 0 ? look : 0));
    }
    looks_ = shown;
  }

  void addText(QStringView text) {
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
      const bool isSingleBlank = units[end] == u' ' && end + 1 < size && units[end + 1] > u' ';
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
      endLine();
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
    if (blank_ != kNoBlank) {
      builder_.appendUnit(u' ', blank_);
      blank_ = kNoBlank;
    }
    builder_.append(units, formats_[looks_], paragraph_);
    lineHasText_ = true;
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
  /// How many open tags ask for each look.
  std::array<int, 3> counts_{};
  QHash<QString, QList<quint8>> open_;
  /// The format of white space that stands behind the last word; it is a blank if another word follows.
  int blank_ = kNoBlank;
  bool lineHasText_ = false;
  int preformatted_ = 0;
  /// What was sought in vain isn't sought again.
  bool commentsEnd_ = true;
  QSet<QString> neverClosed_;
};

}  // namespace

RichText readHtml(const QString& html) {
  const QString body = Html().TrimHeadTags(html);
  return HtmlReader(body).read();
}
