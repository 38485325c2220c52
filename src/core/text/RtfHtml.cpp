#include "core/text/RtfHtml.h"

#include "core/infra/CodePage.h"
#include "core/text/RtfHtmlTables.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

enum class RtfHtml::Action : quint8 {
  None,
  Switch,  ///< opens the code, with a 0 behind it closes it
  End,     ///< closes the code
  NoScript,
  NewItem,
  NewItemOnce,
  Item,
  Colour,
  Face,
  Size,
  ParagraphEnd,
  NewParagraph,
  Plain,
  DropToken,
  Centre,
  Right,
  Tab,
  Skip,  ///< the rest of the group is no text
  ColourTable,
  FontTable,
  Table  ///< a group of the head that says nothing here
};

namespace {

using Action = RtfHtml::Action;

struct WordRule {
  std::string_view name;
  Action action;
  HtmlCode code = HtmlCode::Font;
};

constexpr std::array kWords{WordRule{"b", Action::Switch, HtmlCode::Bold},
                            WordRule{"bullet", Action::NewItem},
                            WordRule{"cf", Action::Colour},
                            WordRule{"colortbl", Action::ColourTable},
                            WordRule{"f", Action::Face},
                            WordRule{"fonttbl", Action::FontTable},
                            WordRule{"fs", Action::Size},
                            WordRule{"i", Action::Switch, HtmlCode::Italic},
                            WordRule{"info", Action::Table},
                            WordRule{"listoverridetable", Action::Table},
                            WordRule{"listtable", Action::Table},
                            WordRule{"nosupersub", Action::NoScript},
                            WordRule{"par", Action::ParagraphEnd},
                            WordRule{"pard", Action::NewParagraph},
                            WordRule{"pict", Action::Skip},
                            WordRule{"plain", Action::Plain},
                            WordRule{"pnlvlblt", Action::NewItemOnce},
                            WordRule{"pntext", Action::Item},
                            WordRule{"pntxta", Action::DropToken},
                            WordRule{"pntxtb", Action::DropToken},
                            WordRule{"qc", Action::Centre},
                            WordRule{"qr", Action::Right},
                            WordRule{"strike", Action::Switch, HtmlCode::StrikeOut},
                            WordRule{"stylesheet", Action::Table},
                            WordRule{"sub", Action::Switch, HtmlCode::Subscript},
                            WordRule{"super", Action::Switch, HtmlCode::Superscript},
                            WordRule{"tab", Action::Tab},
                            WordRule{"ul", Action::Switch, HtmlCode::Underline},
                            WordRule{"ulnone", Action::End, HtmlCode::Underline}};

static_assert(std::ranges::is_sorted(kWords, {}, &WordRule::name), "they are found by halving");

constexpr WordRule kIgnorable{"*", Action::Skip};
constexpr WordRule kUnknown{"", Action::None};

const WordRule& ruleOf(std::string_view name) {
  const auto* const found = std::lower_bound(
      kWords.begin(), kWords.end(), name, [](const WordRule& rule, std::string_view word) { return rule.name < word; });
  return found != kWords.end() && found->name == name ? *found : kUnknown;
}

/// Numbers beyond it mean nothing to any word.
constexpr int kLargest = 1000000;

constexpr bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}

constexpr bool startsToken(char c) {
  return c == '\\' || c == '{' || c == '}';
}

constexpr bool endsWord(char c) {
  return startsToken(c) || c == ' ' || isLineEnd(c);
}

constexpr char16_t kEnd = 0xFFFF;
constexpr char16_t kLineEnd = 0xFFFE;

/// What each byte is to a text: a character, the end of the text, or a line end, which is nothing.
constexpr std::array<char16_t, 256> kUnits = [] {
  std::array<char16_t, 256> units{};
  for (size_t i = 0; i < units.size(); ++i) {
    const auto byte = static_cast<uchar>(i);
    const auto c = static_cast<char>(byte);
    units[i] = startsToken(c) ? kEnd : isLineEnd(c) ? kLineEnd : CodePage::toChar(byte);
  }
  return units;
}();

/// Without what stands around the outer braces, and without those.
QByteArrayView inside(QByteArrayView rtf) {
  const auto isAround = [](char c) { return c == ' ' || isLineEnd(c) || c == '\0'; };
  while (!rtf.isEmpty() && isAround(rtf.front())) {
    rtf = rtf.sliced(1);
  }
  while (!rtf.isEmpty() && isAround(rtf.back())) {
    rtf.chop(1);
  }
  return rtf.size() > 1 && rtf.front() == '{' && rtf.back() == '}' ? rtf.sliced(1, rtf.size() - 2) : rtf;
}

}  // namespace

