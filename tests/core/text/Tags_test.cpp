#include "core/text/Tags.h"

#include "core/infra/CodePage.h"
#include "core/persist/modConstXML.h"
#include "core/text/LiteralTags.h"
#include "core/text/TagView.h"
#include "support/Mutations.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

QString wide(QByteArrayView bytes) {
  return QString::fromLatin1(bytes);
}

const QByteArray kFile =
    "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n<QUILLANE4>\r\n\t<PROJECT>\r\n\t\t<Title>A%20b</Title>\r\n"
    "\t\t<FieldTitle1>Tension</FieldTitle1>\r\n\t</PROJECT>\r\n\t<LOCATIONS>\r\n\t</LOCATIONS>\r\n\t<SCENES>\r\n"
    "\t<SCENE>\r\n\t\t<ID>1</ID>\r\n\t\t<Title>One</Title>\r\n\t\t<Unused>-1</Unused>\r\n\t\t<RTFFile>RTF_1.rtf"
    "</RTFFile>\r\n\t\t<Characters>\r\n\t\t\t<CharID>3</CharID>\r\n\t\t\t<CharID>5</CharID>\r\n\t\t</Characters>\r\n"
    "\t</SCENE>\r\n\t<SCENE>\r\n\t\t<ID>2</ID>\r\n\t\t<Title>Two%0D%0A%u0416</Title>\r\n\t</SCENE>\r\n\t</SCENES>\r\n"
    "\t<CHAPTERS>\r\n\t<CHAPTER>\r\n\t\t<ID>1</ID>\r\n\t\t<Scenes>\r\n\t\t\t<ScID>1</ScID>\r\n\t\t</Scenes>\r\n"
    "\t</CHAPTER>\r\n\t</CHAPTERS>\r\n</QUILLANE4>\r\n";

const QList<QByteArray> kSnippets =
    QByteArray(
        "< </ <ID> </id> <Title> </TITLE> <ti<Title>tle> <SCENE> </Scene> <scenes> </SCENES> <CharID> % %zz %2 "
        "&H1 \xFF <<Title> </</ID>ID>")
        .split(' ') +
    QList<QByteArray>{QByteArray("\0", 1)};

const Tag kFieldTags[] = {kID,     kTitle, kUnused,   kRTFFile, kSceneCharacters, kCharID,   kSceneRTF, kScID,
                          kScenes, kScene, kField[1], kChapter, kProject,         kChapters, kDesc,     kLocations};

}  // namespace

// The fast extraction gives what the word-for-word one gives, for whole and for damaged files alike.
TEST(Tags, FastAndLiteralExtractionAgreeOnDamagedFiles) {
  std::mt19937 random(20260101);
  for (int round = 0; round < 4000; ++round) {
    const QByteArray text = round == 0 ? kFile : mutated(kFile, random, kSnippets);
    const TagIndex index(text);
    const TagView view(index);
    for (const Tag& tag : kFieldTags) {
      const QString literal = LiteralTags::ExtractTagged(wide(text), wide(tag.open), wide(tag.close), false);
      ASSERT_EQ(wide(Tags::ExtractBetweenTags(text, tag)), literal) << text.constData();
      ASSERT_EQ(wide(view.bytes(tag)), literal) << text.constData();
      const QString span = LiteralTags::ExtractTagged(wide(text), wide(tag.open), wide(tag.close), true);
      ASSERT_EQ(wide(Tags::ExtractWithTags(text, tag)), span);
      ASSERT_EQ(wide(view.block(tag).text()), span);
    }
    const auto scenes = view.block(kScenes).split(Tag(kScene).close);
    const auto pieces = Tags::ExtractXMLArray(text, kScenes, Tag(kScene).close);
    const QStringList literalPieces =
        LiteralTags::ExtractXMLArray(wide(text), u"<SCENES>"_s, u"</SCENES>"_s, u"</SCENE>"_s);
    ASSERT_EQ(static_cast<qsizetype>(pieces.size()), literalPieces.size());
    ASSERT_EQ(scenes.size(), pieces.size());
    for (size_t i = 0; i < pieces.size(); ++i) {
      const QString& literal = literalPieces[static_cast<qsizetype>(i)];
      ASSERT_EQ(wide(pieces[i]), literal);
      ASSERT_EQ(wide(scenes[i].text()), literal);
      ASSERT_EQ(wide(scenes[i].bytes(kTitle)), LiteralTags::ExtractTagged(literal, u"<Title>"_s, u"</Title>"_s, false));
    }
  }
}

TEST(Tags, AnIndexStaysInProportionToItsText) {
  for (const char* const part : {"<", "<a", "<a>", "<<a", "a", "<SCENE>\r\n", "</"}) {
    const QByteArray text = QByteArray(part).repeated(100000);
    EXPECT_LE(TagIndex(text).memory(), 4 * text.size() + 1024) << part;
    const QByteArray late = QByteArray(text.size(), 'x') + text;
    EXPECT_LE(TagIndex(late).memory(), 4 * late.size() + 1024) << part;
  }
}

TEST(Tags, EscapedTextReadsAsTheDialectOfOldReadsIt) {
  std::mt19937 random(7);
  const QByteArray alphabet = "%%%%%0123456789abcdefABCDEFGg zZ+-&.\r\n\xE9\x80";
  for (int round = 0; round < 20000; ++round) {
    QByteArray text;
    for (auto length = random() % 12; length > 0; --length) {
      text += alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))];
    }
    ASSERT_EQ(Tags::HtmlDecode(text), LiteralTags::HtmlDecode(CodePage::fromBytes(text)))
        << text.toPercentEncoding().constData();
  }
}

TEST(Tags, EscapingIsLosslessForAnyText) {
  std::mt19937 random(11);
  for (int round = 0; round < 5000; ++round) {
    QString text;
    for (auto length = random() % 20; length > 0; --length) {
      const auto kind = random() % 4;
      text += QChar(static_cast<char16_t>(kind == 0   ? random() % 0x80
                                          : kind == 1 ? random() % 0x180
                                                      : random() % 0x10000));
    }
    const QByteArray stored = Tags::HtmlEncode(text);
    for (const char c : stored) {
      ASSERT_TRUE((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                  strchr(":.,?%", c) != nullptr);
    }
    ASSERT_EQ(Tags::HtmlDecode(stored), text);
  }
  EXPECT_EQ(Tags::HtmlEncode(u"My Novel\r\n<é€%>"_s), "My%20Novel%0D%0A%3C%E9%80%25%3E");
  EXPECT_EQ(Tags::HtmlEncode(u"Ж"_s), "%u0416");
  EXPECT_EQ(Tags::HtmlDecode("100%"), u"100%"_s);
}
