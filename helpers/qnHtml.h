#pragma once

#include "Export.h"

#include <cstddef>
#include <cstdint>

// The routines of qnHtml.dll. A text is counted UTF-16 units, so that no character is lost on the way in or out and
// what a reference names beyond the code page comes out as itself; only the word count takes bytes of the code page.
// What works in place gives the new length and never writes behind the old one. Every routine goes over its text
// once and allocates nothing.

/// Replaces every `find` by `replace` and gives the length of what is in `out`. `searched` is the text as it is
/// compared, of the same length: the text itself, or its folded form for a search that ignores case. `out` has room
/// for the worst case, every place a hit. An empty `find` replaces nothing.
QUILLANE_EXPORT std::size_t cReplace(const char16_t* text, const char16_t* searched, std::size_t length,
                                     const char16_t* find, std::size_t findLength, const char16_t* replace,
                                     std::size_t replaceLength, char16_t* out);

/// Removes every occurrence of one unit.
QUILLANE_EXPORT std::size_t cRemoveChar(char16_t* text, std::size_t length, char16_t charCode);

/// Removes what stands between "<" and ">", the marks too. A ">" pairs with the nearest "<" before it; marks that
/// find no partner stay, and so does "<!--".
QUILLANE_EXPORT std::size_t cStripHTML(char16_t* text, std::size_t length);

/// Turns "&name;", "&#1234;" and "&#x4D2;" into the characters, by HTML 4's names exactly; what names nothing stays.
QUILLANE_EXPORT std::size_t cHtmlToChar(char16_t* text, std::size_t length);

/// Turns the tags that the reader format has a mark for into that mark, in the order in which they stand; all other
/// tags stay for the tag stripper, as does what stands between comment marks. The case of tags doesn't count. A
/// centred paragraph ends at the next block of any kind, or with the text.
///
/// The reader format is plain text with bracketed marks:
///
///     [b] [/b]            bold                     from b, strong
///     [i] [/i]            italic                   from i, em
///     [u] [/u]            underlined               from u, ins
///     [c] [/c]            centred                  from center, and from p, div and headings aligned to the centre
///     [h1] [/h1] ... [h6] a heading of that level  from h1 to h6; a centred one is [c][h1]...[/h1][/c]
///     [hr]                a rule                   from hr
///     [pb]                a page break, on a line of its own
QUILLANE_EXPORT std::size_t cConvertKnownFormatting(char16_t* text, std::size_t length);

/// Every run of blanks becomes one.
QUILLANE_EXPORT std::size_t cRemoveExtraSpaces(char16_t* text, std::size_t length);

/// The words of a NUL-ended text in the code page: it is parted at white space, at en and em dashes and at two or
/// more hyphens in a row; a piece counts when it holds a letter or a digit.
QUILLANE_EXPORT std::int32_t cWordCount(const char* text);
