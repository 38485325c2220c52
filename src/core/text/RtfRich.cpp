#include "core/infra/CodePage.h"
#include "core/text/Rtf.h"
#include "core/text/RtfLook.h"
#include "core/text/RtfReader.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kMaxTabStops = 64;
constexpr int kTwipsPerQuarterPoint = 5;

struct Formats {
  RtfLook characters;
  ParagraphFormat paragraph;
  TabStop nextTab;
  int listNumber = 0;  ///< Of the list that the paragraph is in; 0: none.
  int listLevel = 0;
  int charNumber = -1;  ///< Of the format in the builder; -1: not looked up yet.
  int paragraphNumber = -1;
};

int distance(RtfProperty property, RtfProperty first) {
  return static_cast<int>(property) - static_cast<int>(first);
}

CharFormat::Script scriptOf(bool on, CharFormat::Script script) {
  return on ? script : CharFormat::Script::Normal;
}

/// Makes a rich text of what is read. A note's text is made beside the one that it stands in.
class RichSink final : public RtfSink {
 public:
  explicit RichSink(const QByteArray& bytes) : RtfSink(true), bytes_(bytes), text_(bytes.size() - bytes.size() / 8) {}

  void use(const RtfReader& reader) { reader_ = &reader; }
  RichText take() { return std::move(taken_); }

  void ascii(const char* text, qsizetype length) override { builder().appendAscii(text, length, charNumber()); }
  void unit(char16_t unit) override { builder().appendUnit(unit, charNumber()); }
  void lineBreak() override { builder().lineBreak(charNumber()); }
  void paragraphEnd() override {
    builder().endParagraph(charNumber(), paragraphNumber());
    text().label.clear();
    text().breaksPage = false;
  }
  void finish(bool closed) override {
    const int characters = charNumber();
    const int paragraph = paragraphNumber();
    taken_ = closed ? builder().takeClosed(characters, paragraph) : builder().take(characters, paragraph);
  }

  void open() override { outer_.push_back(now_); }
  void close() override {
    now_ = std::move(outer_.back());
    outer_.pop_back();
  }
  void plain() override {
    const int field = now_.characters.field;
    now_.characters = {};
    now_.characters.field = field;
    now_.characters.language = language_;
    now_.charNumber = -1;
  }
  void font(int number) override {
    now_.characters.font = number;
    now_.charNumber = -1;
  }
  void associatedFont(int number) override {
    now_.characters.associatedFont = number;
    now_.charNumber = -1;
  }
  void defaultLanguage(int number) override {
    language_ = number;
    now_.characters.language = number;
    now_.charNumber = -1;
  }
  void defaultTab(int twips) override { builder().setDefaultTab(twips); }
  void breakPage() override { text().breaksPage = true; }
  void label(const QString& label, int font) override {
    text().label = label;
    text().labelFont = font;
  }
  void list(const ListMark& mark, int font) override {
    now_.paragraph.list = mark;
    now_.paragraph.list.fontName = mark.style == ListMark::Style::Bullet ? fontName(font) : QString();
    now_.paragraphNumber = -1;
  }
  void format(RtfProperty property, std::optional<int> value) override {
    if (property < RtfProperty::ParagraphDefaults) {
      formatCharacters(property, value);
      now_.charNumber = -1;
    } else {
      formatParagraph(property, value);
      now_.paragraphNumber = -1;
    }
  }

  void openField() override { fields_.push_back({}); }
  void instruction(const QString& words) override {
    if (!fields_.empty()) {
      fields_.back().instruction = words.trimmed();
    }
  }
  void fieldResult() override;
  void closeField(bool isEmpty) override;
  void openText() override;
  std::shared_ptr<const RichText> closeText() override;
  void object(InlineObject object, QByteArrayView bytes, QByteArrayView tail) override;

  bool hasNestedFields() const { return hasNestedFields_; }

 private:
  using Property = RtfProperty;

