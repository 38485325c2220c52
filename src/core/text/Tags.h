#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

/// An opening and a closing tag as they stand in a file, angle brackets included.
struct Tag {
  QByteArrayView open;
  QByteArrayView close;
};

/// Values between tags, found by case-ignoring search and not by parsing: a value is taken from the first
/// occurrence of its opening tag, and a missing closing tag swallows the rest of the text.
namespace Tags {

/// The position of the first occurrence at or behind `from`, case ignored; -1 for none. Empty `find` gives `from`.
qsizetype find(QByteArrayView text, QByteArrayView find, qsizetype from = 0);

constexpr char lowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

/// True when the text begins so, case ignored.
inline bool startsWith(QByteArrayView text, QByteArrayView beginning) {
  if (text.size() < beginning.size()) {
    return false;
  }
  for (qsizetype i = 0; i < beginning.size(); ++i) {
    if (lowerCase(text[i]) != lowerCase(beginning[i])) {
      return false;
    }
  }
  return true;
}

/// From the start of the opening tag to the end of the closing one, or to the end of the text when there is no
/// closing tag behind it; an empty view when there is no opening tag. Nothing is copied.
QByteArrayView ExtractWithTags(QByteArrayView text, const Tag& tag);

/// The same without the tags: every occurrence of either is gone from the value.
QByteArray ExtractBetweenTags(QByteArrayView text, const Tag& tag);

/// ExtractBetweenTags on a span that ExtractWithTags gave.
QByteArray withoutTags(QByteArrayView span, const Tag& tag);

/// ExtractWithTags, parted at every delimiter; always at least one piece, the last being what stands behind the
/// last delimiter.
std::vector<QByteArrayView> ExtractXMLArray(QByteArrayView text, const Tag& tag, QByteArrayView delimiter);

/// Percent-escaping: a-z, A-Z, 0-9, ":", ".", "," and "?" stay, any other byte becomes % and two upper-case
/// hexadecimal digits; a character that the code page lacks becomes %uXXXX, one for each UTF-16 unit.
QByteArray HtmlEncode(QStringView text);
/// The bytes that one UTF-16 unit takes at the most when escaped, and that the routine below may write behind its end.
inline constexpr qsizetype kMostEscaped = 6;
/// The same to where there is room for kMostEscaped bytes a unit and as many more; gives the end of what it wrote.
char* writeHtmlEncoded(char* to, QStringView text);
/// The reverse. A "%" with fewer than two characters behind it stays; bad digits read as 0 or as the part before.
QString HtmlDecode(QByteArrayView text);

}  // namespace Tags
