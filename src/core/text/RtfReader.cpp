#include "core/text/RtfReader.h"

#include "core/text/TextUnits.h"

#include <QChar>

#include <algorithm>
#include <utility>

namespace {

/// Groups deeper than this do not remember their state; no text made in earnest nests so deep.
constexpr size_t kMaxDepth = 4000;
constexpr qint32 kMaxFallback = 1 << 20;
constexpr qsizetype kMaxFontName = 256;
constexpr qsizetype kMaxWords = 1 << 16;

/// Whether anything but what writers put behind the last brace is left.
bool holdsMore(QByteArrayView rest) {
  return std::any_of(rest.begin(), rest.end(), [](char byte) {
    constexpr char kEndOfFile = 0x1A;
    return byte != '\0' && byte != '\r' && byte != '\n' && byte != ' ' && byte != '\t' && byte != kEndOfFile;
  });
}

}  // namespace

void RtfReader::read() {
  RtfToken token;
  for (bool more = true; more;) {
    lexer_.next(token);
    switch (token.kind) {
      case RtfToken::Kind::Text:
        text(token);
        break;
      case RtfToken::Kind::Byte:
        before_ = Before::Other;
        if (!skipsAsFallback()) {
          byte(static_cast<uchar>(token.number));
        }
        break;
      case RtfToken::Kind::Word:
        word(token);
        break;
      case RtfToken::Kind::Symbol:
        symbol(static_cast<char>(token.number));
        break;
      case RtfToken::Kind::Open:
        open();
        break;
      case RtfToken::Kind::Close:
        groupEnd_ = lexer_.position() - 1;
        more = close();
        isClosed_ = !more;
        break;
      case RtfToken::Kind::End:
        more = false;
        break;
    }
  }
  flushBytes();
  if (!isClosed_ || holdsMore(lexer_.rest())) {
    losses_ |= RtfLoss::Damaged;
  }
  groupEnd_ = nullptr;
  while (!objects_.empty() && close()) {  // a text that was cut off
  }
  sink_.finish(line_ == Line::Closed && (wantsFormats_ || !endIsHidden_));
}

void RtfReader::open() {
  flushBytes();
  fallbacks_ = 0;
  before_ = Before::Open;
  opened_ = lexer_.position() - 1;
  if (outer_.size() >= kMaxDepth) {
    ++tooDeep_;
    return;
  }
  outer_.push_back(group_);
  group_.role = Role::None;
  sink_.open();
  if (group_.destination == Destination::Alternatives) {
    group_.destination = Destination::Alternative;
  }
}

bool RtfReader::close() {
  flushBytes();
  fallbacks_ = 0;
  before_ = Before::Other;
  if (tooDeep_ > 0) {
    --tooDeep_;
    return true;
  }
  if (outer_.size() <= 1) {
    return false;  // what stands behind the document's own brace is no part of it
  }
  const Group closed = group_;
  if (closed.role == Role::Note || closed.role == Role::Result) {
    objects_.back().object.content = sink_.closeText();
  }
  group_ = outer_.back();
  outer_.pop_back();
  sink_.close();
  if (closed.destination > Destination::Alternative && closed.destination != group_.destination) {
    leave(closed);
  }
  if (closed.role != Role::None) {
    endRole(closed);
  }
  return true;
}

bool RtfReader::skipsAsFallback() {
  if (fallbacks_ == 0) {
    return false;
  }
  --fallbacks_;
  return true;
}

/// The second half of a pair that directly follows the first is no fallback for it.
bool RtfReader::completesPair(const RtfToken& token) const {
  return isHalfOfPair_ && fallbacks_ == group_.fallbackLength && token.length == 1 && *token.first == 'u' &&
         QChar::isLowSurrogate(static_cast<char16_t>(token.number));
}