  struct KnownLook {
    RtfLook look;
    int number = -1;
  };
  struct Text {
    explicit Text(qsizetype sizeHint) : builder(sizeHint) {}
    RichText::Builder builder;
    ListNumbering numbering;
    QHash<RtfLook, int> known;
    // A text goes to and fro between few formats, which are found faster by looking at them than by hashing.
    std::array<KnownLook, 4> recent{};
    size_t nextRecent = 0;
    ParagraphFormat lastParagraph;
    int lastNumber = -1;
    // Of the current paragraph; they stand in front of the words that reset it.
    QString label;
    int labelFont = -1;
    bool breaksPage = false;
  };
  struct Field {
    QString instruction;
    bool isInside = false;  ///< Another field's result.
  };

  Text& text() { return notes_.empty() ? text_ : *notes_.back(); }
  const Text& text() const { return notes_.empty() ? text_ : *notes_.back(); }
  RichText::Builder& builder() { return text().builder; }
  void formatCharacters(RtfProperty property, std::optional<int> value);
  void formatLook(RtfProperty property, bool on, int value);
  void formatParagraph(RtfProperty property, std::optional<int> value);
  void addTabStop(int position);
  int charNumber();
  int paragraphNumber();
  int listedNumber();
  ListMark listMark() const;
  CharFormat charFormat() const;
  QString fontName(int number) const { return reader_->tables().fonts.value(number).name; }
  std::optional<quint32> colour(int number) const;
  bool extendsLast(QByteArrayView bytes) const;
  void append(InlineObject object);

  const QByteArray& bytes_;
  Text text_;
  std::vector<std::unique_ptr<Text>> notes_;  ///< Open, each in the one in front.
  RichText taken_;
  const RtfReader* reader_ = nullptr;
  Formats now_;
  std::vector<Formats> outer_;
  int language_ = 0;
  std::vector<Field> fields_;
  QStringList instructions_;
  bool hasNestedFields_ = false;
  /// The picture that was put in last, and where it stands in the bytes and in the text.
  InlineObject lastPicture_;
  QByteArrayView lastBytes_;
};

void RichSink::formatCharacters(RtfProperty property, std::optional<int> value) {
  RtfLook& look = now_.characters;
  const bool on = value.value_or(1) != 0;
  if (property <= Property::Engraved) {
    look.*kCharSwitches[static_cast<size_t>(property)] = on;
  } else if (property <= Property::DoubleWavyUnderline) {
    look.underline =
        on ? static_cast<CharLook::Underline>(distance(property, Property::NoUnderline)) : CharLook::Underline::None;
  } else {
    formatLook(property, on, value.value_or(0));
  }
}

void RichSink::formatLook(RtfProperty property, bool on, int value) {
  RtfLook& look = now_.characters;
  switch (property) {
    case Property::Subscript:
    case Property::Lowered:
      look.script = scriptOf(on, CharFormat::Script::Subscript);
      return;
    case Property::Superscript:
    case Property::Raised:
      look.script = scriptOf(on, CharFormat::Script::Superscript);
      return;
    case Property::NormalScript:
      look.script = CharFormat::Script::Normal;
      return;
    case Property::FontSize:
      look.halfPoints = std::max(value, 0);
      return;
    case Property::Colour:
      look.colour = value;
      return;
    case Property::Background:
      look.background = value;
      return;
    case Property::LetterSpacing:
      look.letterSpacing = value;
      return;
    case Property::LetterSpacingQuarters:
      look.letterSpacing = value * kTwipsPerQuarterPoint;
      return;
    case Property::Language:
      look.language = value;
      return;
    case Property::LeftToRightRun:
    case Property::RightToLeftRun:
      look.direction = static_cast<CharLook::Direction>(1 + distance(property, Property::LeftToRightRun));
      return;
    case Property::AssociatedBold:
      look.associated.bold = on;
      return;
    case Property::AssociatedItalic:
      look.associated.italic = on;
      return;
    case Property::AssociatedSize:
      look.associated.halfPoints = std::max(value, 0);
      return;
    default:
      look.associated.language = value;
      return;
  }
}

