#include "core/text/RtfSamples.h"

#include "core/text/Rtf.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

const QString kSampleFolder = QStringLiteral(QUILLANE_SOURCE_DIR "/tests/samples/rtf/");

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

template <class Enumeration>
Enumeration anyUpTo(QRandomGenerator& random, Enumeration last) {
  return static_cast<Enumeration>(random.bounded(static_cast<int>(last) + 1));
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
  for (const auto isOn : kCharSwitches) {
    format.*isOn = format.*isOn || random.bounded(8) == 0;
  }
  format.underline =
      random.bounded(2) == 0 ? CharLook::Underline::None : anyUpTo(random, CharLook::Underline::DoubleWavy);
  format.script = anyUpTo(random, CharLook::Script::Superscript);
  format.colour = colour();
  format.background = colour();
  if (random.bounded(4) == 0) {
    format.letterSpacing = random.bounded(-40, 40);
    format.language = random.bounded(3) * 1033;
    format.direction = anyUpTo(random, CharLook::Direction::RightToLeft);
    format.associated = {random.bounded(3) * 20, random.bounded(3) * 1037, random.bounded(2) == 0,
                         random.bounded(2) == 0};
    format.associatedFont = anyOf(random, fonts);
  }
  if (random.bounded(4) == 0) {
    static const QStringList fields{u"HYPERLINK \"https://example.org/a?b={c}\" \\o \"tip\""_s, u"PAGE"_s,
                                    u"HYPERLINK \\l \"Möbel\""_s};
    format.field = anyOf(random, fields);
  }
  return format;
}

ListMark randomMark(QRandomGenerator& random) {
  static const QStringList signs{u"•"_s, u"–"_s, u"\xF0A7"_s, u"o"_s};
  static const QStringList around{QString(), u"("_s, u"."_s, u"Kapitel "_s, u"Ж)"_s};
  ListMark mark;
  mark.style = random.bounded(2) == 0 ? ListMark::Style::None : anyUpTo(random, ListMark::Style::LowerRoman);
  mark.level = random.bounded(3);
  mark.withParents = random.bounded(4) == 0;
  // Numbers that the item in front doesn't lead to.
  mark.start = random.bounded(3) == 0 ? 100 + random.bounded(1000) : 0;
  mark.before = mark.isNumbered() ? anyOf(random, around) : anyOf(random, signs);
  mark.after = anyOf(random, around);
  mark.fontName = random.bounded(2) == 0 ? QString() : u"Wingdings"_s;
  return mark;
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
  format.rightToLeft = random.bounded(4) == 0;
  for (const auto isOn : kParagraphSwitches) {
    format.*isOn = random.bounded(6) == 0;
  }
  if (random.bounded(6) == 0) {
    format.background = random.generate() & 0xFFFFFFU;
  }
  format.list = randomMark(random);
  for (int count = random.bounded(4); count > 0; --count) {
    format.tabStops.append(
        {random.bounded(9000), anyUpTo(random, TabStop::Kind::Decimal), anyUpTo(random, TabStop::Leader::Equals)});
  }
  return format;
}

/// Small, but of each kind, and with what text is in notes.
std::shared_ptr<const InlineObject> randomObject(QRandomGenerator& random, int depth) {
  using Kind = InlineObject::Kind;
  static const QByteArrayList pictures{
      "\\pict\\pngblip\\picw7\\pich9\r\n0a0b{\\*\\x }0c",
      "\\shppict{\\pict\\jpegblip\\bin4 }}{{}}\r\n{\\nonshppict{\\pict\\wmetafile8 00}",
      "\\shp{\\*\\shpinst\\shpleft5{\\sp{\\sn pib}{\\sv {\\pict\\pngblip 11}}}}"};
  static const QByteArrayList heads{"\\object\\objemb{\\*\\objclass Chart}{\\*\\objdata 0102}"};
  static const QStringList names{u"here"_s, u"Möbel {1}"_s, u"Ж"_s};
  InlineObject object;
  object.kind = anyUpTo(random, Kind::Entry);
  const bool holdsText = isNote(object.kind) || object.kind == Kind::Entry;
  if (object.kind == Kind::Picture) {
    object.bytes = SharedBytes(anyOf(random, pictures));
  } else if (object.kind == Kind::Embedded) {
    object.bytes = SharedBytes(anyOf(random, heads));
  } else if (!holdsText) {
    object.label = anyOf(random, names);
  } else if (object.kind == Kind::Entry) {
    object.label = u"xe"_s;
  } else if (object.kind == Kind::Comment) {
    object.details = {{"atnid", u"JA"_s}, {"atnauthor", anyOf(random, names)}, {"atndate", u"12"_s}};
  } else {
    object.isNumbered = random.bounded(2) == 0;
  }
  if (holdsText || (object.kind == Kind::Embedded && random.bounded(2) == 0)) {
    RichText content = randomRichText(random, depth + 1);
    content.setDefaultTab(0);
    content.append(RichText::fromPlain(u"\n."_s));  // a field is never left open at the end of a note
    object.content = std::make_shared<const RichText>(content);
  }
  return std::make_shared<const InlineObject>(object);
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

RichText randomRichText(QRandomGenerator& random, int depth) {
  RichText text;
  for (int pieces = random.bounded(depth == 0 ? 12 : 3); pieces > 0; --pieces) {
    QString words;
    for (int count = random.bounded(8); count > 0; --count) {
      words += randomWord(random);
    }
    const RichText piece = RichText::fromPlain(words, randomCharFormat(random), randomParagraphFormat(random));
    const auto place = [&] { return random.bounded(static_cast<int>(text.size()) + 1); };
    text.replace(place(), random.bounded(4), piece);
    if (depth < 2 && random.bounded(2) == 0) {
      text.insert(place(), RichText::fromObject(randomObject(random, depth), randomCharFormat(random)));
    }
    text.formatCharacters(place(), random.bounded(6),
                          [&random](CharFormat& format) { format = randomCharFormat(random); });
  }
  if (random.bounded(2) == 0) {
    text.formatParagraphs(0, -1, [&random](ParagraphFormat& format) { format = randomParagraphFormat(random); });
  }
  text.setDefaultTab(random.bounded(3) * 360);
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

QByteArray rtfSampleFile(const QString& name) {
  return readBytes(kSampleFolder + name + u".rtf"_s);
}

QStringList rtfSampleFiles() {
  return QDir(kSampleFolder).entryList({u"*.rtf"_s}, QDir::Files, QDir::Name);
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
