#include "core/text/RtfHtmlTables.h"

#include "core/infra/CodePage.h"
#include "core/infra/Hex.h"
#include "core/text/HtmlText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Beyond this no face is kept: font numbers are indices.
constexpr int kMostFonts = 10000;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The number at the front; -1 when there is none.
int numberAt(QByteArrayView text) {
  if (text.isEmpty() || !isDigit(text.front())) {
    return -1;
  }
  int number = 0;
  for (qsizetype i = 0; i < text.size() && isDigit(text[i]); ++i) {
    number = std::min(number * 10 + (text[i] - '0'), kMostFonts);
  }
  return number;
}

/// The number behind a control word of an entry; 0 when it isn't there.
int valueOf(QByteArrayView word, QByteArrayView entry) {
  const qsizetype at = entry.indexOf(word);
  return at < 0 ? 0 : std::max(numberAt(entry.sliced(at + word.size())), 0);
}

QString colourOf(QByteArrayView entry) {
  QString colour = u"#"_s;
  for (const char* part : {"\\red", "\\green", "\\blue"}) {
    colour += QString::number(std::min(valueOf(part, entry), 255), 16).rightJustified(2, u'0');
  }
  return colour;
}

/// Calls for each stretch that a ";" ends.
template <class Use>
void eachEntry(QByteArrayView table, Use&& use) {
  for (qsizetype from = 0, to = table.indexOf(';'); to >= 0; to = table.indexOf(';', from)) {
    use(table.sliced(from, to - from));
    from = to + 1;
  }
}

int byteOf(QByteArrayView digits) {
  if (digits.size() != 2 || Hex::digit(digits[0]) < 0 || Hex::digit(digits[1]) < 0) {
    return -1;
  }
  return Hex::digit(digits[0]) * 16 + Hex::digit(digits[1]);
}

}  // namespace

QStringList RtfHtmlTables::colours(QByteArrayView table) {
  QStringList colours;
  const qsizetype first = table.indexOf(';');
  eachEntry(table.sliced(first + 1), [&](QByteArrayView entry) {
    if (first >= 0 && entry.contains("\\red")) {
      colours.append(colourOf(entry));
    }
  });
  return colours;
}

QStringList RtfHtmlTables::faces(QByteArrayView table) {
  QStringList faces;
  eachEntry(table, [&](QByteArrayView entry) {
    qsizetype at = entry.indexOf("\\f");
    while (at >= 0 && numberAt(entry.sliced(at + 2)) < 0) {
      at = entry.indexOf("\\f", at + 2);
    }
    if (at < 0) {
      return;
    }
    const int number = numberAt(entry.sliced(at + 2));
    const qsizetype blank = entry.lastIndexOf(' ');
    if (number < kMostFonts) {
      faces.resize(std::max<qsizetype>(faces.size(), number + 1));
      faces[number] = blank < 0 ? QString() : HtmlText::attribute(CodePage::fromBytes(entry.sliced(blank + 1)));
    }
  });
  return faces;
}

bool RtfHtmlTables::isTradeMark(QByteArrayView digits) {
  return byteOf(digits) == 0x99;
}

QString RtfHtmlTables::hexText(QByteArrayView digits) {
  const int byte = byteOf(digits);
  switch (byte) {
    case 0x00:
      return u"&nbsp;"_s;
    case 0x85:
      return u"..."_s;
    case 0x9A:
      return u"š"_s;
    case 0x9E:
      return u"ž"_s;
    default:
      break;
  }
  if (byte <= 0xA0 || byte == 0xAE) {
    return {};
  }
  return u'&' + HtmlText::entityName(static_cast<char16_t>(byte)) + u';';
}