void RichSink::formatParagraph(RtfProperty property, std::optional<int> given) {
  using Format = ParagraphFormat;
  Format& format = now_.paragraph;
  const int value = given.value_or(0);
  const bool on = given.value_or(1) != 0;
  if (property == Property::ParagraphDefaults) {
    format = {};
    now_.nextTab = {};
    now_.listNumber = now_.listLevel = 0;
  } else if (property <= Property::AlignJustify) {
    format.alignment = static_cast<Format::Alignment>(distance(property, Property::AlignLeft));
  } else if (property <= Property::LineSpacing) {
    format.*kParagraphLengths[static_cast<size_t>(distance(property, Property::LeftIndent))] = value;
  } else if (property == Property::LineSpacingFactor) {
    format.lineSpacingIsFactor = value != 0;
  } else if (property <= Property::KeepTogether) {
    format.*kParagraphSwitches[static_cast<size_t>(distance(property, Property::PageBreakBefore))] = on;
  } else if (property <= Property::RightToLeft) {
    format.rightToLeft = property == Property::RightToLeft;
  } else if (property == Property::ParagraphBackground) {
    format.background = colour(value);
  } else if (property == Property::ListNumber) {
    now_.listNumber = value;
  } else if (property == Property::ListLevel) {
    now_.listLevel = value;
  } else if (property == Property::TabStop) {
    addTabStop(value);
  } else if (property <= Property::TabDecimal) {
    now_.nextTab.kind = static_cast<TabStop::Kind>(distance(property, Property::TabStop));
  } else {
    now_.nextTab.leader = static_cast<TabStop::Leader>(1 + distance(property, Property::LeaderDots));
  }
}

void RichSink::addTabStop(int position) {
  if (now_.paragraph.tabStops.size() < kMaxTabStops) {
    now_.nextTab.position = position;
    now_.paragraph.tabStops.append(now_.nextTab);
  }
  now_.nextTab = {};
}

int RichSink::charNumber() {
  if (now_.charNumber >= 0) {
    return now_.charNumber;
  }
  Text& into = text();
  for (const KnownLook& recent : into.recent) {
    if (recent.number >= 0 && recent.look == now_.characters) {
      return now_.charNumber = recent.number;
    }
  }
  const auto known = into.known.constFind(now_.characters);
  if (known != into.known.constEnd()) {
    now_.charNumber = *known;
  } else {
    now_.charNumber = into.builder.charFormat(charFormat());
    into.known.insert(now_.characters, now_.charNumber);
  }
  into.recent[into.nextRecent++ % into.recent.size()] = {now_.characters, now_.charNumber};
  return now_.charNumber;
}

int RichSink::paragraphNumber() {
  Text& into = text();
  const bool isListed =
      !into.label.isEmpty() || now_.listNumber > 0 || now_.paragraph.list.style != ListMark::Style::None;
  if (isListed || into.breaksPage) {
    return listedNumber();
  }
  into.numbering.endLists();
  if (now_.paragraphNumber >= 0) {
    return now_.paragraphNumber;
  }
  if (into.lastNumber < 0 || into.lastParagraph != now_.paragraph) {
    into.lastParagraph = now_.paragraph;
    into.lastNumber = into.builder.paragraphFormat(now_.paragraph);
  }
  return now_.paragraphNumber = into.lastNumber;
}

/// Of a paragraph that has something of its own.
int RichSink::listedNumber() {
  ParagraphFormat format = now_.paragraph;
  format.list = normalised(listMark());
  format.pageBreakBefore = format.pageBreakBefore || text().breaksPage;
  const int told = RtfLists::numberIn(format.list, text().label);
  ListNumbering before = text().numbering;
  const int expected = text().numbering.next(format.list);
  if (told > 0 && told != expected) {
    format.list.start = told;
    before.next(format.list);
    text().numbering = before;
  }
  return builder().paragraphFormat(format);
}

/// What the text says of the list, else what the mark that is written out looks like.
ListMark RichSink::listMark() const {
  ListMark mark = now_.paragraph.list;
  if (mark.style == ListMark::Style::None && now_.listNumber > 0) {
    mark = reader_->lists().mark(now_.listNumber, now_.listLevel);
  }
  if (mark.style == ListMark::Style::None && !text().label.trimmed().isEmpty()) {
    mark = RtfLists::guess(text().label);
    mark.level = now_.listLevel;
    mark.fontName = mark.style == ListMark::Style::Bullet ? fontName(text().labelFont) : QString();
    mark.fontName = isSymbolFont(mark.fontName) ? mark.fontName : QString();
  }
  return mark;
}

