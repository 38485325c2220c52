#include "core/text/Rtf.h"

#include "core/text/RtfSamples.h"
#include "support/Mutations.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Reading {
  const char* what;
  QByteArray rtf;
  QString plain;
};

void expectReadings(const QList<Reading>& readings) {
  for (const Reading& reading : readings) {
    EXPECT_EQ(rtfToPlainText(reading.rtf), reading.plain) << reading.what;
    EXPECT_EQ(readRtf(reading.rtf).plainText(), reading.plain) << reading.what;
  }
}

/// What must hold for any bytes at all.
void expectSoundReading(const QByteArray& bytes) {
  const RichText text = readRtf(bytes);
  ASSERT_EQ(rtfToPlainText(bytes), text.plainText()) << bytes;
  const QByteArray written = writeRtf(text);
  ASSERT_EQ(readRtf(written), text) << bytes;
  ASSERT_EQ(rtfToPlainText(written), text.plainText()) << bytes;
}

QList<QByteArray> allSamples() {
  QList<QByteArray> samples = rtfSamples();
  for (const CorpusFile& file : rtfCorpus()) {
    samples.append(file.rtf);
  }
  return samples;
}

const QByteArrayList kSnippets{"{",     "}",          "\\",          "\\'",      "\\'8",         "\\u",
                               "\\u-5", "\\bin9999 ", "\\uc0",       "\\uc9 ",   "{\\*",         "{\\fonttbl",
                               "\\par", "\\f9",       "{\\upr{",     "\\v ",     "{\\colortbl;", "\\ansicpg932",
                               "\xff",  "\\fs999999", "\\cell\\row", "\\pard\n", "\\plain",      "{\\*\\ud{\\rtf"};

}  // namespace

TEST(Rtf, ReadsUnicodeAndSkipsItsFallback) {
  expectReadings({
      {"one fallback by default", "{\\rtf1 \\u8217?s}", u"’s"_s},
      {"the delimiter is no fallback", "{\\rtf1 \\u55357 ?\\u56832 ?x}", u"\xD83D\xDE00x"_s},
      {"negative numbers", "{\\rtf1 \\u-3913?\\u-10179?\\u-8704?}", u"\xF0B7\xD83D\xDE00"_s},
      {"a hexadecimal fallback", "{\\rtf1 \\u1046\\'3fa}", u"Жa"_s},
      {"two for one", "{\\rtf1\\uc2\\u35486\\'8c\\'eax}", u"語x"_s},
      {"none: the next character is text", "{\\rtf1\\uc0\\u8217 s\\u8217s}", u"’s’s"_s},
      {"\\uc belongs to the group", "{\\rtf1{\\uc0\\u233 a}\\u233 ab}", u"éaéb"_s},
      {"a control word counts as one", "{\\rtf1 \\u8217\\rquote s}", u"’s"_s},
      {"so do a symbol and a whole \\bin", "{\\rtf1\\uc2\\u8217\\~\\bin3 }}}s}", u"’s"_s},
      {"a brace ends the skipping", "{\\rtf1\\uc3{\\u233 a}bc}", u"ébc"_s},
      {"line ends do not count", "{\\rtf1 \\u233\r\n?x}", u"éx"_s},
      {"the second half of a pair is no fallback", "{\\rtf1 \\u-10179\\u-8704?x\\u55357\\rquote\\u56832?y}",
       u"\xD83D\xDE00x\xD83D\xDE00y"_s},
      {"a character beyond 16 bits", "{\\rtf1 \\u128512?}", u"😀"_s},
  });
}

