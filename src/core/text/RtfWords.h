#pragma once

#include <QtGlobal>

/// What the reader does about a control word.
enum class RtfAction : quint8 {
  Ignore,
  Format,     ///< value: an RtfProperty
  Character,  ///< value: the UTF-16 unit
  ParagraphEnd,
  LineBreak,
  SoftEnd,  ///< a page or section break: a line end unless at a line start
  Unicode,
  FallbackLength,
  Binary,
  SkipGroup,
  KeepGroup,  ///< a destination whose text counts
  FontTable,
  ColourTable,
  Alternatives,  ///< \upr
  UnicodePart,   ///< \ud
  Label,         ///< what a list puts in front of a paragraph
  Numbering,     ///< how the paragraphs of a list are marked
  BulletLevel,
  DocumentCodePage,  ///< value: the code page
  AnsiCodePage,
  DefaultFont,
  Font,
  FontCharset,
  FontCodePage,
  Red,
  Green,
  Blue,
  Plain,
  Hidden,  ///< value: a bit for the reason
};

/// Formats that control words set, in groups whose order the rich text's own enumerations and fields follow.
enum class RtfProperty : quint8 {
  // clang-format off
  Bold, Italic, Underline, StrikeOut, SmallCaps, AllCaps,
  NoUnderline, Subscript, Superscript, NormalScript, Raised, Lowered, FontSize, Colour, Background,
  ParagraphDefaults,
  AlignLeft, AlignCentre, AlignRight, AlignJustify,
  LeftIndent, RightIndent, FirstIndent, SpaceBefore, SpaceAfter, LineSpacing,
  LineSpacingFactor,
  TabStop, TabCentre, TabRight, TabDecimal
  // clang-format on
};

struct RtfWord {
  const char* name = nullptr;
  quint8 length = 0;
  RtfAction action = RtfAction::Ignore;
  quint16 value = 0;
};

/// The entry of a control word, without its backslash and number; nothing for an unknown one.
const RtfWord* findRtfWord(const char* name, qsizetype length);
