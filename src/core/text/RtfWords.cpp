#include "core/text/RtfWords.h"

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

constexpr RtfWord kWords[] = {
    // text
    action("par", RtfAction::ParagraphEnd),
    action("row", RtfAction::ParagraphEnd),
    action("nestrow", RtfAction::ParagraphEnd),
    action("line", RtfAction::LineBreak),
    action("page", RtfAction::SoftEnd),
    action("column", RtfAction::SoftEnd),
    action("sect", RtfAction::SoftEnd),
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
    action("pnlvlblt", RtfAction::BulletLevel),
    action("red", RtfAction::Red),
    action("green", RtfAction::Green),
    action("blue", RtfAction::Blue),
    action("fldrslt", RtfAction::KeepGroup),

    // destinations that are no part of the text
    skipped("annotation"),
    skipped("atnauthor"),
    skipped("atndate"),
    skipped("atnicn"),
    skipped("atnid"),
    skipped("atnparent"),
    skipped("atnref"),
    skipped("atntime"),
    skipped("atrfend"),
    skipped("atrfstart"),
    skipped("aftncn"),
    skipped("aftnsep"),
    skipped("aftnsepc"),
    skipped("author"),
    skipped("background"),
    skipped("bkmkend"),
    skipped("bkmkstart"),
    skipped("buptim"),
    skipped("category"),
    skipped("colorschememapping"),
    skipped("comment"),
    skipped("company"),
    skipped("creatim"),
    skipped("datafield"),
    skipped("datastore"),
    skipped("defchp"),
    skipped("defpap"),
    skipped("do"),
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
    skipped("fldinst"),
    skipped("fname"),
    skipped("fontemb"),
    skipped("fontfile"),
    skipped("footer"),
    skipped("footerf"),
    skipped("footerl"),
    skipped("footerr"),
    skipped("footnote"),
    skipped("formfield"),
    skipped("ftncn"),
    skipped("ftnsep"),
    skipped("ftnsepc"),
    skipped("generator"),
    skipped("header"),
    skipped("headerf"),
    skipped("headerl"),
    skipped("headerr"),
    skipped("hlinkbase"),
    skipped("info"),
    skipped("keycode"),
    skipped("keywords"),
    skipped("latentstyles"),
    skipped("lchars"),
    skipped("listlevel"),
    skipped("listname"),
    skipped("listoverride"),
    skipped("listoverridetable"),
    skipped("listpicture"),
    skipped("listtable"),
    skipped("liststylename"),
    skipped("manager"),
    skipped("nextfile"),
    skipped("nonesttables"),
    skipped("nonshppict"),
    skipped("objalias"),
    skipped("objclass"),
    skipped("objdata"),
    skipped("object"),
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
    skipped("pict"),
    skipped("picprop"),
    skipped("pnseclvl"),
    skipped("pntxta"),
    skipped("pntxtb"),
    skipped("printim"),
    skipped("private"),
    skipped("propname"),
    skipped("protusertbl"),
    skipped("pxe"),
    skipped("revtbl"),
    skipped("revtim"),
    skipped("rsidtbl"),
    skipped("rxe"),
    skipped("shp"),
    skipped("shpgrp"),
    skipped("shpinst"),
    skipped("shppict"),
    skipped("shprslt"),
    skipped("staticval"),
    skipped("stylesheet"),
    skipped("subject"),
    skipped("tc"),
    skipped("tcn"),
    skipped("template"),
    skipped("themedata"),
    skipped("title"),
    skipped("txe"),
    skipped("userprops"),
    skipped("wgrffmtfilter"),
    skipped("windowcaption"),
    skipped("writereservation"),
    skipped("xe"),
    skipped("xmlnstbl"),

    // characters
    action("plain", RtfAction::Plain),
    action("v", RtfAction::Hidden, 1),
    action("deleted", RtfAction::Hidden, 2),  // struck out in a tracked draft: no part of the text
    format("b", RtfProperty::Bold),
    format("i", RtfProperty::Italic),
    format("strike", RtfProperty::StrikeOut),
    format("striked", RtfProperty::StrikeOut),
    format("scaps", RtfProperty::SmallCaps),
    format("caps", RtfProperty::AllCaps),
    format("ul", RtfProperty::Underline),
    format("uld", RtfProperty::Underline),
    format("uldash", RtfProperty::Underline),
    format("uldashd", RtfProperty::Underline),
    format("uldashdd", RtfProperty::Underline),
    format("uldb", RtfProperty::Underline),
    format("ulhwave", RtfProperty::Underline),
    format("ulldash", RtfProperty::Underline),
    format("ulth", RtfProperty::Underline),
    format("ulthd", RtfProperty::Underline),
    format("ulthdash", RtfProperty::Underline),
    format("ulw", RtfProperty::Underline),
    format("ulwave", RtfProperty::Underline),
    format("ulnone", RtfProperty::NoUnderline),
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