TEST(Rtf, DecodesBytesByTheFontInForce) {
  const QByteArray fonts =
      "{\\rtf1\\ansi\\ansicpg1250\\deff1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset128 C;}"
      "{\\f3\\fcharset1 D;}{\\f4\\fcharset2 Symbol;}{\\f5\\fcharset0\\cpg1253 E;}{\\f6\\fcharset256 F;}{\\f7 G;}}";
  expectReadings({
      {"the default font", fonts + "\\'c6{\\f0\\'c6}\\f0\\plain\\'c6}", u"ЖÆЖ"_s},
      {"the document's code page", fonts + "\\f3\\'9c\\f6\\'9c\\f7\\'9c}", u"śśś"_s},
      {"\\cpg before \\fcharset", fonts + "\\f5\\'e1}", u"α"_s},
      {"an unknown font", fonts + "\\f77\\'9c}", u"ś"_s},
      {"a trail byte as ASCII", fonts + "\\f2\\'8b\\'43\\'8bC\\'8b\r\nC\\'83\\\\}", u"気気気ソ"_s},
      {"a broken pair", fonts + "\\f2\\'8b\\b x\\'8b}", u"\xFFFDx\xFFFD"_s},
      {"raw bytes", fonts + "\\f2\x8b\x43}", u"気"_s},
      {"symbols", fonts + "\\f4\\'b7\\'20a\\bullet}", u"\xF0B7 \xF061•"_s},
      {"no fonts", "{\\rtf1\\mac\\'8e}", u"é"_s},
      {"\\pc", "{\\rtf1\\pc\\'82}", u"é"_s},
      {"\\ansi behind the code page", "{\\rtf1\\ansicpg1251\\ansi\\'c6}", u"Ж"_s},
      {"a code page behind the font table", "{\\rtf1\\deff0{\\fonttbl{\\f0 A;}}\\ansicpg1251\\'c6\\ansicpg1253\\'c6}",
       u"ЖЖ"_s},
      {"a pair that nobody can read", "{\\rtf1{\\fonttbl{\\f0\\fcharset130 A;}}\\f0\\'88\\'61b}",
       u"\xFFFD"
       u"b"_s},
      {"an encoding of whole characters is no code page", "{\\rtf1\\ansi\\ansicpg1200\\'93}", u"“"_s},
      {"code page 0", "{\\rtf1\\ansi\\ansicpg0\\'93}", u"“"_s},
      {"UTF-8", "{\\rtf1\\ansicpg65001\xE2\x82\xAC\\'f0\\'9f\\'98\\'80\xC3}", u"€😀\xFFFD"_s},
      {"the five holes of our code page", "{\\rtf1\\'81\\'8d\\'8f\\'90\\'9d}", u"\x81\x8D\x8F\x90\x9D"_s},
  });
}

TEST(Rtf, BeginsBehindWhatSomeProgramsPutInFront) {
  expectReadings({
      {"a byte order mark and blanks", "\xEF\xBB\xBF \r\n{\\rtf1 a}", u"a"_s},
      {"blanks and a byte order mark", "\r\n \t\xEF\xBB\xBF{\\rtf1 a}", u"a"_s},
      {"a lone slash", "/{\\rtf1 a}", u"a"_s},
      {"and so is what only looks alike", " {\\rt1 a}", u" {\\rt1 a}"_s},
  });
}

TEST(Rtf, TellsTextFromWhatIsNone) {
  expectReadings({
      {"one blank ends a word", "{\\rtf1\\plain, a\\b  b\\b0 c}", u", a bc"_s},
      {"raw line ends are nothing, an escaped one ends a paragraph", "{\\rtf1 a\r\nb\\\r\nc\\\nd}", u"ab\r\nc\r\nd"_s},
      {"tabs, dashes, quotes", "{\\rtf1 a\tb\\tab c\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet}",
       u"a\tb\tc—–‘’“”•"_s},
      {"blanks", "{\\rtf1\\emspace\\enspace\\qmspace\\~\\-\\_}", u"\u2003\u2002\u2005\u00A0\u00AD\u2011"_s},
      {"blanks between groups are text", "{\\rtf1{a} {b}}", u"a b"_s},
      {"escaped braces", "{\\rtf1 \\{\\\\\\}}", u"{\\}"_s},
      {"hidden text", "{\\rtf1 a{\\v b}c\\v d\\v0 e\\v f\\plain g}", u"aceg"_s},
      {"hidden line ends", "{\\rtf1 a{\\v\\par}b{\\v\\line}c\\par{\\v d\\par}e{\\v\\par}}", u"abc\r\ne"_s},
      {"\\bin may hold braces", "{\\rtf1 a{\\pict\\bin4 }}{{}b}", u"ab"_s},
      {"unknown ignorable groups", "{\\rtf1 a{\\*\\nobodyknows b{c}}d{\\nobodyknows e}}", u"ade"_s},
      {"\\* means that at the start of a group alone",
       "{\\rtf1 a{b\\*\\nobodyknows c}{\\b\\*\\nobodyknows d}{\\*\\b e}{\\*f}{\\*\r\n\\nobodyknows g}}", u"abcdef"_s},
      {"words among the properties of a row",
       "{\\rtf1 a\\nestcell{\\*\\nesttableprops b\\trowd\\nestrow}{\\nonesttables\\par}c}", u"a\tb\r\nc"_s},
      {"known destinations without a star",
       "{\\rtf1{\\info{\\title x}}{\\stylesheet{\\s0 N;}}{\\header h}{\\footnote f}a}", u"a"_s},
      {"fields", "{\\rtf1{\\field{\\*\\fldinst HYPERLINK}{\\fldrslt shown}}}", u"shown"_s},
      {"the Unicode half of \\upr", "{\\rtf1{\\upr{ansi}{\\*\\ud{unicode}}}x}", u"unicodex"_s},
      {"\\upr around the font table",
       "{\\rtf1{\\upr{\\fonttbl{\\f0 A;}}{\\*\\ud{\\fonttbl{\\f0\\fcharset204 B;}}}}\\f0\\'c6}", u"Ж"_s},
      {"tables", "{\\rtf1\\intbl a\\cell b\\cell\\row c\\nestcell\\nestrow{\\nonesttables\\par}d}",
       u"a\tb\t\r\nc\t\r\nd"_s},
      {"columns part text", "{\\rtf1 a\\column b}", u"a\r\nb"_s},
      {"what a tracked draft has struck out", "{\\rtf1 a{\\deleted b}c\\v d\\deleted e\\deleted0 f\\plain g}",
       u"acg"_s},
      {"line and page breaks", "{\\rtf1 a\\line b\\page c\\par\\page d\\sect}", u"a\r\nb\r\nc\r\nd"_s},
      {"control characters by number", "{\\rtf1 a\\'0d\\'0ab\\u8232?c\\u8233?d\\u0?e}", u"a\r\nb\r\nc\r\nde"_s},
  });
}

