#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Kind = InlineObject::Kind;
using Style = ListMark::Style;

QString wordOf(Kind kind) {
  static const QStringList words{u"picture"_s, u"object"_s, u"footnote"_s, u"endnote"_s, u"comment"_s, u"mark"_s,
                                 u"/mark"_s,   u"about"_s,  u"/about"_s,   u"field"_s,   u"entry"_s};
  return words[static_cast<qsizetype>(kind)];
}

QString shown(const RichText& text);

/// Shows a text with all that is no plain text in ⟦ ⟧, where it stands.
struct Shower {
  qsizetype paragraphs;
  QString shown{};
  QString field{};

  void enter(const CharFormat& format) {
    if (format.field == field) {
      return;
    }
    shown += field.isEmpty() ? QString() : u"⟦/field⟧"_s;
    field = format.field;
    shown += field.isEmpty() ? QString() : u"⟦field "_s + field + u"⟧"_s;
  }
  void put(const QString& words, const CharFormat& format) {
    shown += format.hidden ? u"⟦hidden "_s + words + u"⟧"_s : words;
  }
  void text(QStringView words, const CharFormat& format) {
    enter(format);
    put(words.toString(), format);
  }
  void object(const CharFormat& format) {
    enter(format);
    const InlineObject& object = *format.object;
    shown += u"⟦"_s + wordOf(object.kind) + (object.isNumbered ? u"#"_s : QString());
    for (const InlineObject::Detail& detail : object.details) {
      shown += u" "_s + QString::fromLatin1(detail.word) + u"="_s + detail.text.trimmed();
    }
    shown += object.label.isEmpty() ? QString() : u" "_s + object.label;
    shown += object.content ? u": "_s + ::shown(*object.content) : QString();
    shown += u"⟧"_s;
  }
  void lineBreak(const CharFormat& format) { put(u"\\"_s, format); }
  void paragraphEnd(const CharFormat& format, const ParagraphFormat&) {
    enter(format);
    if (--paragraphs > 0) {
      put(u"|"_s, format);
    }
  }
};

QString shown(const RichText& text) {
  Shower shower{text.paragraphCount()};
  text.visit(shower);
  return shower.shown;
}

QString withoutBracketed(const QString& shown) {
  QString plain;
  int depth = 0;
  for (const QChar unit : shown) {
    depth += unit == u'⟦' ? 1 : 0;
    plain += depth == 0 ? QString(unit) : QString();
    depth -= unit == u'⟧' ? 1 : 0;
  }
  return plain;
}

struct Sample {
  QString file, shown;
  RtfLosses losses{};
};

/// A range of words in a sample file, and how they look or their paragraph stands.
template <class Format>
struct Looks {
  QString file, words;
  Format format;
};

struct ReadTwice {
  RichText text;
  RichText again;  ///< As it is read back from what was written of it.
};

ReadTwice readTwice(const QString& file) {
  const RichText text = readRtf(rtfSampleFile(file));
  return {text, readRtf(writeRtf(text))};
}

template <class Format, class FormatAt>
void expectLooks(const QList<Looks<Format>>& all, FormatAt formatAt) {
  for (const Looks<Format>& looks : all) {
    SCOPED_TRACE((looks.file + u": "_s + looks.words).toStdString());
    const auto [text, again] = readTwice(looks.file);
    const qsizetype at = text.text().indexOf(looks.words);
    ASSERT_GE(at, 0);
    EXPECT_TRUE(formatAt(text, at) == looks.format) << writeRtf(text);
    EXPECT_TRUE(formatAt(again, at) == looks.format) << writeRtf(text);
    EXPECT_TRUE(formatAt(text, at + looks.words.size() - 1) == looks.format);
  }
}

CharFormat times(CharLook look) {
  look.halfPoints = 24;
  return {look, u"Times New Roman"_s};
}

CharFormat british(CharLook look) {
  look.halfPoints = 20;
  look.language = 2057;
  return {look, u"Arial"_s};
}

ParagraphFormat listed(int level, ListMark mark) {
  mark.level = level;
  return {.leftIndent = 720 * (level + 1), .firstIndent = -360, .list = std::move(mark)};
}

ListMark numbered(Style style, const QString& before, const QString& after, int start = 0) {
  ListMark mark;
  mark.style = style;
  mark.start = start;
  mark.before = before;
  mark.after = after;
  return mark;
}