RtfHtml::RtfHtml(QByteArrayView rtf, const Rtf2HtmlOptions& options)
    : rest_(inside(rtf)),
      options_(options),
      tags_(options.LineEnd, rest_.size() + rest_.size() / 4),
      buffer_(rest_.size(), Qt::Uninitialized),
      InList(rest_.contains("\\list\\")) {}

QString RtfHtml::convert() {
  while (!rest_.isEmpty()) {
    next();
  }
  return tags_.finish();
}

void RtfHtml::next() {
  take();
  if (SkipDepth > 0) {
    skip();
    return;
  }
  countGroup();
  if (token_ == Token::Word && (action_ == Action::Skip || action_ == Action::Item)) {
    SkipDepth = 1;
  }
  if (token_ != Token::Word || action_ != Action::Skip) {
    handle();
  }
}

void RtfHtml::skip() {
  SkipDepth += token_ == Token::Open ? 1 : token_ == Token::Close ? -1 : 0;
  if (SkipDepth == 0) {
    countGroup();
  }
}

// A brace that closes nothing leaves the groups behind it what they are.
void RtfHtml::countGroup() {
  if (token_ == Token::Open) {
    ++depth_;
  } else if (token_ == Token::Close && depth_ > 0) {
    --depth_;
  }
}

/// Takes one token from the head of the input.
void RtfHtml::take() {
  const char first = rest_.front();
  if (first == '{' || first == '}') {
    token_ = first == '{' ? Token::Open : Token::Close;
    rest_ = rest_.sliced(1);
    return;
  }
  if (first != '\\') {
    takeText();
    return;
  }
  const char second = rest_.size() > 1 ? rest_[1] : '\0';
  if (second != '\'' && !startsToken(second)) {
    takeWord();
    return;
  }
  token_ = second == '\'' ? Token::Hex : Token::Literal;
  piece_ = rest_.first(std::min<qsizetype>(second == '\'' ? 4 : 2, rest_.size()));
  rest_ = rest_.sliced(piece_.size());
}

// Finding the end of a text, reading its bytes and leaving out line ends are one pass.
void RtfHtml::takeText() {
  token_ = Token::Text;
  auto* const begin = reinterpret_cast<char16_t*>(buffer_.data());
  char16_t* out = begin;
  const auto* at = rest_.begin();
  for (; at != rest_.end(); ++at) {
    const char16_t unit = kUnits[static_cast<uchar>(*at)];
    if (unit == kEnd) {
      break;
    }
    *out = unit;
    out += unit == kLineEnd ? 0 : 1;
  }
  words_ = QStringView(begin, out);
  rest_ = rest_.sliced(at - rest_.begin());
}

// A blank or a line end behind the word belongs to it.
void RtfHtml::takeWord() {
  const auto* const end = std::find_if(rest_.begin() + 1, rest_.end(), endsWord);
  token_ = Token::Word;
  piece_ = rest_.first(end - rest_.begin());
  rest_ = rest_.sliced(piece_.size());
  if (rest_.startsWith("\r\n")) {
    rest_ = rest_.sliced(2);
  } else if (!rest_.isEmpty() && !startsToken(rest_.front())) {
    rest_ = rest_.sliced(1);
  }
  readWord();
}

void RtfHtml::readWord() {
  const auto* const name = piece_.begin() + 1;
  const auto* const digits = std::find_if_not(name, piece_.end(), isLetter);
  const WordRule& rule = piece_.startsWith("\\*") ? kIgnorable : ruleOf({name, static_cast<size_t>(digits - name)});
  action_ = rule.action;
  code_ = rule.code;
  hasNumber_ = digits != piece_.end() && isDigit(*digits);
  number_ = 0;
  for (const auto* digit = digits; digit != piece_.end() && isDigit(*digit); ++digit) {
    number_ = std::min(number_ * 10 + (*digit - '0'), kLargest);
  }
}

void RtfHtml::handle() {
  // Line ends alone are no token.
  if (token_ == Token::Text && words_.isEmpty()) {
    return;
  }
  if (SkipTokens > 0) {
    --SkipTokens;
    return;
  }
  switch (token_) {
    case Token::Open:
    case Token::Close:
      return;
    case Token::Hex:
      hexByte();
      return;
    case Token::Literal:
      text(QString(QLatin1Char(piece_.back())));
      return;
    case Token::Word:
      act();
      return;
    case Token::Text:
      text(words_);
  }
}