TEST(Rtf, TheLastParagraphMarkOpensNoParagraph) {
  expectReadings({
      {"none", "{\\rtf1 a}", u"a"_s},
      {"one", "{\\rtf1 a\\par}", u"a"_s},
      {"formats behind it", "{\\rtf1 a\\par\\pard\\plain\\f0 {\\b}}", u"a"_s},
      {"two", "{\\rtf1 a\\par\\par}", u"a\r\n"_s},
      {"nothing else", "{\\rtf1\\par}", QString()},
      {"a line break stays", "{\\rtf1 a\\line}", u"a\r\n"_s},
  });
}

TEST(Rtf, GivesWhatThereIsOfBrokenText) {
  expectReadings({
      {"no bytes", "", QString()},
      {"cut in a word", "{\\rtf1 abc\\pa", u"abc"_s},
      {"cut behind a backslash", "{\\rtf1 abc\\", u"abc"_s},
      {"cut in a byte", "{\\rtf1 abc\\'9", u"abc9"_s},
      {"cut in a picture", "{\\rtf1 abc{\\pict 0102", u"abc"_s},
      {"cut in binary data", "{\\rtf1 abc\\bin4000000000 x", u"abc"_s},
      {"missing braces", "{\\rtf1{\\b a{\\i b\\par", u"ab"_s},
      {"bytes behind the last brace", QByteArray("{\\rtf1 a}\r\n\0 x", 14), u"a"_s},
      {"no RTF", "caf\xe9\nline\r\nthird\r", u"café\r\nline\r\nthird\r\n"_s},
      {"no hexadecimal digits", "{\\rtf1 a\\'zz}", u"azz"_s},
      {"a destination without a group of its own", "{\\rtf1\\header a}", u"a"_s},
  });
}

