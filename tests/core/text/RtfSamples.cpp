#include "core/text/RtfSamples.h"

#include "core/text/Rtf.h"
#include "support/TestHome.h"

#include <QFile>
#include <QStringList>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

template <class List>
auto anyOf(QRandomGenerator& random, const List& list) {
  return list[static_cast<decltype(list.size())>(random.bounded(static_cast<int>(list.size())))];
}

QString randomWord(QRandomGenerator& random) {
  static const QStringList pieces{u"word"_s,   u" "_s,      u"\t"_s,    u"{"_s,      u"}\\"_s,    u"’"_s,
                                  u"naïve"_s,  u"Ж"_s,      u"語"_s,    u"😀"_s,      u"\x0c"_s,   u"\u00A0"_s,
                                  u"\u2011"_s, u"\x81"_s,   u"-12 ;"_s, u"\\par "_s, u"\x7f"_s,   u"\u2022"_s,
                                  u"\u2028"_s, u"a"_s,      u"0"_s,     u"\xD83D"_s, u"\xDE00"_s, u"'3f"_s,
                                  u"\u0002"_s, u"\uFEFF"_s, u"\r\n"_s,  u"?"_s,      u"\xF0B7"_s, u"\xF020"_s};
  return anyOf(random, pieces);
}

CharFormat randomCharFormat(QRandomGenerator& random) {
  static const QStringList fonts{QString(),           u"Arial"_s, u"Times New Roman"_s,
                                 u"Möbel; {x} \\y"_s, u"明朝"_s,  u"Symbol"_s};
  const auto colour = [&random] {
    return random.bounded(2) == 0 ? std::nullopt : std::optional(random.generate() & 0xFFFFFFU);
  };
  CharFormat format;
  format.fontName = anyOf(random, fonts);
  format.halfPoints = random.bounded(3) == 0 ? 0 : random.bounded(100);
  format.bold = random.bounded(2) == 0;
  format.italic = random.bounded(2) == 0;
  format.underline = random.bounded(3) == 0;
  format.strikeOut = random.bounded(5) == 0;
  format.smallCaps = random.bounded(8) == 0;
  format.allCaps = random.bounded(8) == 0;
  format.script = static_cast<CharFormat::Script>(random.bounded(3));
  format.colour = colour();
  format.background = colour();
  return format;
}

ParagraphFormat randomParagraphFormat(QRandomGenerator& random) {
  ParagraphFormat format;
  format.alignment = static_cast<ParagraphFormat::Alignment>(random.bounded(4));
  format.leftIndent = random.bounded(-100, 1000);
  format.rightIndent = random.bounded(3) * 100;
  format.firstIndent = random.bounded(-500, 500);
  format.spaceBefore = random.bounded(3) * 120;
  format.spaceAfter = random.bounded(3) * 120;
  format.lineSpacing = random.bounded(-2, 3) * 240;
  format.lineSpacingIsFactor = random.bounded(2) == 0;
  format.bullet = random.bounded(3) == 0;
  for (int count = random.bounded(4); count > 0; --count) {
    format.tabStops.append({random.bounded(9000), static_cast<TabStop::Kind>(random.bounded(4))});
  }
  return format;
}

QString readUtf8(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QByteArray readBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QList<QByteArray> rtfSamples() {
  return {
      "",
      "plain text\nof a file\r\n",
      "{\\rtf1}",
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\froman Times New Roman;}}\r\n"
      "{\\colortbl "
      ";\\red0\\green0\\blue0;\\red192\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\fi-200\\li200\\cf1\\f0\\fs20 "
      "One \\b bold\\b0  and \\i italic\\i0 .\\par\r\n\\par\r\n\\pard\\qc\\tx720\\tqr\\tx5000\\cf2\\ul "
      "centred\\ulnone\\tab "
      "\\'93quoted\\'94\\line next\\par\r\n}\r\n",
      "{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fcharset128 MS Mincho;}{\\f1\\fcharset204 Arial Cyr;}{\\f2\\fcharset2 "
      "Symbol;}}"
      "\\f0 \\'8b\\'43\\'8bC \\f1 \\'c6\\'e8 {\\f2 abc \\'b7}\\u1046\\'c6\\u-10179?\\u-8704?}",
      "{\\rtf1\\trowd\\cellx100\\intbl one\\cell two\\cell\\row{\\trowd\\intbl three\\nestcell\\nestrow}after"
      "{\\nonesttables lost}\\par{\\pict\\bin5 {}}{}}text{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt shown}}}",
      "{\\rtf1{\\upr{\\fonttbl{\\f0 No;}}{\\*\\ud{\\fonttbl{\\f0 Y\\u233?s;}}}}\\sl360\\slmult1\\sb10\\sa20\\f0\\fs30 x"
      "{\\v hidden}\\page y\\sect\\super z\\nosupersub\\plain\\par\\pard}",
      "{\\rtf1\\ansicpg65001 \xC3\xA9\\'c3\\'a9\xE2\x82\xAC\\'f0\\'9f\\'98\\'80\xC3}",
      "{\\rtf1 {a}}b}c}",
      "{\\rtf1{\\fonttbl{\\f1\\fcharset2 "
      "Symbol;}}\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}"
      "\\fi-360 a\\par {\\pntext\\f1\\'B7\\tab}b\\par\\pard{\\listtext\\f1\\u61623?\\tab}c\\par{\\listtext "
      "1.\\tab}d\\par}",
  };
}

RichText randomRichText(QRandomGenerator& random) {
  RichText text;
  for (int pieces = random.bounded(12); pieces > 0; --pieces) {
    QString words;
    for (int count = random.bounded(8); count > 0; --count) {
      words += randomWord(random);
    }
    const RichText piece = RichText::fromPlain(words, randomCharFormat(random), randomParagraphFormat(random));
    const qsizetype at = random.bounded(static_cast<int>(text.size()) + 1);
    text.replace(at, random.bounded(4), piece);
    text.formatCharacters(random.bounded(static_cast<int>(text.size()) + 1), random.bounded(6),
                          [&random](CharFormat& format) { format = randomCharFormat(random); });
  }
  if (random.bounded(2) == 0) {
    text.formatParagraphs(0, -1, [&random](ParagraphFormat& format) { format = randomParagraphFormat(random); });
  }
  return text;
}

QList<CorpusFile> rtfCorpus() {
  QList<CorpusFile> files;
  const QString folder = sharedFolder();
  if (folder.isEmpty()) {
    return files;
  }
  const QString base = folder + u"/rtf-corpus/"_s;
  const QStringList lines = readUtf8(base + u"INDEX.tsv"_s).split(u'\n').mid(1);
  for (const QString& line : lines) {
    const QStringList columns = line.trimmed().split(u'\t');
    if (!columns[0].isEmpty()) {
      files.append({columns[0], columns.value(1), readBytes(base + columns[0] + u".rtf"_s),
                    withoutTrailingLineEnds(readUtf8(base + columns[0] + u".txt"_s))});
    }
  }
  return files;
}

QString withoutTrailingLineEnds(QString text) {
  while (text.endsWith(u'\n') || text.endsWith(u'\r')) {
    text.chop(1);
  }
  return text;
}

std::ostream& operator<<(std::ostream& out, const RichText& text) {
  return out << writeRtf(text);
}