ListMark sign(const QString& sign, const QString& font) {
  ListMark mark = ListMark::bullet();
  mark.before = sign;
  mark.fontName = font;
  return mark;
}

const QList<Sample> kSamples{
    {u"pictures"_s,
     u"A map ⟦picture⟧ of the coast.|Bare: ⟦picture⟧|Drawn ⟦object: ⟦picture⟧⟧ by hand.|Floating ⟦picture⟧ free."_s},
    {u"notes"_s,
     u"The ship sailed⟦footnote#:  In March, not in May.|So says the log.⟧ at dawn.*⟦footnote: Starred by hand.⟧ "
     u"Nobody "
     "waved⟦endnote#:  But see the letters.⟧.|⟦about 0⟧She lied⟦/about 0⟧⟦comment atnid=AL atnauthor=Anna Lind "
     "atnref=0 atndate=-1467302912:  Does she? See chapter two.⟧ to him.⟦comment atnid=B atnauthor=Bo: A point, no "
     "range.⟧"_s},
    {u"marks"_s,
     u"⟦mark chapter_1⟧Chapter⟦/mark chapter_1⟧ one, ⟦mark Möbel⟧⟦/mark Möbel⟧page ⟦field PAGE  \\* MERGEFORMAT⟧ of "
     "⟦field NUMPAGES⟧12⟦/field⟧.|The whale⟦entry xe: ⟦hidden whale:⟧⟦hidden white⟧⟧⟦entry tc: The whale⟧ blows ⟦field "
     "DATE \\@ \"d MMMM\"⟧4 July⟦/field⟧, ⟦field SYMBOL 183 \\f \"Symbol\" \\s 12⟧\uF0B7⟦/field⟧ see ⟦field REF "
     "chapter_1 \\h⟧Chapter⟦/field⟧."_s},
    {u"links"_s,
     u"See ⟦field HYPERLINK \"https://example.org/a?b=1&c=%7B2%7D\" \\o \"A tip\" \\t \"_blank\"⟧the whole "
     "story⟦/field⟧, ⟦field HYPERLINK \\l \"chapter_1\"⟧chapter one⟦/field⟧, ⟦field HYPERLINK \"https://example.org/\" "
     "\\l \"part 2\"⟧part two⟦/field⟧ or ⟦field HYPERLINK \"mailto:anna@example.org\"⟧anna⟦/field⟧.|⟦field HYPERLINK "
     "\"https://example.org/two\"⟧over|two paragraphs⟦/field⟧ and on.|A link with a picture: ⟦field HYPERLINK "
     "\"https://example.org/p\"⟧⟦picture⟧⟦/field⟧."_s},
    {u"hidden"_s,
     u"He said ⟦hidden never ⟧nothing.|⟦hidden A note to myself.⟧⟦hidden |⟧The end⟦hidden |⟧ of it.⟦hidden |⟧⟦hidden "
     "And more.⟧"_s},
    {u"lists"_s, u"first|second|below|third|plain|goes on|round|square|part|chapter|unlabelled"_s},
    {u"lists_pn"_s, u"three|four|letter|between|round|round too|square|dash|end"_s},
    {u"scripts"_s, u"English words.|שלום, 2 apples.|مرحبا بك|Deutsch, français."_s},
    {u"looks"_s,
     u"single, double, dotted, wavy, these words, dashed, long, dash dot, dash dot dot, thick, thick dotted, thick "
     "dashed, heavy wave, double wave, a b.|Capitals, Small, wide, narrow, outline, shadow, embossed, engraved, "
     "struck, H2O, E=mc2.|marked, shaded, red, bold both."_s},
    {u"paragraphs"_s, u"Chapter|Text.|A quotation.|Hanging.|Contents\t1\t2\t3\t4.5|a\tb\tc\td|Before|After"_s},
    {u"unkept"_s,
     u"Heading|left\tright\t|Kept and put in.|Beside the box.|Name: ⟦field FORMTEXT⟧Anna⟦/field⟧.|⟦field TOC \\h⟧One "
     "3⟦/field⟧"_s,
     RtfLoss::TableLayout | RtfLoss::HeadersFooters | RtfLoss::Deletions | RtfLoss::TextBoxes | RtfLoss::Styles |
         RtfLoss::NestedFields | RtfLoss::FieldData},
};

}  // namespace

