#pragma once

#include <QHashFunctions>
#include <QList>
#include <QString>

#include <array>
#include <optional>

/// What of the look of characters is the same however fonts and colours are told.
struct CharLook {
  enum class Script : quint8 { Normal, Subscript, Superscript };

  int halfPoints = 0;  ///< Font size in half points; 0: the default size.
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  bool smallCaps = false;
  bool allCaps = false;
  Script script = Script::Normal;

  friend bool operator==(const CharLook&, const CharLook&) = default;
};

/// The switches of a look, in the order in which tables about them stand.
inline constexpr std::array kCharSwitches = {&CharLook::bold,      &CharLook::italic,    &CharLook::underline,
                                             &CharLook::strikeOut, &CharLook::smallCaps, &CharLook::allCaps};

/// How characters look. A default-constructed format states nothing: the reader of the text decides.
/// RichText keeps formats in the normal form of `normalised`, whatever it is given.
struct CharFormat : CharLook {
  QString fontName{};                   ///< Empty: the default font.
  std::optional<quint32> colour{};      ///< 24 bits in blue-green-red order; none: automatic.
  std::optional<quint32> background{};  ///< Likewise, behind the characters.

  friend bool operator==(const CharFormat&, const CharFormat&) = default;
};

struct TabStop {
  enum class Kind : quint8 { Left, Centre, Right, Decimal };

  int position = 0;  ///< Twips from the left margin.
  Kind kind = Kind::Left;

  friend bool operator==(const TabStop&, const TabStop&) = default;
};

/// How a paragraph stands; lengths are twips.
struct ParagraphFormat {
  enum class Alignment : quint8 { Left, Centre, Right, Justify };

  Alignment alignment = Alignment::Left;
  int leftIndent = 0;  ///< Of all lines but the first.
  int rightIndent = 0;
  int firstIndent = 0;  ///< Of the first line, relative to leftIndent; below 0 the first line hangs out.
  int spaceBefore = 0;
  int spaceAfter = 0;
  /// 0: single. With lineSpacingIsFactor in 240ths of a line, else twips: at least, or when below 0 exactly.
  int lineSpacing = 0;
  bool lineSpacingIsFactor = false;
  QList<TabStop> tabStops{};  ///< In rising order, 64 at most.
  bool bullet = false;        ///< A bullet stands in front; it is no part of the text.

  friend bool operator==(const ParagraphFormat&, const ParagraphFormat&) = default;
};

/// The lengths of a paragraph, in the order in which tables about them stand.
inline constexpr std::array kParagraphLengths = {&ParagraphFormat::leftIndent,  &ParagraphFormat::rightIndent,
                                                 &ParagraphFormat::firstIndent, &ParagraphFormat::spaceBefore,
                                                 &ParagraphFormat::spaceAfter,  &ParagraphFormat::lineSpacing};

/// The form in which formats are kept: font names trimmed, free of control characters and at most 128 long,
/// colours of 24 bits, sizes and lengths within what rich text files can hold, tab stops sorted, each once.
CharFormat normalised(CharFormat format);
ParagraphFormat normalised(ParagraphFormat format);

size_t qHash(const CharLook& look, size_t seed = 0) noexcept;
size_t qHash(const CharFormat& format, size_t seed = 0) noexcept;
size_t qHash(const ParagraphFormat& format, size_t seed = 0) noexcept;
