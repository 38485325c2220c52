#include "core/text/cSharedHTML.h"

#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "support/Mutations.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QRegularExpression>
#include <QStringList>

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
  const std::pair<qint32, QStringList> cases[] = {
      {0, {QString(), u" - "_s, u"*** … —"_s, u"😀 😀"_s}},
      {1, {u"well-known"_s, u"don't"_s, u"don’t"_s, u"e.g."_s, u"3.14"_s, u"foo_bar"_s, u"Ω'a"_s, u"-a"_s, u"x²"_s}},
      {2, {u"wait--what"_s, u"wait—what"_s, u"7–10"_s, u"“Yes,”\r\nhe"_s, u"a- -b"_s, u"𐐀𐐁 x"_s, u"a--.-b"_s}},
      {3, {u"Война и мир"_s, u"a\u2003b\u00A0c"_s}}};
  for (const auto& [words, texts] : cases) {
    for (const QString& text : texts) {
      EXPECT_EQ(Html().CalcWordCount(text), words) << text;
    }
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

TEST(cSharedHTML, EntitiesBecomeTheirCharacters) {
  expectTexts(&cSharedHTML::HtmlToChar,
              {{u"&Eacute;&eacute;&EACUTE;"_s, u"Éé&EACUTE;"_s},
               {u"&thetasym;&thetasymb;&alpha"_s, u"ϑ&thetasymb;&alpha"_s},
               {u"&#1046;&#x416;&#X0416;&#128512;&#x1F600;"_s, u"ЖЖЖ😀😀"_s},
               {u"&#146;&#x97;"_s, u"’—"_s},
               {u"&#0;&#xD800;&#x110000;&#;&#x;&#12"_s, u"&#0;&#xD800;&#x110000;&#;&#x;&#12"_s},
               {u"&&amp;& ;&bogus;&apos;"_s, u"&&& ;&bogus;&apos;"_s}});
}

TEST(cSharedHTML, Base64RoundTripsForAnyBytesHoweverBroken) {
  std::mt19937 random(19);
  for (int round = 0; round < 3000; ++round) {
    QByteArray bytes(static_cast<qsizetype>(random() % 200), '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    QByteArray encoded = Html().EncodeMime64String(bytes);
    ASSERT_EQ(encoded, bytes.toBase64());
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

TEST(cSharedHTML, WithoutItsLibrariesEveryRoutineGivesItsInputBack) {
  const EmptyProgramFolder nothingThere;
  ScriptedToolkit toolkit;
  toolkit.expectErrorReport(u"reinstall"_s);
  const cSharedHTML html;
  const QString text = u" <b>a&amp;a</b>  [pb] "_s;
  for (const Text operation : {&cSharedHTML::StripHtml, &cSharedHTML::HtmlToPlainText}) {
    EXPECT_EQ((html.*operation)(text), text);
  }
  EXPECT_EQ(html.CalcWordCount(text), 0);
  EXPECT_THROW((void)html.encodedMime64("a"), RuntimeError) << "a file must not get bytes for Base64";
  EXPECT_EQ(toolkit.errorReports.size(), 1) << "the user is told once";
}