TEST(RtfObjects, FilesGiveTheirWordsAndWhatStandsAmongThem) {
  for (const Sample& sample : kSamples) {
    SCOPED_TRACE(sample.file.toStdString());
    const QByteArray rtf = rtfSampleFile(sample.file);
    RtfLosses losses;
    const RichText text = readRtf(rtf, &losses);
    EXPECT_EQ(shown(text), sample.shown);
    EXPECT_EQ(namesOf(losses), namesOf(sample.losses));
    const QString plain = withoutBracketed(sample.shown).replace(u"|"_s, u"\r\n"_s);
    EXPECT_EQ(text.plainText(), plain);
    EXPECT_EQ(rtfToPlainText(rtf), plain);
    RtfLosses still;
    EXPECT_EQ(readRtf(writeRtf(text), &still), text) << writeRtf(text);
    EXPECT_EQ(namesOf(still), QStringList());
  }
}

TEST(RtfObjects, EveryFileOfTheFolderIsRead) {
  QStringList told;
  for (const Sample& sample : kSamples) {
    told.append(sample.file + u".rtf"_s);
  }
  told.sort();
  EXPECT_EQ(rtfSampleFiles(), told);
}

TEST(RtfObjects, PicturesGoOutWithTheirBytes) {
  const QByteArray rtf = rtfSampleFile(u"pictures"_s);
  const RichText text = readRtf(rtf);
  const QByteArray written = writeRtf(text);
  int count = 0;
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    const auto& object = text.run(i).format->object;
    if (object) {
      EXPECT_TRUE(rtf.contains(object->bytes.view()));
      EXPECT_TRUE(written.contains(object->bytes.view())) << object->bytes.view().toByteArray();
      ++count;
    }
  }
  EXPECT_EQ(count, 4);
  EXPECT_EQ(written.count("{\\*\\shppict"), 1);
  EXPECT_EQ(written.count("{\\nonshppict"), 1) << "the second form goes with the first";
  EXPECT_EQ(written.count("\\pict"), rtf.count("\\pict"));
}

TEST(RtfObjects, LooksAreKept) {
  using Underline = CharLook::Underline;
  const auto coloured = [](CharFormat format, std::optional<quint32> letters, std::optional<quint32> behind) {
    format.colour = letters;
    format.background = behind;
    return format;
  };
  QList<Looks<CharFormat>> all{
      {u"looks"_s, u"Capitals"_s, british({.allCaps = true})},
      {u"looks"_s, u"Small"_s, british({.smallCaps = true})},
      {u"looks"_s, u"wide"_s, british({.letterSpacing = 20})},
      {u"looks"_s, u"narrow"_s, british({.letterSpacing = -10})},
      {u"looks"_s, u"outline"_s, british({.outline = true})},
      {u"looks"_s, u"shadow"_s, british({.shadow = true})},
      {u"looks"_s, u"embossed"_s, british({.embossed = true})},
      {u"looks"_s, u"engraved"_s, british({.engraved = true})},
      {u"looks"_s, u"struck"_s, british({.strikeOut = true})},
      {u"looks"_s, u"2O"_s.first(1), british({.script = CharLook::Script::Subscript})},
      {u"looks"_s, u"O, E=mc"_s, british({})},
      {u"looks"_s, u"marked"_s, coloured(british({}), {}, 0x00FFFF)},
      {u"looks"_s, u"shaded"_s, coloured(british({}), {}, 0x008000)},
      {u"looks"_s, u"red, bold"_s.first(3), coloured(british({}), 0x0000FF, {})},
      {u"looks"_s, u"both"_s, british({.bold = true, .italic = true})},
      {u"hidden"_s, u"never "_s, times({.hidden = true})},
      {u"scripts"_s, u"Deutsch, "_s, times({.language = 1031})},
      {u"scripts"_s,
       u"مرحبا"_s,
       {{.halfPoints = 30,
         .language = 1025,
         .bold = true,
         .direction = CharLook::Direction::RightToLeft,
         .associated = {.halfPoints = 24}},
        u"Traditional Arabic"_s,
        u"Times New Roman"_s}},
      {u"scripts"_s,
       u"2 apples"_s,
       {{.halfPoints = 20,
         .language = 1033,
         .direction = CharLook::Direction::LeftToRight,
         .associated = {.halfPoints = 28, .language = 1037}},
        u"Times New Roman"_s,
        u"David"_s}},
  };
  const QStringList underlined{u"single"_s,       u"double"_s,     u"dotted"_s,       u"wavy"_s,
                               u"these words"_s,  u"dashed"_s,     u"long"_s,         u"dash dot"_s,
                               u"dash dot dot"_s, u"thick"_s,      u"thick dotted"_s, u"thick dashed"_s,
                               u"heavy wave"_s,   u"double wave"_s};
  for (qsizetype i = 0; i < underlined.size(); ++i) {
    all.append({u"looks"_s, underlined[i], british({.underline = static_cast<Underline>(i + 1)})});
  }
  expectLooks(all, [](const RichText& text, qsizetype at) { return text.charFormatAt(at); });
}

