#include "core/text/cSharedHTML.h"

#include "core/infra/CodePage.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "core/text/LiteralTags.h"
#include "core/text/Tags.h"
#include "helpers/HtmlEntities.h"
#include "support/Mutations.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Text = QString (cSharedHTML::*)(const QString&) const;

void expectTexts(Text operation, const std::vector<std::pair<QString, QString>>& cases) {
  for (const auto& [text, wanted] : cases) {
    EXPECT_EQ((Html().*operation)(text), wanted) << text << " gave " << (Html().*operation)(text);
  }
}

/// Any UTF-16, lone halves of pairs too, with more of what the routines look for.
QString randomText(std::mt19937& random, qsizetype longest) {
  static const QStringList spices{u"&"_s,       u";"_s,    u"<"_s,  u">"_s, u"&amp;"_s,
                                  u"&#8217;"_s, u"[pb]"_s, u"  "_s, u"--"_s};
  QString text;
  for (auto length = static_cast<qsizetype>(random()) % longest; length > 0; --length) {
    const auto kind = random() % 5;
    if (kind == 0) {
      text += spices[static_cast<qsizetype>(random() % static_cast<unsigned>(spices.size()))];
    } else {
      const auto limit = kind == 1 ? 0x10000U : kind == 2 ? 0x3000U : 0x180U;
      text += QChar(static_cast<char16_t>(random() % limit));
    }
  }
  return text;
}

/// The words of a text by Unicode, said in another way than by the library.
qsizetype simpleWordCount(const QString& text) {
  static const QRegularExpression gap(u"[\\s–—]+|-{2,}"_s, QRegularExpression::UseUnicodePropertiesOption);
  static const QRegularExpression letter(u"[\\p{L}\\p{N}]"_s);
  return text.split(gap).filter(letter).size();
}

/// Puts the program's folder aside for one test.
class EmptyProgramFolder {
 public:
  EmptyProgramFolder() : before_(Paths::executableFolder()) { Paths::overrideFolders(folder_.path()); }
  ~EmptyProgramFolder() { Paths::overrideFolders(before_); }
  EmptyProgramFolder(const EmptyProgramFolder&) = delete;
  EmptyProgramFolder& operator=(const EmptyProgramFolder&) = delete;

 private:
  ScratchFolder folder_;
  QString before_;
};

}  // namespace

TEST(WordCount, PartsWordsAsSettled) {
  const std::vector<std::pair<QString, qint32>> cases{{QString(), 0},       {u" - "_s, 0},
                                                      {u"*** … —"_s, 0},    {u"well-known"_s, 1},
                                                      {u"don't"_s, 1},      {u"don’t"_s, 1},
                                                      {u"e.g."_s, 1},       {u"3.14"_s, 1},
                                                      {u"wait--what"_s, 2}, {u"wait---what"_s, 2},
                                                      {u"wait—what"_s, 2},  {u"7–10"_s, 2},
                                                      {u"foo_bar"_s, 1},    {u"“Yes,”\r\nhe"_s, 2},
                                                      {u"a- -b"_s, 2},      {u"Война и мир"_s, 3},
                                                      {u"Ω'a"_s, 1},        {u"𐐀𐐁 x"_s, 2},
                                                      {u"😀 😀"_s, 0},        {u"a\u2003b\u00A0c"_s, 3},
                                                      {u"-a"_s, 1},         {u"a.-b"_s, 1},
                                                      {u"a--.-b"_s, 2},     {u"\"--'t"_s, 1},
                                                      {u"x²"_s, 1},         {QString(u'a') + QChar(0) + u'b', 1}};
  for (const auto& [text, words] : cases) {
    EXPECT_EQ(Html().CalcWordCount(text), words) << text;
  }
}

TEST(WordCount, AgreesWithASimpleCount) {
  std::mt19937 random(3);
  const QString alphabet = u"ab  --'.—–_,\n1éЖ…“½²ˆ"_s;
  for (int round = 0; round < 3000; ++round) {
    QString text;
    for (auto length = random() % 60; length > 0; --length) {
      text += alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))];
    }
    ASSERT_EQ(Html().CalcWordCount(text), simpleWordCount(text)) << text;
  }
  // Longer than a stretch, with and without blanks to part it at.
  for (const QString& piece : {u"one two-three "_s, u"one\n"_s, u"word"_s, u"'"_s}) {
    const QString text = piece.repeated(20000);
    EXPECT_EQ(Html().CalcWordCount(text), simpleWordCount(text)) << piece;
  }
}

