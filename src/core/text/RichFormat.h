#pragma once

#include "core/text/InlineObject.h"
#include "core/text/ListMark.h"

#include <QHashFunctions>
#include <QList>
#include <QString>

#include <array>
#include <optional>

/// The look of the letters of the other kind of script: of complex scripts where the text runs from left to right. It
/// is kept for the programs that use it and not shown here.
struct AssociatedLook {
  int halfPoints = 0;  ///< Font size in half points; 0: none stated.
  int language = 0;
  bool bold = false;
  bool italic = false;

  friend bool operator==(const AssociatedLook&, const AssociatedLook&) = default;
};

/// What of the look of characters is the same however fonts and colours are told.
struct CharLook {
  enum class Script : quint8 { Normal, Subscript, Superscript };
  // clang-format off
  enum class Underline : quint8 {
    None, Single, Double, Dotted, Wavy, Words, Dashed, LongDashed, DashDotted, DashDoubleDotted, Thick, ThickDotted,
    ThickDashed, HeavyWavy, DoubleWavy
  };
  // clang-format on
  /// The way that a run was marked to be written; none: by its letters.
  enum class Direction : quint8 { None, LeftToRight, RightToLeft };

  int halfPoints = 0;     ///< Font size in half points; 0: the default size.
  int letterSpacing = 0;  ///< Twips between letters beyond the usual.
  int language = 0;       ///< As a Windows number; 0: none stated.
  bool bold = false;
  bool italic = false;
  bool strikeOut = false;
  bool smallCaps = false;
  bool allCaps = false;
  bool hidden = false;  ///< Left out of the plain text.
  bool outline = false;
  bool shadow = false;
  bool embossed = false;
  bool engraved = false;
  Underline underline = Underline::None;
  Script script = Script::Normal;
  Direction direction = Direction::None;
  AssociatedLook associated{};

  friend bool operator==(const CharLook&, const CharLook&) = default;
};

/// The switches of a look, in the order in which tables about them stand.
inline constexpr std::array kCharSwitches = {
    &CharLook::bold,   &CharLook::italic,  &CharLook::strikeOut, &CharLook::smallCaps, &CharLook::allCaps,
    &CharLook::hidden, &CharLook::outline, &CharLook::shadow,    &CharLook::embossed,  &CharLook::engraved};

/// How characters look. A default-constructed format states nothing: the reader of the text decides.
/// RichText keeps formats in the normal form of `normalised`, whatever it is given.
struct CharFormat : CharLook {
  QString fontName{};                   ///< Empty: the default font.
  QString associatedFont{};             ///< Of the associated look; empty: none stated.
  std::optional<quint32> colour{};      ///< 24 bits in blue-green-red order; none: automatic.
  std::optional<quint32> background{};  ///< Likewise, behind the characters.
  /// The instruction of the field that the text is the result of, such as HYPERLINK "https://..."; empty: none.
  QString field{};
  /// What stands at a position that no letter has; only RichText and its builder put it there.
  std::shared_ptr<const InlineObject> object{};

  /// Objects are the same when they hold the same.
  friend bool operator==(const CharFormat& a, const CharFormat& b);
};

/// Where a link leads: the address with "#" and the place in it, if there is one. Empty when the field is no link.
QString linkAddress(QStringView field);

struct TabStop {
  enum class Kind : quint8 { Left, Centre, Right, Decimal };
  /// What fills the room in front of the tab.
  enum class Leader : quint8 { None, Dots, MiddleDots, Hyphens, Underline, Thick, Equals };

  int position = 0;  ///< Twips from the left margin.
  Kind kind = Kind::Left;
  Leader leader = Leader::None;

  friend bool operator==(const TabStop&, const TabStop&) = default;
};

/// How a paragraph stands; lengths are twips.
struct ParagraphFormat {
  enum class Alignment : quint8 { Left, Centre, Right, Justify };

  /// Left is left in a paragraph that runs from right to left too.
  Alignment alignment = Alignment::Left;
  int leftIndent = 0;  ///< Of all lines but the first.
  int rightIndent = 0;
  int firstIndent = 0;  ///< Of the first line, relative to leftIndent; below 0 the first line hangs out.
  int spaceBefore = 0;
  int spaceAfter = 0;
  /// 0: single. With lineSpacingIsFactor in 240ths of a line, else twips: at least, or when below 0 exactly.
  int lineSpacing = 0;
  bool lineSpacingIsFactor = false;
  bool rightToLeft = false;
  bool pageBreakBefore = false;
  bool keepWithNext = false;
  bool keepTogether = false;
  std::optional<quint32> background{};  ///< 24 bits in blue-green-red order.
  QList<TabStop> tabStops{};            ///< In rising order, 64 at most.
  ListMark list{};

  friend bool operator==(const ParagraphFormat&, const ParagraphFormat&) = default;
};

/// The lengths of a paragraph, in the order in which tables about them stand.
inline constexpr std::array kParagraphLengths = {&ParagraphFormat::leftIndent,  &ParagraphFormat::rightIndent,
                                                 &ParagraphFormat::firstIndent, &ParagraphFormat::spaceBefore,
                                                 &ParagraphFormat::spaceAfter,  &ParagraphFormat::lineSpacing};

/// Likewise its switches.
inline constexpr std::array kParagraphSwitches = {&ParagraphFormat::pageBreakBefore, &ParagraphFormat::keepWithNext,
                                                  &ParagraphFormat::keepTogether};

/// The form in which formats are kept: font names trimmed, free of control characters and at most 128 long,
/// colours of 24 bits, sizes and lengths within what rich text files can hold, tab stops sorted, each once.
CharFormat normalised(CharFormat format);
ParagraphFormat normalised(ParagraphFormat format);

size_t qHash(const CharLook& look, size_t seed = 0) noexcept;
size_t qHash(const CharFormat& format, size_t seed = 0) noexcept;
size_t qHash(const ParagraphFormat& format, size_t seed = 0) noexcept;