void RtfReader::text(RtfToken& token) {
  before_ = Before::Other;
  if (fallbacks_ > 0) {
    const auto skipped = static_cast<qint32>(std::min<qsizetype>(fallbacks_, token.length));
    fallbacks_ -= skipped;
    token.first += skipped;
    token.length -= skipped;
  }
  while (token.length > 0 && sequenceSize_ > 0) {
    byte(static_cast<uchar>(*token.first++));
    --token.length;
  }
  if (token.length == 0) {
    return;
  }
  if (group_.destination == Destination::Body) {
    bodyText(token.first, token.length);
  } else {
    tableText(token.first, token.length);
  }
}

void RtfReader::bodyText(const char* text, qsizetype length) {
  if (group_.isDeleted) {
    return;
  }
  if (!decoder().isSymbol()) {
    came(Line::Begun);
    if (isShown()) {
      sink_.ascii(text, length);
    }
    return;
  }
  std::for_each(text, text + length, [this](char raw) { byte(static_cast<uchar>(raw)); });
}

void RtfReader::symbol(char symbol) {
  const bool isText = symbol == '\\' || symbol == '{' || symbol == '}';
  if (!isText) {
    flushBytes();
  }
  before_ = symbol == '*' && before_ == Before::Open ? Before::Star : Before::Other;
  if (skipsAsFallback()) {
    return;
  }
  switch (symbol) {
    case '\\':
    case '{':
    case '}':
      byte(static_cast<uchar>(symbol));
      return;
    case '~':
      put(0x00A0);
      return;
    case '-':
      put(0x00AD);
      return;
    case '_':
      put(0x2011);
      return;
    case '\t':
      put(u'\t');
      return;
    case '\r':
    case '\n':
      lineEnd(RtfAction::ParagraphEnd);
      return;
    default:
      return;
  }
}

void RtfReader::word(const RtfToken& token) {
  flushBytes();
  const Before before = std::exchange(before_, Before::Other);
  if (fallbacks_ > 0 && !completesPair(token)) {
    --fallbacks_;
    return;
  }
  const RtfWord* const known = findRtfWord(token.first, token.length);
  const bool isNoPart =
      group_.destination == Destination::Alternative && (known == nullptr || known->action != RtfAction::UnicodePart);
  if (isNoPart || (before == Before::Star && known == nullptr)) {
    skipGroup();
    return;
  }
  if (known == nullptr) {
    return;
  }
  if (known->action == RtfAction::Format) {
    if (wantsFormats_) {
      sink_.format(static_cast<RtfProperty>(known->value),
                   token.hasNumber ? std::optional<int>(token.number) : std::nullopt);
    }
    return;
  }
  if (known->action != RtfAction::AssociatedFont || before != Before::FontSlot) {
    act(*known, token);
  }
}