TEST(cSharedHTML, StripHtmlLeavesWhatHasNoPartner) {
  expectTexts(&cSharedHTML::StripHtml, {{u"<p class=\"x\">One <b>two</b></p>"_s, u"One two"_s},
                                        {u"a < b <i>c</i> > d"_s, u"a < b c > d"_s},
                                        {u"x << y >> z"_s, u"x <> z"_s},
                                        {u"<!-- a <b> --->c<!---->d"_s, u"cd"_s},
                                        {u"a<!-- b <i>c</i>"_s, u"a<!-- b c"_s},
                                        {u"a --> b"_s, u"a --> b"_s},
                                        {u"<"_s, u"<"_s},
                                        {u"<>"_s, QString()},
                                        {u"  "_s, u"  "_s},
                                        {u"Ж<b>😀</b>"_s, u"Ж😀"_s}});
}

TEST(cSharedHTML, EntitiesBecomeTheirCharacters) {
  expectTexts(&cSharedHTML::HtmlToChar, {{u"  &lt;&amp;lt;&quot; "_s, u"<&lt;\""_s},
                                         {u"&Eacute;&eacute;&EACUTE;"_s, u"Éé&EACUTE;"_s},
                                         {u"&thetasym;&thetasymb;&alpha"_s, u"ϑ&thetasymb;&alpha"_s},
                                         {u"&#1046;&#x416;&#X0416;&#128512;&#x1F600;"_s, u"ЖЖЖ😀😀"_s},
                                         {u"&#146;&#x97;"_s, u"’—"_s},
                                         {u"&#0;&#xD800;&#x110000;&#99999999999999999999;&#;&#x;&#12"_s,
                                          u"&#0;&#xD800;&#x110000;&#99999999999999999999;&#;&#x;&#12"_s},
                                         {u"&&amp;& ;&bogus;&apos;"_s, u"&&& ;&bogus;&apos;"_s},
                                         {u"a\0b"_s, u"a"_s}});
  expectTexts(
      &cSharedHTML::HTMLConstToChar,
      {{u"&hellip;&bull;&prime;&Prime;&eacute;"_s, u"...' '\"&eacute;"_s},
       {u"&#8230;&#8220;&#8221;&#8216;&#8217;&#8212;&#8211;&#8243;&#8242;&#8364;&#8226;"_s, u"...\"\"''--\"'€' "_s},
       {u"&#233;&#1046;&#x1F600;&#38;amp;&#0;&#x"_s, u"éЖ😀&amp;&#0;&#x"_s},
       {u"  "_s, u"  "_s}});
}

TEST(cSharedHTML, CharactersBecomeEntities) {
  expectTexts(&cSharedHTML::CharToHtml, {{u"\"a b\" <–—>"_s, u"&quot;a&nbsp;b&quot;&nbsp;&lt;&ndash;&mdash;&gt;"_s},
                                         {u"&"_s, u"&"_s},
                                         {u"&eacute;é"_s, u"&eacute;&eacute;"_s},
                                         {u"¡ÿαЖ😀"_s, u"&iexcl;&yuml;&alpha;Ж😀"_s},
                                         {u"   "_s, u"   "_s}});
  for (const HtmlEntity& entity : kHtmlEntities) {
    const QString name =
        u'&' + QLatin1StringView(entity.name.data(), static_cast<qsizetype>(entity.name.size())) + u';';
    EXPECT_EQ(Html().HtmlToChar(name), QString(QChar(entity.character))) << entity.name;
    const QString back = entity.character == u'&' ? u"&"_s : name;
    EXPECT_EQ(Html().CharToHtml(QString(QChar(entity.character))), back);
  }
}

TEST(cSharedHTML, EntitiesRoundTripForAnyText) {
  std::mt19937 random(5);
  for (int round = 0; round < 3000; ++round) {
    QString text = randomText(random, 40).remove(u'&').remove(QChar(0)).replace(u' ', QChar(0xA0));
    ASSERT_EQ(Html().HtmlToChar(Html().CharToHtml(text)), text) << text;
  }
}

TEST(cSharedHTML, PlainText) {
  expectTexts(&cSharedHTML::HtmlToPlainText,
              {{u" <html><HEAD><title>x</title></Head><p>Caf&eacute;&#8230;</p>\n\n<p>a<br>b&lt;BR&gt;c</p> "_s,
                u"Café...\r\nab\r\nc"_s},
               {u"a\r\rb\r\r\nc\r\n\r\nd"_s, u"a\r\nb\r\r\nc\r\n\r\nd"_s},
               {u"   "_s, QString()},
               {u"&#60;b&#62; Ж"_s, u"<b> Ж"_s}});
}