TEST(Rtf, KeepsFormats) {
  const RichText text = readRtf(
      "{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset134 \\'cb\\'ce\\'cc\\'e5;}}"
      "{\\colortbl ;\\red255\\green0\\blue0;\\red1\\green2\\blue3;}"
      "\\pard\\fi-200\\li400\\tqr\\tx500\\f0\\fs30\\cf1 a{\\b\\i\\ul\\strike\\highlight2 b}\\super "
      "c\\plain\\par\\pard\\qc d}");
  ASSERT_EQ(text.plainText(), u"abc\r\nd"_s);
  const CharFormat first = text.charFormatAt(0);
  EXPECT_EQ(first.fontName, u"Arial"_s);
  EXPECT_EQ(first.halfPoints, 30);
  EXPECT_EQ(first.colour, 0x0000FFU);
  const CharFormat second = text.charFormatAt(1);
  EXPECT_TRUE(second.bold && second.italic && second.underline == CharLook::Underline::Single && second.strikeOut);
  EXPECT_EQ(second.background, 0x030201U);
  EXPECT_EQ(text.charFormatAt(2).script, CharFormat::Script::Superscript);
  EXPECT_FALSE(text.charFormatAt(2).bold);
  EXPECT_EQ(text.charFormatAt(5), (CharFormat{{}, u"宋体"_s}));
  EXPECT_EQ(text.paragraphFormatAt(0).firstIndent, -200);
  EXPECT_EQ(text.paragraphFormatAt(0).leftIndent, 400);
  EXPECT_EQ(text.paragraphFormatAt(0).tabStops, (QList<TabStop>{{500, TabStop::Kind::Right}}));
  EXPECT_EQ(text.paragraphFormatAt(5), (ParagraphFormat{.alignment = ParagraphFormat::Alignment::Centre}));
}

TEST(Rtf, BulletsAreKeptAndTheirLabelsAreNoText) {
  const QByteArray fonts = "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}";
  // Which paragraphs have one: a list up to the next defaults, labels alone, and numbers.
  for (const auto& [rtf, bullets] :
       {std::pair{"\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\li200 a\\par "
                  "b\\par\\pard c\\par}",
                  "++-"},
        {"{\\listtext\\pard\\plain\\f1\\'b7\\tab}\\pard\\ls1 a\\par{\\listtext\\u8226\\'95\\tab}b\\par{\\listtext "
         "o\\tab}c\\par d}",
         "+++-"},
        {"\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta.}}a\\par{\\listtext 2\\tab}b\\par{\\listtext "
         "(c)\\tab}c}",
         "---"}}) {
    const RichText text = readRtf(fonts + rtf);
    for (const RichText& read : {text, readRtf(writeRtf(text))}) {
      QByteArray found;
      for (qsizetype i = 0; i < read.paragraphCount(); ++i) {
        found += read.paragraph(i).format->list.style == ListMark::Style::Bullet ? '+' : '-';
      }
      EXPECT_EQ(found, bullets) << rtf;
      EXPECT_EQ(read.plainText(), u"a\r\nb\r\nc\r\nd"_s.left(found.size() * 3 - 2)) << rtf;
    }
  }
}

TEST(Rtf, BulletsAreWrittenAsOtherProgramsReadThem) {
  const RichText text = RichText::fromPlain(u"a\nb"_s, {}, {.leftIndent = 200, .list = ListMark::bullet()});
  const QByteArray rtf = writeRtf(text);
  EXPECT_TRUE(rtf.contains("{\\f1\\fnil\\fcharset2 Symbol;}")) << rtf;
  EXPECT_TRUE(rtf.contains(
      "\\pard{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}\\ls1\\li200 a\\par \r\n"
      "{\\pntext\\f1\\'b7\\tab}b\\par"))
      << rtf;
}

TEST(Rtf, SymbolFontsStaySymbolFonts) {
  const QByteArray rtf = writeRtf(readRtf("{\\rtf1{\\fonttbl{\\f3\\fcharset2 Wingdings;}}\\f3 J \\'e0\\u946?}"));
  EXPECT_TRUE(rtf.contains("\\fcharset2 Wingdings;}")) << rtf;
  EXPECT_TRUE(rtf.contains("\\'4a \\'e0\\u946\\'3f")) << rtf;
}

TEST(Rtf, RaisedAndLoweredLettersAreEndedByTheirOwnWord) {
  const QByteArray sized = "{\\rtf1{\\fonttbl{\\f0 Arial;}}x{\\f0\\fs30\\super 2}y\\par}";
  EXPECT_TRUE(writeRtf(readRtf(sized)).contains("\\super\\f1\\fs30 2\\nosupersub\\plain y\\par"))
      << writeRtf(readRtf(sized));
  EXPECT_TRUE(writeRtf(readRtf("{\\rtf1 x{\\sub 2}\\par}")).contains("x\\sub 2\\nosupersub\\par"));
}