void RtfReader::act(const RtfWord& word, const RtfToken& token) {
  const bool isOn = !token.hasNumber || token.number != 0;
  switch (word.action) {
    case RtfAction::Ignore:
    case RtfAction::Format:
    case RtfAction::Binary:
    case RtfAction::KeepGroup:
      return;
    case RtfAction::Loss:
      return lose(word.value);
    case RtfAction::Character:
      return put(word.value);
    case RtfAction::ParagraphEnd:
    case RtfAction::LineBreak:
    case RtfAction::PageBreak:
      return lineEnd(word.action);
    case RtfAction::SoftEnd:
      lose(word.value);
      return lineEnd(word.action);
    case RtfAction::Unicode:
      return unicode(token.number);
    case RtfAction::FallbackLength:
      group_.fallbackLength = token.hasNumber ? std::clamp(token.number, 0, kMaxFallback) : 1;
      return;
    case RtfAction::SkipGroup: {
      // What a link's data say stands in its instruction too.
      const bool isTold = group_.destination == Destination::Instruction && words_.trimmed().startsWith(u"HYPERLINK");
      lose(isTold ? 0 : word.value);
      return skipGroup();
    }
    case RtfAction::FontSlot:
      before_ = Before::FontSlot;
      return;
    case RtfAction::FontTable:
      return isOfDocument() ? enterTable(Destination::Fonts) : skipGroup();
    case RtfAction::ColourTable:
      return isOfDocument() ? enterTable(Destination::Colours) : skipGroup();
    case RtfAction::Alternatives:
      return enterTable(Destination::Alternatives);
    case RtfAction::UnicodePart:
      return enterUnicodePart();
    case RtfAction::Label:
      return enterWords(Destination::Label, token);
    case RtfAction::Numbering:
      numbering_ = {};
      markFont_ = -1;
      return enterWords(Destination::Numbering, token);
    case RtfAction::NumberingPart:
      return numberingPart(static_cast<RtfListPart>(word.value), token);
    case RtfAction::ListTable:
      return wantsFormats_ ? enterTable(Destination::Lists) : skipGroup();
    case RtfAction::ListPart:
      return listPart(static_cast<RtfListPart>(word.value), token);
    case RtfAction::ListNumber:
      return listNumber(token.number);
    case RtfAction::Field:
      return enterField();
    case RtfAction::Instruction:
      return enterWords(Destination::Instruction, token);
    case RtfAction::FieldResult:
      return enterFieldResult();
    case RtfAction::Picture:
      return takePicture(token);
    case RtfAction::Shape:
      return takeShape(token);
    case RtfAction::Object:
      return enterObject(token);
    case RtfAction::ObjectResult:
      return enterObjectResult();
    case RtfAction::Note:
      return enterNote(static_cast<InlineObject::Kind>(word.value), token);
    case RtfAction::EndnoteMark:
    case RtfAction::OwnNumber:
      return noteWord(word.action);
    case RtfAction::Mark:
    case RtfAction::Detail:
      return enterWords(Destination::Name, token, word.value);
    case RtfAction::DocumentCodePage:
      return hasAnsiCodePage_ ? void() : setDocumentCodePage(word.value);
    case RtfAction::AnsiCodePage:
      hasAnsiCodePage_ = hasAnsiCodePage_ || (isOfDocument() && token.number > 0);
      return setDocumentCodePage(token.number);
    case RtfAction::DefaultFont:
      if (isOfDocument()) {
        tables_.defaultFont = token.number;
        decoder_ = nullptr;
      }
      return;
    case RtfAction::DefaultLanguage:
      return isOfDocument() ? sink_.defaultLanguage(token.number) : void();
    case RtfAction::DefaultTab:
      return isOfDocument() ? sink_.defaultTab(token.number) : void();
    case RtfAction::Font:
      return selectFont(token.number);
    case RtfAction::AssociatedFont:
      return sink_.associatedFont(token.number);
    case RtfAction::FontCharset:
    case RtfAction::FontCodePage:
      return fontWord(word.action, token.number);
    case RtfAction::Red:
    case RtfAction::Green:
    case RtfAction::Blue:
      return colourPart(word.action, token.number);
    case RtfAction::Plain:
      return plainWord();
    case RtfAction::Hidden:
      group_.isHidden = isOn;
      return sink_.format(RtfProperty::HiddenText, isOn);
    case RtfAction::Deleted:
      group_.isDeleted = isOn;
      return lose(static_cast<quint16>(isOn ? RtfLoss::Deletions : RtfLoss()));
  }
}

void RtfReader::plainWord() {
  group_.isHidden = group_.isDeleted = false;
  group_.font = -1;
  sink_.plain();
}

void RtfReader::unicode(qint32 number) {
  fallbacks_ = group_.fallbackLength;
  const qint32 character = number < 0 ? number + 0x10000 : number;
  isHalfOfPair_ = character >= 0 && QChar::isHighSurrogate(static_cast<char32_t>(character));
  if (character > 0 && character <= 0x10FFFF) {
    put(static_cast<char32_t>(character));
  }
}

void RtfReader::lineEnd(RtfAction action) {
  if (!inBody()) {
    return;
  }
  const bool isParagraph = action != RtfAction::LineBreak;
  const bool isEnd = action == RtfAction::ParagraphEnd || action == RtfAction::LineBreak || line_ == Line::Begun;
  if (isEnd) {
    endLine(isParagraph);
  }
  if (action == RtfAction::PageBreak) {
    came(Line::Broken);  // the page that begins has a paragraph, be it an empty one
    sink_.breakPage();
  }
}