/// Passes over the group of a table. Behind one that doesn't end nothing is passed over any more.
void RtfHtml::readTable() {
  const qsizetype end = cutsTables_ && depth_ > 0 ? groupEnd() : 0;
  cutsTables_ = end >= 0 && cutsTables_;
  if (end <= 0) {
    return;
  }
  // From the word on, which takes the first ";" along when nothing stands between them.
  const QByteArrayView table(piece_.data(), rest_.data() + end);
  if (action_ == Action::ColourTable) {
    Colors = RtfHtmlTables::colours(table);
  } else if (action_ == Action::FontTable) {
    Fonts = RtfHtmlTables::faces(table);
  }
  rest_ = rest_.sliced(end + 1);
  --depth_;
}

/// Where the brace stands that closes the present group; -1 when there is none.
qsizetype RtfHtml::groupEnd() const {
  qsizetype open = 1;
  for (qsizetype at = 0; at < rest_.size(); ++at) {
    const char c = rest_[at];
    open += c == '{' ? 1 : c == '}' ? -1 : 0;
    if (open == 0) {
      return at;
    }
    at += c == '\\' ? 1 : 0;
  }
  return -1;
}

void RtfHtml::act() {
  switch (action_) {
    case Action::Switch:
      if (hasNumber_ && number_ == 0) {
        tags_.close(code_);
      } else {
        tags_.open(code_);
      }
      return;
    case Action::End:
      return tags_.close(code_);
    case Action::NoScript:
      return endScript();
    case Action::NewItem:
      return reopenItem();
    case Action::NewItemOnce:
      return tags_.isAsked(HtmlCode::ListItem) ? void() : reopenItem();
    case Action::Item:
      tags_.close(HtmlCode::Alignment);
      return tags_.open(HtmlCode::ListItem);
    case Action::Colour:
      return setColour();
    case Action::Face:
      return setFace();
    case Action::Size:
      return setSize();
    case Action::ParagraphEnd:
      return paragraphEnd();
    case Action::NewParagraph:
      return newParagraph();
    case Action::Plain:
      return plain();
    case Action::DropToken:
      SkipTokens = 1;
      return;
    case Action::Centre:
      return align("center"_L1);
    case Action::Right:
      return align("right"_L1);
    case Action::Tab:
      return text(u"\t");
    case Action::ColourTable:
    case Action::FontTable:
    case Action::Table:
      return readTable();
    case Action::None:
    case Action::Skip:
      return;
  }
}

void RtfHtml::hexByte() {
  const QByteArrayView digits = piece_.sliced(2);
  if (RtfHtmlTables::isTradeMark(digits)) {
    tags_.open(HtmlCode::Superscript);
    text(u"TM");
    endScript();
    return;
  }
  const QString html = RtfHtmlTables::hexText(digits);
  if (!html.isEmpty()) {
    text(html);
  }
}

void RtfHtml::endScript() {
  tags_.close(HtmlCode::Subscript);
  tags_.close(HtmlCode::Superscript);
}

void RtfHtml::paragraphEnd() {
  if (tags_.isOpenOrAsked(HtmlCode::ListItem)) {
    tags_.close(HtmlCode::ListItem);
    tags_.startLine();
    return;
  }
  tags_.breakLine();
}

void RtfHtml::newParagraph() {
  tags_.closeTied();
  if (!InList) {
    tags_.close(HtmlCode::ListItem);
  }
}

void RtfHtml::plain() {
  tags_.tieAll();
  font_ = {};
  tags_.forgetFont();
}

void RtfHtml::align(QLatin1StringView where) {
  const QString tag = alignmentTag(where);
  if (tag != AlignTag) {
    tags_.close(HtmlCode::Alignment);
    AlignTag = tag;
  }
  tags_.open(HtmlCode::Alignment, tag, true);
}

void RtfHtml::reopenItem() {
  tags_.close(HtmlCode::ListItem);
  tags_.open(HtmlCode::ListItem);
}

void RtfHtml::setColour() {
  if (number_ > Colors.size()) {
    return;
  }
  font_.CurrentColor = number_ == 0 ? QString() : Colors[number_ - 1];
  rebuildFont();
}

void RtfHtml::setFace() {
  if (options_.UseFontFaces) {
    font_.CurrentFace = number_ < Fonts.size() ? Fonts[number_] : QString();
    rebuildFont();
  }
}

void RtfHtml::setSize() {
  const int size = HtmlFont::sizeOf(number_);
  font_.CurrentSize = size == options_.BaseSize ? QString() : QString::number(size);
  rebuildFont();
}
