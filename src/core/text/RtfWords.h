#pragma once

#include <QtGlobal>

/// What the reader does about a control word.
enum class RtfAction : quint8 {
  Ignore,
  Format,     ///< value: an RtfProperty
  Character,  ///< value: the UTF-16 unit
  ParagraphEnd,
  LineBreak,
  PageBreak,  ///< a line end unless at a line start
  SoftEnd,    ///< a column or section break: likewise
  Unicode,
  FallbackLength,
  Binary,
  SkipGroup,  ///< value: the RtfLoss that it means, or 0
  KeepGroup,  ///< a destination whose text counts
  Loss,       ///< value: an RtfLoss
  FontTable,
  ColourTable,
  Alternatives,   ///< \upr
  UnicodePart,    ///< \ud
  Label,          ///< what a list puts in front of a paragraph
  Numbering,      ///< how the paragraphs of a list are marked
  NumberingPart,  ///< value: an RtfListPart
  ListTable,
  ListPart,  ///< value: an RtfListPart
  ListNumber,
  Field,
  Instruction,
  FieldResult,
  Picture,
  Shape,
  Object,
  ObjectResult,
  Note,  ///< value: the kind of object that the group's text belongs to
  EndnoteMark,
  OwnNumber,         ///< of a note
  Mark,              ///< value: the kind of object that the group's text names
  Detail,            ///< a fact about a comment
  DocumentCodePage,  ///< value: the code page
  AnsiCodePage,
  DefaultFont,
  DefaultLanguage,
  DefaultTab,
  Font,
  AssociatedFont,
  FontSlot,  ///< the font that is told next is for some letters alone
  FontCharset,
  FontCodePage,
  Red,
  Green,
  Blue,
  Plain,
  Hidden,   ///< a format, and left out of plain text
  Deleted,  ///< struck out in a tracked draft: no part of the text
};

/// What an RTF text says of a list.
enum class RtfListPart : quint8 {
  // clang-format off
  Bullet, Decimal, UpperLetter, LowerLetter, UpperRoman, LowerRoman,  // in the order of ListMark::Style
  Body, Level, WithParents, MarkFont, Before, After,
  List, ListId, ListLevel, LevelStyle, LevelText, Override
  // clang-format on
};

/// Formats that control words set, in groups whose order the rich text's own enumerations and fields follow.
enum class RtfProperty : quint8 {
  // clang-format off
  Bold, Italic, StrikeOut, SmallCaps, AllCaps, HiddenText, Outline, Shadow, Embossed, Engraved,
  NoUnderline, SingleUnderline, DoubleUnderline, DottedUnderline, WavyUnderline, WordUnderline, DashedUnderline,
  LongDashedUnderline, DashDottedUnderline, DashDoubleDottedUnderline, ThickUnderline, ThickDottedUnderline,
  ThickDashedUnderline, HeavyWavyUnderline, DoubleWavyUnderline,
  Subscript, Superscript, NormalScript, Raised, Lowered, FontSize, Colour, Background, LetterSpacing, LetterSpacingQuarters,
  Language,
  LeftToRightRun, RightToLeftRun, AssociatedBold, AssociatedItalic, AssociatedSize, AssociatedLanguage,
  ParagraphDefaults,
  AlignLeft, AlignCentre, AlignRight, AlignJustify,
  LeftIndent, RightIndent, FirstIndent, SpaceBefore, SpaceAfter, LineSpacing,
  LineSpacingFactor,
  PageBreakBefore, KeepWithNext, KeepTogether,
  LeftToRight, RightToLeft, ParagraphBackground, ListNumber, ListLevel,
  TabStop, TabCentre, TabRight, TabDecimal,
  LeaderDots, LeaderMiddleDots, LeaderHyphens, LeaderUnderline, LeaderThick, LeaderEquals
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