TEST(cSharedHTML, ReaderFormat) {
  expectTexts(
      &cSharedHTML::ConvertToPagelingFormatting,
      {{u" <B>a</B><STRONG class=x>b</strong> "_s, u"[b]a[/b][b]b[/b]"_s},
       {u"<i>a</i><em>b</em><u>c</u><ins>d</ins>"_s, u"[i]a[/i][i]b[/i][u]c[/u][u]d[/u]"_s},
       {u"<h1>T</h1><H6 id='1'>t</H6><hr><HR/>"_s, u"[h1]T[/h1][h6]t[/h6][hr][hr]"_s},
       {u"<center>a</center><p align=center>b</p><p>c</p>"_s, u"[c]a[/c][c]b[/c]<p>c</p>"_s},
       {u"<P ALIGN='CENTER'>a<p>b"_s, u"[c]a[/c]b"_s},
       {u"<p style=\"text-align: center\">a<p align=center>b"_s, u"[c]a[/c][c]b[/c]"_s},
       {u"<div align=center>a<div>b</div>c</div>d</div>"_s, u"[c]a<div>b</div>c[/c]d</div>"_s},
       {u"<h2 align=\"center\">T</h2><h2>t</h2>"_s, u"[c][h2]T[/h2][/c][h2]t[/h2]"_s},
       {u"<br><blockquote><bold><b <i>x</hr><>"_s, u"<br><blockquote><bold><b [i]x</hr><>"_s},
       {u"<p align=center>a<div>b</div><h1>c</h1>"_s, u"[c]a[/c]<div>b</div>[h1]c[/h1]"_s},
       {u"<p align=center>a"_s, u"[c]a[/c]"_s},
       {u"<p align=center>a<blockquote>b<p align=center>c<address>"_s, u"[c]a[/c]<blockquote>b[c]c[/c]<address>"_s},
       {u"<p style='vertical-align: center' class=\"talign center align center\">a"_s,
        u"<p style='vertical-align: center' class=\"talign center align center\">a"_s},
       {u"<i/>a<b />"_s, u"<i/>a<b />"_s},
       {u"<!-- <p align=center><b> --><p>a</p><!-- <i>"_s, u"<!-- <p align=center><b> --><p>a</p><!-- [i]"_s},
       {u"a[PB]b"_s, u"a\r\n[pb]\r\nb"_s},
       {u"[pb]"_s, u"[pb]"_s},
       {u"<p>[pb]</p>\r\n[pb]\r\nЖ"_s, u"<p>\r\n[pb]\r\n</p>\r\n[pb]\r\nЖ"_s}});
  expectTexts(&cSharedHTML::HtmlToPagelingText,
              {{u"<head>x</head><p>a <b>b</b></p>[pb]<p>&eacute;</p>"_s, u"a [b]b[/b]\r\n[pb]\r\né"_s},
               {u"<!-- <div align=center> --><div>one</div> two</div>"_s, u"one two"_s}});
}

TEST(cSharedHTML, SmallTools) {
  expectTexts(
      &cSharedHTML::CleanWord,
      {{u" b@d_w0rd, (.)x1: "_s, u"bad word, oxi"_s.remove(u',')}, {u"{~-}^'"_s, QString()}, {u"()(a)"_s, u"oa"_s}});
  expectTexts(&cSharedHTML::RemoveExtraSpaces, {{u"  a   b\t \t "_s, u" a b\t \t "_s}, {QString(), QString()}});
  expectTexts(&cSharedHTML::TrimHeadTags, {{u"a</HEAD>b</head>c"_s, u"b</head>c"_s}, {u"a"_s, u"a"_s}});
  expectTexts(&cSharedHTML::ConvertBR, {{u"a<br>b<BR><br/>"_s, u"a\r\nb\r\n<br/>"_s}});
  expectTexts(&cSharedHTML::CutOffNull, {{u"a\0b"_s, u"a"_s}, {u"ab"_s, u"ab"_s}});
  expectTexts(&cSharedHTML::EndParaCRLF, {{u"a"_s, u"a\r\n\r\n"_s}});
  expectTexts(&cSharedHTML::EndParaCR, {{u"a"_s, u"a\r\r"_s}});
  EXPECT_EQ(Html().RemoveChar(u"banana"_s, u"ax"_s), u"bnn"_s);
  EXPECT_EQ(Html().RemoveChar(u"ЖaЖ"_s, u"Ж"_s), u"a"_s);
  EXPECT_EQ(Html().RemoveChar(u"a"_s, QString()), u"a"_s);
  EXPECT_EQ(Html().RemoveChar(u"😀a😁😀"_s, u"😀"_s), u"a😁"_s) << "a pair is one character";
  EXPECT_EQ(Html().cInstr(u"abC", u"c"), 3);
  EXPECT_EQ(Html().cInstr(u"abC", u"x"), 0);
  QByteArray bytes;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
  }
  EXPECT_EQ(Html().ByteArrayToString(bytes), CodePage::fromBytes(bytes));
}