TEST(RtfObjects, ParagraphsAreKept) {
  using Alignment = ParagraphFormat::Alignment;
  using Tab = TabStop::Kind;
  using Leader = TabStop::Leader;
  const QList<Looks<ParagraphFormat>> all{
      {u"paragraphs"_s,
       u"Chapter"_s,
       {.alignment = Alignment::Centre,
        .spaceBefore = 240,
        .spaceAfter = 120,
        .pageBreakBefore = true,
        .keepWithNext = true,
        .keepTogether = true}},
      {u"paragraphs"_s,
       u"Text."_s,
       {.alignment = Alignment::Justify, .firstIndent = 360, .lineSpacing = 360, .lineSpacingIsFactor = true}},
      {u"paragraphs"_s, u"A quotation."_s, {.leftIndent = 720, .rightIndent = 720, .background = 0xC8F0F0}},
      {u"paragraphs"_s, u"Hanging."_s, {.leftIndent = 360, .firstIndent = -360}},
      {u"paragraphs"_s,
       u"Contents"_s,
       {.tabStops = {{720},
                     {5040, Tab::Right, Leader::Dots},
                     {6480, Tab::Centre, Leader::Underline},
                     {7200, Tab::Decimal, Leader::Hyphens}}}},
      {u"paragraphs"_s,
       u"a\tb"_s,
       {.tabStops = {{720, Tab::Left, Leader::MiddleDots},
                     {1440, Tab::Left, Leader::Thick},
                     {2160, Tab::Left, Leader::Equals}}}},
      {u"paragraphs"_s, u"After"_s, {.pageBreakBefore = true}},
      {u"scripts"_s, u"שלום"_s, {.alignment = Alignment::Right, .rightToLeft = true}},
      {u"lists"_s, u"first"_s, listed(0, numbered(Style::Decimal, {}, u"."_s))},
      {u"lists"_s, u"below"_s, listed(1, numbered(Style::LowerLetter, {}, u")"_s))},
      {u"lists"_s, u"goes on"_s, listed(0, numbered(Style::Decimal, {}, u"."_s, 4))},
      {u"lists"_s, u"round"_s, listed(0, ListMark::bullet())},
      {u"lists"_s, u"square"_s, listed(1, sign(u"\uF0A7"_s, u"Wingdings"_s))},
      {u"lists"_s, u"part"_s, listed(0, numbered(Style::UpperRoman, u"Part ("_s, u")"_s))},
      {u"lists_pn"_s, u"three"_s, listed(0, numbered(Style::Decimal, {}, u")"_s, 3))},
      {u"lists_pn"_s, u"four"_s, listed(0, numbered(Style::Decimal, {}, u")"_s))},
      {u"lists_pn"_s, u"letter"_s, listed(0, numbered(Style::LowerLetter, u"("_s, u")"_s, 2))},
      {u"lists_pn"_s, u"square"_s, listed(0, sign(u"\uF0A7"_s, u"Wingdings"_s))},
      {u"lists_pn"_s, u"dash"_s, listed(0, sign(u"-"_s, u"Arial"_s))},
      {u"lists_pn"_s, u"end"_s, {}},
  };
  expectLooks(all, [](const RichText& text, qsizetype at) { return text.paragraphFormatAt(at); });
  EXPECT_EQ(readTwice(u"paragraphs"_s).again.defaultTab(), 360);
  ParagraphFormat chapter = listed(1, numbered(Style::Decimal, {}, u"."_s));
  chapter.list.withParents = true;
  const auto [text, again] = readTwice(u"lists"_s);
  EXPECT_EQ(again.paragraphFormatAt(text.text().indexOf(u"chapter"_s)), chapter);
}