void RtfReader::endLine(bool isParagraph) {
  came(isParagraph ? Line::Closed : Line::Broken);
  endIsHidden_ = group_.isHidden;
  if (!isShown()) {
    return;
  }
  if (isParagraph) {
    sink_.paragraphEnd();
  } else {
    sink_.lineBreak();
  }
}

void RtfReader::byte(uchar byte) {
  const ByteDecoder& bytes = decoder();
  if (sequenceSize_ > 0 && !bytes.mayFollow(byte)) {
    flushBytes();
  }
  if (sequenceSize_ == 0) {
    sequenceLength_ = bytes.sequenceLength(byte);
    if (sequenceLength_ == 1) {
      put(bytes.single(byte));
      return;
    }
  }
  sequence_[static_cast<size_t>(sequenceSize_++)] = static_cast<char>(byte);
  if (sequenceSize_ < sequenceLength_) {
    return;
  }
  const char32_t character = bytes.decode(QByteArrayView(sequence_.data(), sequenceSize_));
  sequenceSize_ = 0;
  put(character);
  if (character == ByteDecoder::kInvalid && byte < 0x80 && bytes.knowsPairs()) {
    put(byte);  // a broken pair swallows no letter
  }
}

void RtfReader::flushBytes() {
  if (sequenceSize_ > 0) {
    sequenceSize_ = 0;
    put(ByteDecoder::kInvalid);
  }
}

void RtfReader::put(char32_t character) {
  if (QChar::requiresSurrogates(character)) {
    putUnit(QChar::highSurrogate(character));
    putUnit(QChar::lowSurrogate(character));
    return;
  }
  putUnit(static_cast<char16_t>(character));
}

void RtfReader::putUnit(char16_t unit) {
  if (group_.destination == Destination::Fonts) {
    const auto font = tables_.fonts.find(declaredFont_);
    if (font != tables_.fonts.end() && font->name.size() < kMaxFontName) {
      font->name.append(QChar(unit));
    }
    return;
  }
  if (takesWords()) {
    if (words_.size() < kMaxWords) {
      words_.append(QChar(unit));
    }
    return;
  }
  if (!inBody()) {
    return;
  }
  switch (kindOfUnit(unit)) {
    case UnitKind::Ordinary:
      came(Line::Begun);
      return isShown() ? sink_.unit(unit) : void();
    case UnitKind::LineBreak:
      return endLine(false);
    case UnitKind::ParagraphEnd:
      if (unit != u'\n') {  // as \'0a it is the rest of a \'0d\'0a
        endLine(true);
      }
      return;
    case UnitKind::Dropped:
      return;
  }
}

const ByteDecoder& RtfReader::decoder() {
  const bool declares = group_.destination == Destination::Fonts;
  const int font = declares ? declaredFont_ : group_.font >= 0 ? group_.font : tables_.defaultFont;
  if (decoder_ == nullptr || font != decoderFont_) {
    decoder_ = &decoderOf(font);
    decoderFont_ = font;
  }
  const bool isOrdinary = declares || group_.destination == Destination::Instruction ||
                          group_.destination == Destination::Name || group_.destination == Destination::MarkText;
  if (isOrdinary && decoder_->isSymbol()) {  // the name of a symbol font is ordinary text, and so is a bookmark's
    return ByteDecoder::of(documentCodePage_);
  }
  return *decoder_;
}

const ByteDecoder& RtfReader::decoderOf(int number) {
  const auto font = tables_.fonts.find(number);
  if (font == tables_.fonts.end()) {
    return ByteDecoder::of(documentCodePage_);
  }
  if (font->decoder == nullptr) {
    const int codePage = font->codePage > 0 ? font->codePage : codePageOfCharset(font->charset);
    if (codePage <= 0) {
      return ByteDecoder::of(documentCodePage_);
    }
    font->decoder = &ByteDecoder::of(codePage);
  }
  return *font->decoder;
}

void RtfReader::skipGroup() {
  if (tooDeep_ > 0 || outer_.size() > 1) {  // else there is no group but the whole text
    lexer_.skipGroup();
  }
}