CharFormat RichSink::charFormat() const {
  const RtfLook& look = now_.characters;
  const int font = look.font >= 0 ? look.font : reader_->tables().defaultFont;
  CharFormat format;
  static_cast<CharLook&>(format) = look;
  format.fontName = fontName(font);
  format.associatedFont = look.associatedFont >= 0 ? fontName(look.associatedFont) : QString();
  format.colour = colour(look.colour);
  format.background = colour(look.background);
  format.field = look.field >= 0 ? instructions_[look.field] : QString();
  return format;
}

std::optional<quint32> RichSink::colour(int number) const {
  const auto& colours = reader_->tables().colours;
  const bool known = number >= 0 && static_cast<size_t>(number) < colours.size();
  return known ? colours[static_cast<size_t>(number)] : std::nullopt;
}

void RichSink::fieldResult() {
  if (fields_.empty()) {
    return;
  }
  Field& field = fields_.back();
  field.isInside = now_.characters.field >= 0;
  if (field.instruction.isEmpty() || field.isInside) {
    return;
  }
  instructions_.append(field.instruction);
  now_.characters.field = static_cast<int>(instructions_.size()) - 1;
  now_.charNumber = -1;
}

void RichSink::closeField(bool isEmpty) {
  if (fields_.empty()) {
    return;
  }
  const Field field = std::move(fields_.back());
  fields_.pop_back();
  if (field.instruction.isEmpty()) {
    return;
  }
  if (isEmpty) {
    InlineObject code;
    code.kind = InlineObject::Kind::Field;
    code.label = field.instruction;
    append(std::move(code));
    return;
  }
  hasNestedFields_ = hasNestedFields_ || field.isInside;
}

void RichSink::openText() {
  notes_.push_back(std::make_unique<Text>(0));
  now_.charNumber = now_.paragraphNumber = -1;
  now_.characters.field = -1;
  now_.paragraph = {};
  now_.listNumber = now_.listLevel = 0;
}

std::shared_ptr<const RichText> RichSink::closeText() {
  const int characters = charNumber();
  const int paragraph = paragraphNumber();
  auto text = std::make_shared<const RichText>(builder().take(characters, paragraph));
  notes_.pop_back();
  return text;
}

/// A picture can stand there a second time for programs that don't know the first form: both are one.
bool RichSink::extendsLast(QByteArrayView bytes) const {
  if (lastBytes_.isEmpty() || !bytes.startsWith("\\nonshppict")) {
    return false;
  }
  QByteArray between(lastBytes_.end(), bytes.begin() - lastBytes_.end());
  between.removeIf([](char byte) { return byte == '\r' || byte == '\n' || byte == '\0'; });
  return between == "}{" || between == "}{\\*";
}

void RichSink::object(InlineObject object, QByteArrayView bytes, QByteArrayView tail) {
  if (!tail.isEmpty()) {
    object.tail = SharedBytes(bytes_, tail.data() - bytes_.constData(), tail.size());
  }
  if (bytes.isEmpty()) {
    append(std::move(object));
    return;
  }
  const bool isSame = extendsLast(bytes);
  const QByteArrayView all = isSame ? QByteArrayView(lastBytes_.begin(), bytes.end()) : bytes;
  object.bytes = SharedBytes(bytes_, all.data() - bytes_.constData(), all.size());
  if (isSame) {
    lastBytes_ = {};
    builder().dropObject();
  } else {
    lastBytes_ = bytes.startsWith("\\shppict") ? bytes : QByteArrayView();
  }
  append(std::move(object));
}

void RichSink::append(InlineObject object) {
  CharFormat format = charFormat();
  format.object = std::make_shared<const InlineObject>(std::move(object));
  builder().appendObject(builder().charFormat(format));
}

}  // namespace

RichText readRtf(const QByteArray& bytes, RtfLosses* losses) {
  if (losses != nullptr) {
    *losses = {};
  }
  if (!isRtf(bytes)) {
    return RichText::fromPlain(CodePage::fromBytes(bytes));
  }
  RichSink sink(bytes);
  RtfReader reader(rtfStart(bytes), sink);
  sink.use(reader);
  reader.read();
  if (losses != nullptr) {
    *losses = reader.losses();
    *losses |= sink.hasNestedFields() ? RtfLoss::NestedFields : RtfLosses();
  }
  return sink.take();
}