TEST(cSharedHTML, EveryReplacementAgreesWithTheObviousOne) {
  std::mt19937 random(9);
  const QString alphabet = u"aAbBжЖ"_s;
  const auto word = [&](unsigned longest) {
    QString text;
    for (auto length = random() % longest; length > 0; --length) {
      text += alphabet[static_cast<qsizetype>(random() % 6)];
    }
    return text;
  };
  for (int round = 0; round < 3000; ++round) {
    const QString text = word(40);
    const QString find = word(4);
    const QString replace = word(6);
    const QString exact = find.isEmpty() ? text : QString(text).replace(find, replace);
    const QString folded = find.isEmpty() ? text : QString(text).replace(find, replace, Qt::CaseInsensitive);
    ASSERT_EQ(Html().ReplaceWith_NC(text, find, replace), exact);
    ASSERT_EQ(Html().ReplaceUsingC(text, find, replace), exact);
    ASSERT_EQ(Html().MyReplace(text, find, replace), exact);
    ASSERT_EQ(Html().ReplaceWith(text, find, replace), folded) << text << '|' << find;
    ASSERT_EQ(Html().MyReplaceNoCaps(text, find, replace), folded);
  }
}

TEST(cSharedHTML, ValuesBetweenTags) {
  EXPECT_EQ(Html().ExtractXMLArray(u"aXbxc"_s, u"x"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
  EXPECT_EQ(Html().ExtractXMLArray(u"<L><i>1</I><i>2</i></L>"_s, u"<l>"_s, u"</l>"_s, u"</i>"_s),
            (QStringList{u"<L><i>1"_s, u"<i>2"_s, u"</L>"_s}));
  EXPECT_EQ(Html().ExtractWithTags(u"a<Tag>1</TAG>b"_s, u"tag"_s), u"<Tag>1</TAG>"_s);
  EXPECT_EQ(Html().ReplaceBetweenTags(u"<a>1</a>2<A>3</A><a>4"_s, u"<a>"_s, u"</a>"_s, u"x"_s),
            u"<a>x</a>2<A>x</A><a>4"_s);
  const auto extracted = [](const QString& value) { return u"<V>"_s + value + u"</V>"_s; };
  EXPECT_EQ(Html().ExtractFloat(extracted(u"1,5"_s), u"v"_s), 1.5);
  EXPECT_EQ(Html().ExtractFloat(extracted(u"1.5"_s), u"v"_s), 1.5);
  EXPECT_EQ(Html().ExtractInt(extracted(u" 12x"_s), u"v"_s), 12);
  EXPECT_TRUE(Html().ExtractBool(extracted(u"-1"_s), u"v"_s));
  EXPECT_FALSE(Html().ExtractBool(extracted(u"1"_s), u"v"_s));
  EXPECT_EQ(Html().ExtractDate(extracted(u"1900-01-01"_s), u"v"_s), 2);
  for (const QString& noDate : {u"1900-02-30"_s, u"soon"_s, QString()}) {
    EXPECT_EQ(Html().ExtractDate(extracted(noDate), u"v"_s), 0);
  }
  EXPECT_EQ(Html().EncloseBool(true, u"V"), u"<V>-1</V>"_s);
}

// Room for a hit at every place would be 200 GB.
TEST(cSharedHTML, AReplacementTakesTheRoomThatItNeedsAndNoMore) {
  const QString text = u"x"_s.repeated(100'000) + u"[[B]]"_s;
  const QString body = u"y"_s.repeated(1'000'000);
  EXPECT_EQ(Html().ReplaceUsingC(text, u"[[B]]"_s, body).size(), 1'100'000);
  EXPECT_EQ(Html().ReplaceWith(text, u"[[b]]"_s, body).size(), 1'100'000);
  const QString repeated = u"a"_s.repeated(2'000'000);
  EXPECT_EQ(Html().ReplaceUsingC(repeated, u"a"_s.repeated(1000), u"b"_s.repeated(1001)).size(), 2'002'000);
}

TEST(cSharedHTML, EnclosedValuesReadBack) {
  std::mt19937 random(13);
  for (int round = 0; round < 2000; ++round) {
    const auto whole = static_cast<qint32>(random());
    const double number = whole / 1024.0 * (round % 3 == 0 ? 1e-300 : 1);
    ASSERT_EQ(Html().ExtractFloat(Html().EncloseFloat(number, u"F"), u"f"_s), number);
    ASSERT_EQ(Html().ExtractInt(Html().EncloseInt(whole, u"F"), u"f"_s), whole);
    const qint32 day = whole % 600000;
    ASSERT_EQ(Html().ExtractDate(Html().EncloseDate(day, u"F"), u"f"_s), day);
    const QString text = randomText(random, 20).remove(u'<');
    ASSERT_EQ(Html().ExtractString(Html().EncloseString(text, u"F"), u"f"_s), text);
  }
}

TEST(cSharedHTML, TagsReadAsTheProjectFileReadsThem) {
  std::mt19937 random(17);
  const QByteArray sample = "<A>1</a><b><A>2</A></B><a></a>x<B>3</b>";
  for (int round = 0; round < 5000; ++round) {
    const QByteArray bytes = mutated(sample, random, {"<a>", "</A>", "<", ">", "<B>", "</b>", "<<a>", "\xE9"});
    const QString text = QString::fromLatin1(bytes);
    for (const auto& [open, close] : {std::pair{"<a>", "</a>"}, std::pair{"<B>", "</B>"}}) {
      const QString opening = QString::fromLatin1(open);
      const QString closing = QString::fromLatin1(close);
      const Tag tag{open, close};
      ASSERT_EQ(Html().ExtractBetweenTags(text, opening, closing),
                QString::fromLatin1(Tags::ExtractBetweenTags(bytes, tag)))
          << bytes.constData();
      ASSERT_EQ(Html().ExtractWithTags(text, opening, closing),
                QString::fromLatin1(Tags::ExtractWithTags(bytes, tag).toByteArray()));
      ASSERT_EQ(Html().ExtractXMLArray(text, opening, closing, u"</i>"_s),
                LiteralTags::ExtractXMLArray(text, opening, closing, u"</i>"_s));
    }
  }
}

TEST(cSharedHTML, Base64RoundTripsForAnyBytesHoweverBroken) {
  std::mt19937 random(19);
  for (int round = 0; round < 3000; ++round) {
    QByteArray bytes(static_cast<qsizetype>(random() % 200), '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    QByteArray encoded = Html().EncodeMime64String(bytes);
    ASSERT_EQ(encoded, bytes.toBase64());
    ASSERT_EQ(Html().EncodeMime64Array(bytes), encoded);
    ASSERT_EQ(Html().DecodeMime64(encoded), bytes);
    while (round % 2 == 0 && encoded.endsWith('=')) {
      encoded.chop(1);
    }
    for (qsizetype at = encoded.size(); at > 0; at -= 1 + static_cast<qsizetype>(random() % 80)) {
      encoded.insert(at, random() % 2 == 0 ? "\r\n" : " ");
    }
    ASSERT_EQ(Html().decodedMime64(encoded), bytes) << encoded.constData();
  }
  for (const char* const bad : {"QQ=x", "A", "AAAAA", "QUI*", "Q\xFFII", "QQ==QQ=="}) {
    EXPECT_THROW((void)Html().decodedMime64(bad), RuntimeError) << bad;
    EXPECT_EQ(Html().DecodeMime64(bad), bad);
  }
}

TEST(cSharedHTML, AnyHtmlIsTaken) {
  std::mt19937 random(20260101);
  const QByteArray sample =
      "<html><head><title>x</title></head><body><!-- c --><h1 align=center>T</h1><p align='center'>a &eacute; &#8217;"
      "<b>b</b><div style='text-align:center'>d</div><br>[pb]<hr></p>\r\n\r\n&bull; &nbsp;&#x1F600;</body></html>";
  const QList<QByteArray> snippets =
      QByteArray(
          "< > & &# &#x ; <!-- --> </p> <p> </div> </h1> <center> <p~align=center> &amp; [pb] \r\r \n\n </head> << </")
          .replace('~', ' ')
          .split(' ') +
      QList<QByteArray>{QByteArray("\0", 1)};
  const QRegularExpression comment(u"<!--.*?-->"_s, QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpression tag(u"<(?!!--)[^<>]*>"_s);
  const Text operations[] = {&cSharedHTML::StripHtml,       &cSharedHTML::HtmlToChar,
                             &cSharedHTML::CharToHtml,      &cSharedHTML::HTMLConstToChar,
                             &cSharedHTML::HtmlToPlainText, &cSharedHTML::HtmlToPagelingText,
                             &cSharedHTML::CleanWord,       &cSharedHTML::ConvertToPagelingFormatting};
  for (int round = 0; round < 4000; ++round) {
    QByteArray bytes = sample;
    for (auto times = random() % 6; times > 0; --times) {
      bytes = mutated(bytes, random, snippets);
    }
    const QString text = round % 2 == 0 ? QString::fromLatin1(bytes) : randomText(random, 200);
    for (const Text operation : operations) {
      (void)(Html().*operation)(text);
    }
    QString stripped = QString::fromLatin1(bytes);
    const QString given = stripped;
    stripped.remove(comment).remove(tag);
    ASSERT_EQ(Html().StripHtml(given), stripped) << bytes.constData();
  }
}

TEST(cSharedHTML, TimeIsLinear) {
  const QString repeated =
      u"<|>|<b|<!--|-->|<!-- a -->|&|&#|&#1|&amp;|<p align=center>|align |<p align=\"|\r|\n\n|  |</head|[pb]|<br>|a|<div>"_s;
  for (const QString& piece : repeated.split(u'|')) {
    const QString text = piece.repeated(2'000'000 / piece.size());
    QElapsedTimer timer;
    timer.start();
    Html().HtmlToPagelingText(text);
    Html().HtmlToPlainText(text);
    Html().CharToHtml(text);
    Html().RemoveExtraSpaces(text);
    Html().CalcWordCount(text);
    Html().ReplaceWith(text, u"b"_s, u"bb"_s);
    Html().MyReplaceNoCaps(text, u"A"_s, u"bb"_s);
    Html().ReplaceBetweenTags(text, u"<b"_s, u">"_s, u"x"_s);
    EXPECT_LT(timer.elapsed(), 10'000) << piece;
  }
}

TEST(cSharedHTML, WithoutItsLibrariesEveryRoutineGivesItsInputBack) {
  const EmptyProgramFolder nothingThere;
  ScriptedToolkit toolkit;
  toolkit.expectErrorReport(u"reinstall"_s);
  const cSharedHTML html;
  const QString text = u" <b>a&amp;a</b>  [pb] "_s;
  const std::vector<std::pair<const char*, std::function<QString()>>> calls{
      {"StripHtml", [&] { return html.StripHtml(text); }},
      {"StripHtml", [&] { return html.HtmlToPlainText(text); }},
      {"ConvertToPagelingFormatting", [&] { return html.HtmlToPagelingText(text); }},
      {"ReplaceWith", [&] { return html.ReplaceWith(text, u"a"_s, u"b"_s); }},
      {"ReplaceUsingC", [&] { return html.ReplaceUsingC(text, u"a"_s, u"b"_s); }},
      {"RemoveChar", [&] { return html.RemoveChar(text, u"a"_s); }},
      {"ByteArrayToString", [&] { return html.ByteArrayToString(text.toLatin1()); }},
      {"EncodeMime64String", [&] { return QString::fromLatin1(html.EncodeMime64String(text.toLatin1())); }},
      {"DecodeMime64", [&] { return QString::fromLatin1(html.DecodeMime64(text.toLatin1())); }}};
  for (const auto& [name, call] : calls) {
    Logging().WriteActionsToLog();
    EXPECT_EQ(call(), text) << name;
    EXPECT_TRUE(Logging().CurrentAction().contains(u" in "_s + QString::fromLatin1(name) + u" of module cSharedHTML"_s))
        << name << ": " << Logging().CurrentAction();
  }
  EXPECT_EQ(html.CalcWordCount(text), 0);
  EXPECT_THROW((void)html.encodedMime64("a"), RuntimeError) << "a file must not get bytes for Base64";
  EXPECT_EQ(toolkit.errorReports.size(), 1) << "the user is told once";
  EXPECT_EQ(html.MyReplace(text, u"a"_s, u"b"_s).count(u'b'), 6) << "what needs no library works";
}