TEST(Rtf, LettersOfTheOtherDirectionAreToldOfInFrontBehindTheirOwnWord) {
  const QByteArray rtf = writeRtf(
      readRtf("{\\rtf1{\\fonttbl{\\f0 A;}{\\f1 B;}}\\rtlch\\af1\\ab\\ltrch\\f0 a\\par\\pard\\qc b\\rtlch c\\ab d}"));
  EXPECT_TRUE(rtf.contains(
      "\\pard\\rtlch\\ab1\\af2\\ltrch\\f1 a\\par \r\n\\pard\\qc\\ltrch b\\plain\\ltrch\\ab1\\af2\\rtlch\\f1 cd"))
      << rtf;
  EXPECT_TRUE(writeRtf(readRtf("{\\rtf1\\ai a}")).contains("\\rtlch\\ai1\\ltrch a"));
}

TEST(Rtf, WritesSevenBitsWithFallbacksThatEveryoneReads) {
  const QByteArray rtf = writeRtf(RichText::fromPlain(u"“Ж1”\t{é}\x2028😀"_s));
  EXPECT_TRUE(rtf.contains("\\'93\\u1046\\'3f1\\'94\\tab\\{\\'e9\\}\\line\\u-10179\\'3f\\u-8704\\'3f\\par")) << rtf;
  EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char byte) { return static_cast<uchar>(byte) < 0x80; }));
}

TEST(Rtf, AnyRichTextReadsBackEqual) {
  QRandomGenerator random(4711);
  for (int i = 0; i < 3000; ++i) {
    const RichText text = randomRichText(random);
    const QByteArray rtf = writeRtf(text);
    ASSERT_EQ(readRtf(rtf), text) << rtf;
    ASSERT_EQ(rtfToPlainText(rtf), text.plainText()) << rtf;
  }
}

TEST(Rtf, BothRoadsGiveOneTextAndWritingLosesNothing) {
  for (const QByteArray& sample : allSamples()) {
    expectSoundReading(sample);
  }
}

TEST(Rtf, AnyBytesAreRead) {
  QRandomGenerator random(20260101);
  const QList<QByteArray> samples = allSamples();
  for (const QByteArray& sample : samples) {
    const int turns = sample.size() > 20000 ? 20 : 400;
    for (int i = 0; i < turns; ++i) {
      expectSoundReading(mutated(sample, random, kSnippets));
      ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
  }
  for (int i = 0; i < 300; ++i) {
    QByteArray noise = "{\\rtf1";
    for (int count = random.bounded(300); count > 0; --count) {
      noise += static_cast<char>(random.bounded(256));
    }
    expectSoundReading(noise);
  }
}

namespace {

/// The processor time of the best of a few turns of reading in both ways and writing: what else the machine does must
/// not count.
std::clock_t clockTicksFor(const QByteArray& piece, qsizetype bytes) {
  const QByteArray rtf = "{\\rtf1\\ansicpg932 x " + piece.repeated(bytes / piece.size());
  std::clock_t best = std::numeric_limits<std::clock_t>::max();
  for (int turn = 0; turn < 3; ++turn) {
    const std::clock_t start = std::clock();
    const RichText text = readRtf(rtf);
    EXPECT_EQ(rtfToPlainText(rtf), text.plainText()) << piece;
    writeRtf(text);
    best = std::min(best, std::clock() - start);
  }
  return best;
}

}  // namespace

TEST(Rtf, TimeIsLinearWhateverIsRepeated) {
  // Parted by "~".
  const QByteArrayList repeated =
      QByteArray(
          "{~}~{\\b ~\\b a\\b0 b~\\u1046?~\\par\\qc\\par\\pard~\\'8b~{\\*\\x ~\\f1\\'e9\\f2 ~\\tx1\\tx2\\par "
          "~\\fs1a\\fs2b~\\bin1 ~{\\pntext 1.}{\\*\\pn\\pnlvlblt}\\par~{\\fonttbl{\\f1\\cpg77777 "
          "A;}}\\f1\\'e9~{\\fonttbl{\\f1 A;}}~{\\colortbl;;}~{\\upr{a}{\\*\\ud{b}}}~\\pard\\li1\\par\\pard\\li2\\par")
          .split('~');
  for (const QByteArray& piece : repeated) {
    constexpr std::clock_t kNoise = CLOCKS_PER_SEC / 50;
    const std::clock_t once = clockTicksFor(piece, 200'000);
    const std::clock_t fourfold = clockTicksFor(piece, 800'000);
    EXPECT_LT(fourfold, 8 * once + kNoise) << piece;
  }
}
