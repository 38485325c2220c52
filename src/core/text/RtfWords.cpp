#include "core/text/RtfWords.h"

#include "core/text/InlineObject.h"
#include "core/text/Rtf.h"

#include <array>
#include <string_view>

namespace {

constexpr RtfWord action(std::string_view name, RtfAction what, quint16 value = 0) {
  return {name.data(), static_cast<quint8>(name.size()), what, value};
}
constexpr RtfWord format(std::string_view name, RtfProperty property) {
  return action(name, RtfAction::Format, static_cast<quint16>(property));
}
constexpr RtfWord character(std::string_view name, char16_t unit) {
  return action(name, RtfAction::Character, unit);
}
constexpr RtfWord skipped(std::string_view name) {
  return action(name, RtfAction::SkipGroup);
}
constexpr RtfWord lost(std::string_view name, RtfLoss loss) {
  return action(name, RtfAction::SkipGroup, static_cast<quint16>(loss));
}
constexpr RtfWord told(std::string_view name, RtfLoss loss) {
  return action(name, RtfAction::Loss, static_cast<quint16>(loss));
}
constexpr RtfWord pn(std::string_view name, RtfListPart part) {
  return action(name, RtfAction::NumberingPart, static_cast<quint16>(part));
}
constexpr RtfWord list(std::string_view name, RtfListPart part) {
  return action(name, RtfAction::ListPart, static_cast<quint16>(part));
}
constexpr RtfWord note(std::string_view name, InlineObject::Kind kind) {
  return action(name, RtfAction::Note, static_cast<quint16>(kind));
}
constexpr RtfWord mark(std::string_view name, InlineObject::Kind kind) {
  return action(name, RtfAction::Mark, static_cast<quint16>(kind));
}

constexpr RtfWord kWords[] = {
    // text
    action("par", RtfAction::ParagraphEnd),
    action("row", RtfAction::ParagraphEnd),
    action("nestrow", RtfAction::ParagraphEnd),
    action("line", RtfAction::LineBreak),
    action("page", RtfAction::PageBreak),
    action("column", RtfAction::SoftEnd),
    action("sect", RtfAction::SoftEnd, static_cast<quint16>(RtfLoss::Sections)),
    character("tab", u'\t'),
    character("cell", u'\t'),
    character("nestcell", u'\t'),
    character("emdash", 0x2014),
    character("endash", 0x2013),
    character("emspace", 0x2003),
    character("enspace", 0x2002),
    character("qmspace", 0x2005),
    character("bullet", 0x2022),
    character("lquote", 0x2018),
    character("rquote", 0x2019),
    character("ldblquote", 0x201C),
    character("rdblquote", 0x201D),
    character("zwj", 0x200D),
    character("zwnj", 0x200C),
    character("zwbo", 0x200B),
    character("zwnbo", 0x2060),
    character("ltrmark", 0x200E),
    character("rtlmark", 0x200F),
    action("u", RtfAction::Unicode),
    action("uc", RtfAction::FallbackLength),
    action("bin", RtfAction::Binary),

    // the document
    action("ansi", RtfAction::DocumentCodePage, 1252),
    action("mac", RtfAction::DocumentCodePage, 10000),
    action("pc", RtfAction::DocumentCodePage, 437),
    action("pca", RtfAction::DocumentCodePage, 850),
    action("ansicpg", RtfAction::AnsiCodePage),
    action("deff", RtfAction::DefaultFont),
    action("fonttbl", RtfAction::FontTable),
    action("colortbl", RtfAction::ColourTable),
    action("upr", RtfAction::Alternatives),
    action("ud", RtfAction::UnicodePart),
    action("f", RtfAction::Font),
    action("fcharset", RtfAction::FontCharset),
    action("cpg", RtfAction::FontCodePage),
    action("pntext", RtfAction::Label),
    action("listtext", RtfAction::Label),
    action("pn", RtfAction::Numbering),
    pn("pnlvlblt", RtfListPart::Bullet),
    pn("pnlvlbody", RtfListPart::Body),
    pn("pnlvl", RtfListPart::Level),
    pn("pncard", RtfListPart::Decimal),
    pn("pndec", RtfListPart::Decimal),
    pn("pnord", RtfListPart::Decimal),
    pn("pnucltr", RtfListPart::UpperLetter),
    pn("pnlcltr", RtfListPart::LowerLetter),
    pn("pnucrm", RtfListPart::UpperRoman),
    pn("pnlcrm", RtfListPart::LowerRoman),
    pn("pnprev", RtfListPart::WithParents),
    pn("pnf", RtfListPart::MarkFont),
    pn("pntxtb", RtfListPart::Before),
    pn("pntxta", RtfListPart::After),
    action("listtable", RtfAction::ListTable),
    action("listoverridetable", RtfAction::ListTable),
    list("list", RtfListPart::List),
    list("listid", RtfListPart::ListId),
    list("listlevel", RtfListPart::ListLevel),
    list("levelnfc", RtfListPart::LevelStyle),
    list("leveltext", RtfListPart::LevelText),
    list("listoverride", RtfListPart::Override),
    action("field", RtfAction::Field),
    action("fldinst", RtfAction::Instruction),
    action("red", RtfAction::Red),
    action("green", RtfAction::Green),
    action("blue", RtfAction::Blue),
    action("fldrslt", RtfAction::FieldResult),
    action("nesttableprops", RtfAction::KeepGroup),
    told("trowd", RtfLoss::TableLayout),
    told("brdrt", RtfLoss::ParagraphBorders),
    told("brdrb", RtfLoss::ParagraphBorders),
    told("brdrl", RtfLoss::ParagraphBorders),
    told("brdrr", RtfLoss::ParagraphBorders),
    told("box", RtfLoss::ParagraphBorders),

    // what stands in the text and is none
    action("pict", RtfAction::Picture),
    action("shppict", RtfAction::Picture),
    action("nonshppict", RtfAction::Picture),
    action("shp", RtfAction::Shape),
    action("shpgrp", RtfAction::Shape),
    action("do", RtfAction::Shape),
    action("object", RtfAction::Object),
    action("result", RtfAction::ObjectResult),
    note("footnote", InlineObject::Kind::Footnote),
    note("annotation", InlineObject::Kind::Comment),
    note("xe", InlineObject::Kind::Entry),
    note("tc", InlineObject::Kind::Entry),
    note("tcn", InlineObject::Kind::Entry),
    action("ftnalt", RtfAction::EndnoteMark),
    action("chftn", RtfAction::OwnNumber),
    mark("bkmkstart", InlineObject::Kind::BookmarkStart),
    mark("bkmkend", InlineObject::Kind::BookmarkEnd),
    mark("atrfstart", InlineObject::Kind::CommentStart),
    mark("atrfend", InlineObject::Kind::CommentEnd),
    action("atnauthor", RtfAction::Detail),
    action("atndate", RtfAction::Detail),
    action("atnid", RtfAction::Detail),
    action("atnparent", RtfAction::Detail),
    action("atnref", RtfAction::Detail),
    action("atntime", RtfAction::Detail),

    // destinations that are no part of the text
    skipped("atnicn"),
    skipped("aftncn"),
    skipped("aftnsep"),
    skipped("aftnsepc"),
    skipped("author"),
    skipped("background"),
    skipped("buptim"),
    skipped("category"),
    skipped("colorschememapping"),
    skipped("comment"),
    skipped("company"),
    skipped("creatim"),
    lost("datafield", RtfLoss::FieldData),
    skipped("datastore"),
    skipped("defchp"),
    skipped("defpap"),
    skipped("doccomm"),
    skipped("docvar"),
    skipped("falt"),
    skipped("ffdeftext"),
    skipped("ffentrymcr"),
    skipped("ffexitmcr"),
    skipped("ffformat"),
    skipped("ffhelptext"),
    skipped("ffl"),
    skipped("ffname"),
    skipped("ffstattext"),
    skipped("filetbl"),
    skipped("fname"),
    skipped("fontemb"),
    skipped("fontfile"),
    lost("footer", RtfLoss::HeadersFooters),
    lost("footerf", RtfLoss::HeadersFooters),
    lost("footerl", RtfLoss::HeadersFooters),
    lost("footerr", RtfLoss::HeadersFooters),
    lost("formfield", RtfLoss::FieldData),
    skipped("ftncn"),
    skipped("ftnsep"),
    skipped("ftnsepc"),
    skipped("generator"),
    lost("header", RtfLoss::HeadersFooters),
    lost("headerf", RtfLoss::HeadersFooters),
    lost("headerl", RtfLoss::HeadersFooters),
    lost("headerr", RtfLoss::HeadersFooters),
    skipped("hlinkbase"),
    skipped("info"),
    skipped("keycode"),
    skipped("keywords"),
    skipped("latentstyles"),
    skipped("lchars"),
    skipped("listname"),
    skipped("listpicture"),
    skipped("liststylename"),
    skipped("manager"),
    skipped("nextfile"),
    skipped("nonesttables"),
    skipped("objalias"),
    skipped("objclass"),
    skipped("objdata"),
    skipped("objname"),
    skipped("objsect"),
    skipped("oldcprops"),
    skipped("oldpprops"),
    skipped("oldsprops"),
    skipped("oldtprops"),
    skipped("operator"),
    skipped("panose"),
    skipped("passwordhash"),
    skipped("pgptbl"),
    skipped("picprop"),
    skipped("pnseclvl"),
    skipped("printim"),
    skipped("private"),
    skipped("propname"),
    skipped("protusertbl"),
    skipped("pxe"),
    skipped("revtbl"),
    skipped("revtim"),
    skipped("rsidtbl"),
    skipped("rxe"),
    skipped("shpinst"),
    skipped("shprslt"),
    skipped("staticval"),
    lost("stylesheet", RtfLoss::Styles),
    skipped("subject"),
    skipped("template"),
    skipped("themedata"),
    skipped("title"),
    skipped("txe"),
    skipped("userprops"),
    skipped("wgrffmtfilter"),
    skipped("windowcaption"),
    skipped("writereservation"),
    skipped("xmlnstbl"),

    // characters
    action("plain", RtfAction::Plain),
    action("v", RtfAction::Hidden),
    action("deleted", RtfAction::Deleted),
    action("deflang", RtfAction::DefaultLanguage),
    action("deftab", RtfAction::DefaultTab),
    action("af", RtfAction::AssociatedFont),
    action("loch", RtfAction::FontSlot),
    action("hich", RtfAction::FontSlot),
    action("dbch", RtfAction::FontSlot),
    format("b", RtfProperty::Bold),
    format("i", RtfProperty::Italic),
    format("strike", RtfProperty::StrikeOut),
    format("striked", RtfProperty::StrikeOut),
    format("scaps", RtfProperty::SmallCaps),
    format("caps", RtfProperty::AllCaps),
    format("outl", RtfProperty::Outline),
    format("shad", RtfProperty::Shadow),
    format("embo", RtfProperty::Embossed),
    format("impr", RtfProperty::Engraved),
    format("ul", RtfProperty::SingleUnderline),
    format("uld", RtfProperty::DottedUnderline),
    format("uldash", RtfProperty::DashedUnderline),
    format("uldashd", RtfProperty::DashDottedUnderline),
    format("uldashdd", RtfProperty::DashDoubleDottedUnderline),
    format("uldb", RtfProperty::DoubleUnderline),
    format("ulhwave", RtfProperty::HeavyWavyUnderline),
    format("ulldash", RtfProperty::LongDashedUnderline),
    format("ulth", RtfProperty::ThickUnderline),
    format("ulthd", RtfProperty::ThickDottedUnderline),
    format("ulthdash", RtfProperty::ThickDashedUnderline),
    format("ululdbwave", RtfProperty::DoubleWavyUnderline),
    format("ulw", RtfProperty::WordUnderline),
    format("ulwave", RtfProperty::WavyUnderline),
    format("ulnone", RtfProperty::NoUnderline),
    format("expnd", RtfProperty::LetterSpacingQuarters),
    format("expndtw", RtfProperty::LetterSpacing),
    format("lang", RtfProperty::Language),
    format("ltrch", RtfProperty::LeftToRightRun),
    format("rtlch", RtfProperty::RightToLeftRun),
    format("ab", RtfProperty::AssociatedBold),
    format("ai", RtfProperty::AssociatedItalic),
    format("afs", RtfProperty::AssociatedSize),
    format("alang", RtfProperty::AssociatedLanguage),
    format("sub", RtfProperty::Subscript),
    format("super", RtfProperty::Superscript),
    format("nosupersub", RtfProperty::NormalScript),
    format("up", RtfProperty::Raised),
    format("dn", RtfProperty::Lowered),
    format("fs", RtfProperty::FontSize),
    format("cf", RtfProperty::Colour),
    format("highlight", RtfProperty::Background),
    format("cb", RtfProperty::Background),
    format("chcbpat", RtfProperty::Background),

    // paragraphs
    format("pard", RtfProperty::ParagraphDefaults),
    format("ql", RtfProperty::AlignLeft),
    format("qc", RtfProperty::AlignCentre),
    format("qr", RtfProperty::AlignRight),
    format("qj", RtfProperty::AlignJustify),
    format("qd", RtfProperty::AlignJustify),
    format("li", RtfProperty::LeftIndent),
    format("lin", RtfProperty::LeftIndent),
    format("ri", RtfProperty::RightIndent),
    format("rin", RtfProperty::RightIndent),
    format("fi", RtfProperty::FirstIndent),
    format("sb", RtfProperty::SpaceBefore),
    format("sa", RtfProperty::SpaceAfter),
    format("sl", RtfProperty::LineSpacing),
    format("slmult", RtfProperty::LineSpacingFactor),
    format("pagebb", RtfProperty::PageBreakBefore),
    format("keepn", RtfProperty::KeepWithNext),
    format("keep", RtfProperty::KeepTogether),
    format("ltrpar", RtfProperty::LeftToRight),
    format("rtlpar", RtfProperty::RightToLeft),
    format("cbpat", RtfProperty::ParagraphBackground),
    action("ls", RtfAction::ListNumber),
    format("ilvl", RtfProperty::ListLevel),
    format("tldot", RtfProperty::LeaderDots),
    format("tlmdot", RtfProperty::LeaderMiddleDots),
    format("tlhyph", RtfProperty::LeaderHyphens),
    format("tlul", RtfProperty::LeaderUnderline),
    format("tlth", RtfProperty::LeaderThick),
    format("tleq", RtfProperty::LeaderEquals),
    format("tx", RtfProperty::TabStop),
    format("tqc", RtfProperty::TabCentre),
    format("tqr", RtfProperty::TabRight),
    format("tqdec", RtfProperty::TabDecimal),
};

constexpr size_t kSlots = 1024;

/// Three letters and the length tell the words apart well enough, and cost the same for any length.
constexpr size_t slotOf(const char* name, size_t length) {
  const auto letter = [name](size_t at) { return static_cast<size_t>(static_cast<uchar>(name[at])); };
  return (letter(0) * 31 + letter(length / 2) * 7 + letter(length - 1) * 131 + length * 17) % kSlots;
}

/// Open addressing, laid out by the compiler.
constexpr auto kTable = [] {
  std::array<RtfWord, kSlots> table{};
  for (const RtfWord& word : kWords) {
    size_t slot = slotOf(word.name, word.length);
    while (table[slot].name != nullptr) {
      slot = (slot + 1) % kSlots;
    }
    table[slot] = word;
  }
  return table;
}();

/// For a few letters, where a call costs more than the comparison.
bool isSame(const char* a, const char* b, size_t length) {
  size_t same = 0;
  while (same < length && a[same] == b[same]) {
    ++same;
  }
  return same == length;
}

}  // namespace

const RtfWord* findRtfWord(const char* name, qsizetype length) {
  const auto size = static_cast<size_t>(length);
  for (size_t slot = slotOf(name, size); kTable[slot].name != nullptr; slot = (slot + 1) % kSlots) {
    if (kTable[slot].length == size && isSame(kTable[slot].name, name, size)) {
      return &kTable[slot];
    }
  }
  return nullptr;
}