TEST(RtfObjects, WhatStandsInOddPlacesIsKeptOnce) {
  const auto same = [](const QByteArray& body, const QString& text) {
    const QByteArray rtf = "{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1 Other;}{\\f2 East;}}" + body + "}";
    const RichText read = readRtf(rtf);
    EXPECT_EQ(read.text(), text) << body;
    EXPECT_EQ(rtfToPlainText(rtf), read.plainText()) << body;
    EXPECT_EQ(readRtf(writeRtf(read)), read) << body;
    return read;
  };
  same("a{\\*\\shppict{\\pict\\pngblip 8950}}\r\n{\\nonshppict{\\pict\\wmetafile8 77}}b", u"a\uFFFCb"_s);
  RichText apart =
      same("{\\*\\shppict{\\pict\\pngblip 8950}}x{\\nonshppict{\\pict\\wmetafile8 77}}", u"\uFFFCx\uFFFC"_s);
  apart.remove(1, 1);
  EXPECT_EQ(readRtf(writeRtf(apart)), apart) << "two pictures that came to stand side by side";

  const RichText object = same("{\\object\\objemb{\\result r}{\\*\\objdata 0102}}", u"\uFFFC"_s);
  EXPECT_TRUE(writeRtf(object).contains("{\\*\\objdata 0102}"));
  const RichText numbered = same("b{\\super\\chftn}{\\footnote m}", u"b\uFFFC"_s);
  EXPECT_TRUE(numbered.charFormatAt(1).object->isNumbered);
  EXPECT_EQ(
      same("\\rtlch\\af1\\ab\\ltrch\\loch\\af0\\hich\\af0\\dbch\\af2\\f0 x", u"x"_s).charFormatAt(0).associatedFont,
      u"Other"_s);
  EXPECT_EQ(same("a{\\footnote\\deftab100 n}", u"a\uFFFC"_s).defaultTab(), 0);
  same("{\\field{\\footnote\\fldrslt}\\par}", u"\uFFFC\r\n"_s);
  EXPECT_TRUE(same("a\\par\\page", u"a\r\n"_s).paragraphFormatAt(3).pageBreakBefore);
  same("{\\shp{\\*\\shpinst{\\shptxt t}{\\sp{\\sn pib}{\\sv {\\pict\\pngblip 89}}}}}", u"\uFFFC"_s);

  const QByteArray citation =
      "ADDIN CITATION " + QByteArray("{x} ").repeated(2500).replace("{", "\\{").replace("}", "\\}");
  EXPECT_GT(same("{\\field{\\*\\fldinst " + citation + "}{\\fldrslt r}}", u"r"_s).charFormatAt(0).field.size(), 9000);
  RtfLosses losses;
  readRtf("{\\rtf1{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst PAGE}} = 1}{\\fldrslt r}}\\brdrb\\sect}", &losses);
  EXPECT_EQ(losses, RtfLoss::NestedFields | RtfLoss::ParagraphBorders | RtfLoss::Sections);
}

TEST(RtfObjects, AnObjectThatIsCutOffIsNone) {
  for (const char* const cut : {"{\\object\\objemb{\\*\\objdata 00", "{\\object{\\result b", "{\\shp{\\*\\shpinst"}) {
    EXPECT_FALSE(readRtf("{\\rtf1 a" + QByteArray(cut)).text().contains(QChar(QChar::ObjectReplacementCharacter)))
        << cut;
  }
}

TEST(RtfObjects, WordsBehindADamagedPlaceAreToldOf) {
  const QByteArray whole = "{\\rtf1 a{\\b b}{\\pict\\pngblip 00}";
  for (const char* const tail : {"}", "} \r\n", "}\x1A"}) {
    RtfLosses losses;
    readRtf(whole + tail, &losses);
    EXPECT_FALSE(losses) << tail;
  }
  for (const char* const tail :
       {"} } after\\par more}", "{\\pict\\pngblip 00 \\par after}", "{\\pict\\bin9999 00}}", "{\\*\\x y}{", ""}) {
    RtfLosses losses;
    EXPECT_EQ(readRtf(whole + tail, &losses).plainText().first(2), u"ab"_s);
    EXPECT_TRUE(losses.testFlag(RtfLoss::Damaged)) << tail;
  }
}
