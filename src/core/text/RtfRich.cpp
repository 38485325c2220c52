#include "core/infra/CodePage.h"
#include "core/text/Rtf.h"
#include "core/text/RtfLook.h"
#include "core/text/RtfReader.h"

#include <QHash>

#include <algorithm>

namespace {

struct Formats {
  RtfLook characters;
  ParagraphFormat paragraph;
  TabStop::Kind nextTab = TabStop::Kind::Left;
  int charNumber = -1;  ///< Of the format in the builder; -1: not looked up yet.
  int paragraphNumber = -1;
};

constexpr qsizetype kMaxTabStops = 64;

CharFormat::Script scriptOf(bool on, CharFormat::Script script) {
  return on ? script : CharFormat::Script::Normal;
}

class RichSink final : public RtfSink {
 public:
  explicit RichSink(qsizetype sizeHint) : RtfSink(true), builder_(sizeHint) {}

  void use(const RtfTables& tables) { tables_ = &tables; }

  void ascii(const char* text, qsizetype length) override { builder_.appendAscii(text, length, charNumber()); }
  void unit(char16_t unit) override { builder_.appendUnit(unit, charNumber()); }
  void lineBreak() override { builder_.lineBreak(charNumber()); }
  void paragraphEnd() override {
    builder_.endParagraph(charNumber(), paragraphNumber());
    hasBullet_ = false;
  }
  bool atLineStart() const override { return builder_.atLineStart(); }
  bool isEmpty() const override { return builder_.isEmpty(); }
  void finish() override { text_ = builder_.takeClosed(charNumber(), paragraphNumber()); }

  void open() override { outer_.push_back(now_); }
  void close() override {
    now_ = std::move(outer_.back());
    outer_.pop_back();
  }
  void plain() override {
    now_.characters = {};
    now_.charNumber = -1;
  }
  void font(int number) override {
    now_.characters.font = number;
    now_.charNumber = -1;
  }
  void label(bool isBullet) override { hasBullet_ = isBullet; }
  void bullets(bool on) override {
    now_.paragraph.bullet = on;
    now_.paragraphNumber = -1;
  }
  void format(RtfProperty property, std::optional<int> value) override {
    if (property < RtfProperty::ParagraphDefaults) {
      formatCharacters(property, value);
      now_.charNumber = -1;
    } else {
      formatParagraph(property, value.value_or(0));
      now_.paragraphNumber = -1;
    }
  }

  RichText take() { return std::move(text_); }

 private:
  void formatCharacters(RtfProperty property, std::optional<int> value);
  void formatParagraph(RtfProperty property, int value);
  void addTabStop(int position);
  int charNumber();
  int paragraphNumber();
  CharFormat charFormat() const;
  std::optional<quint32> colour(int number) const;

  const RtfTables* tables_ = nullptr;
  RichText::Builder builder_;
  RichText text_;
  Formats now_;
  std::vector<Formats> outer_;
  bool hasBullet_ = false;  ///< By its label; stands in front of the words that reset the paragraph.
  QHash<RtfLook, int> known_;
};

void RichSink::formatCharacters(RtfProperty property, std::optional<int> value) {
  RtfLook& look = now_.characters;
  const bool on = value.value_or(1) != 0;
  if (property <= RtfProperty::AllCaps) {
    look.*kCharSwitches[static_cast<size_t>(property)] = on;
    return;
  }
  switch (property) {
    case RtfProperty::NoUnderline:
      look.underline = false;
      return;
    case RtfProperty::Subscript:
    case RtfProperty::Lowered:
      look.script = scriptOf(on, CharFormat::Script::Subscript);
      return;
    case RtfProperty::Superscript:
    case RtfProperty::Raised:
      look.script = scriptOf(on, CharFormat::Script::Superscript);
      return;
    case RtfProperty::NormalScript:
      look.script = CharFormat::Script::Normal;
      return;
    case RtfProperty::FontSize:
      look.halfPoints = std::max(value.value_or(0), 0);
      return;
    case RtfProperty::Colour:
      look.colour = value.value_or(0);
      return;
    default:
      look.background = value.value_or(0);
      return;
  }
}

void RichSink::formatParagraph(RtfProperty property, int value) {
  using Format = ParagraphFormat;
  Format& format = now_.paragraph;
  const auto after = [property](RtfProperty first) { return static_cast<int>(property) - static_cast<int>(first); };
  if (property == RtfProperty::ParagraphDefaults) {
    format = {};
    now_.nextTab = TabStop::Kind::Left;
  } else if (property <= RtfProperty::AlignJustify) {
    format.alignment = static_cast<Format::Alignment>(after(RtfProperty::AlignLeft));
  } else if (property <= RtfProperty::LineSpacing) {
    format.*kParagraphLengths[static_cast<size_t>(after(RtfProperty::LeftIndent))] = value;
  } else if (property == RtfProperty::LineSpacingFactor) {
    format.lineSpacingIsFactor = value != 0;
  } else if (property == RtfProperty::TabStop) {
    addTabStop(value);
  } else {
    now_.nextTab = static_cast<TabStop::Kind>(after(RtfProperty::TabStop));
  }
}

void RichSink::addTabStop(int position) {
  if (now_.paragraph.tabStops.size() < kMaxTabStops) {
    now_.paragraph.tabStops.append({position, now_.nextTab});
  }
  now_.nextTab = TabStop::Kind::Left;
}

int RichSink::charNumber() {
  if (now_.charNumber >= 0) {
    return now_.charNumber;
  }
  const auto known = known_.constFind(now_.characters);
  if (known != known_.constEnd()) {
    now_.charNumber = *known;
  } else {
    now_.charNumber = builder_.charFormat(charFormat());
    known_.insert(now_.characters, now_.charNumber);
  }
  return now_.charNumber;
}

int RichSink::paragraphNumber() {
  if (hasBullet_ && !now_.paragraph.bullet) {
    ParagraphFormat bulleted = now_.paragraph;
    bulleted.bullet = true;
    return builder_.paragraphFormat(bulleted);
  }
  if (now_.paragraphNumber < 0) {
    now_.paragraphNumber = builder_.paragraphFormat(now_.paragraph);
  }
  return now_.paragraphNumber;
}

CharFormat RichSink::charFormat() const {
  const RtfLook& look = now_.characters;
  const int font = look.font >= 0 ? look.font : tables_->defaultFont;
  return {look, tables_->fonts.value(font).name, colour(look.colour), colour(look.background)};
}

std::optional<quint32> RichSink::colour(int number) const {
  const bool known = number >= 0 && static_cast<size_t>(number) < tables_->colours.size();
  return known ? tables_->colours[static_cast<size_t>(number)] : std::nullopt;
}

}  // namespace

RichText readRtf(QByteArrayView bytes) {
  if (!isRtf(bytes)) {
    return RichText::fromPlain(CodePage::fromBytes(bytes));
  }
  RichSink sink(bytes.size() - bytes.size() / 8);
  RtfReader reader(rtfStart(bytes), sink);
  sink.use(reader.tables());
  reader.read();
  return sink.take();
}
