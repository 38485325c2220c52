#include "core/text/cSharedText.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Change = void (cSharedText::*)(QString&) const;

void expectChanges(Change operation, const std::vector<std::pair<QString, QString>>& cases) {
  for (const auto& [text, wanted] : cases) {
    QString changed = text;
    (TextTools().*operation)(changed);
    EXPECT_EQ(changed, wanted) << text << " gave " << changed;
  }
}

}  // namespace

TEST(cSharedText, CaseChanges) {
  expectChanges(&cSharedText::SentenceCase, {{u"mary-jane o'neil"_s, u"Mary-Jane O'neil"_s},
                                             {u"THE  END- of -it "_s, u"The  End- Of -It "_s},
                                             {u"é"_s, u"É"_s},
                                             {u"ωΜΕΓΑ straße"_s, u"Ωμεγα Straße"_s}});
  expectChanges(&cSharedText::FirstLetterUpperCase,
                {{u"tHE end"_s, u"The end"_s}, {u"x"_s, u"X"_s}, {QString(), QString()}});
  QString text = u"ÿµƒßжABC"_s;
  TextTools().ToUpper(text);
  EXPECT_EQ(text, u"ŸµƒßЖABC"_s) << "what has no capital in the code page stays, and nothing gets longer";
  TextTools().ToLower(text, 1);
  EXPECT_EQ(text, u"ÿµƒßЖABC"_s);
  TextTools().ToLower(text, 100);
  EXPECT_EQ(text, u"ÿµƒßжabc"_s);
}

TEST(cSharedText, EndsAreCut) {
  expectChanges(&cSharedText::EatCrapFromEnd,
                {{u"end - \r\n"_s, u"end"_s}, {u"- \r\n"_s, QString()}, {u"a\t- "_s, u"a\t"_s}});
  expectChanges(&cSharedText::EatCrapFromStart, {{u" -\r\nwell-known "_s, u"well-known "_s}, {u"--"_s, QString()}});
  expectChanges(&cSharedText::RemoveCRLFFromEnd,
                {{u"a\r\n\r\n"_s, u"a"_s}, {u"a\n\r\n"_s, u"a\n"_s}, {u"a\r\n "_s, u"a\r\n "_s}, {u"\n"_s, u"\n"_s}});
  expectChanges(&cSharedText::TrimNull, {{u" a  \0b"_s, u" a"_s}, {u" a\t"_s, u" a\t"_s}});
  expectChanges(&cSharedText::TrimcTrim, {{QString(), QString()}, {u"  a b \0c"_s, u"a b"_s}});
  EXPECT_EQ(TextTools().cTrim(u" a \0 "), u" a"_s);
}

TEST(cSharedText, Quotes) {
  expectChanges(&cSharedText::RemoveQuotes, {{u"\"a\""_s, u"a"_s},
                                             {u"''a''"_s, u"'a'"_s},
                                             {u"\"a'"_s, u"\"a'"_s},
                                             {u"\""_s, u"\""_s},
                                             {u"''"_s, QString()},
                                             {QString(), QString()}});
  expectChanges(&cSharedText::StripDblQuotes, {{u"\"\"a"_s, u"\"a"_s}, {u"a\""_s, u"a"_s}, {u"\""_s, QString()}});
  expectChanges(&cSharedText::AddQuotes, {{u"a"_s, u"\"a\""_s}});
  expectChanges(&cSharedText::AddDblQuotes, {{u"a"_s, u"\"a\""_s}});
  expectChanges(&cSharedText::AddDoubleQuotes, {{u"a"_s, u"\"a\""_s}});
  expectChanges(&cSharedText::AddSingleQuotes, {{u"a"_s, u"'a'"_s}});
}

TEST(cSharedText, SpacesAndPunctuation) {
  expectChanges(&cSharedText::RemoveDoubleSpaces, {{u"  a    b "_s, u" a b "_s}});
  expectChanges(&cSharedText::CRLFToSpaces, {{u"a\r\nb\nc"_s, u"a  b c"_s}});
  expectChanges(&cSharedText::CleanCRLF, {{u"a\r\nb\n\rc\r\r\n"_s, u"a b  c  "_s}});
  expectChanges(&cSharedText::RemovePunctuation, {{u"--"_s, QString()}, {u" \" it's -- 3.14!\" "_s, u"its  314"_s}});
  expectChanges(&cSharedText::RemoveNonAlphaNumeric, {{u"\tZoë, 7 \0!"_s, u"Zo 7"_s}, {u"…Ж1²"_s, u"1"_s}});
}

TEST(cSharedText, ExactlyOneOfEqualLowerHigherHolds) {
  const QStringList texts{u" Anne"_s, u"anne "_s, u"ANNEX"_s, u"\tanne"_s, QString(), u"  "_s, u"Ölga"_s, u"ölga"_s};
  for (const QString& a : texts) {
    for (const QString& b : texts) {
      const int holding =
          TextTools().StringsEqual(a, b) + TextTools().StringLower(a, b) + TextTools().StringHigher(a, b);
      EXPECT_EQ(holding, 1) << a << '|' << b;
      EXPECT_EQ(TextTools().StringLower(a, b), TextTools().StringHigher(b, a));
    }
  }
  EXPECT_TRUE(TextTools().StringsEqual(u" Anne", u"anne "));
  EXPECT_TRUE(TextTools().StringsEqual(u"ÖLGA", u"ölga"));
  EXPECT_FALSE(TextTools().StringsEqual(u"\tanne", u"anne")) << "only blanks are trimmed";
  EXPECT_TRUE(TextTools().StringLower(u" Anne", u"BERT"));
}

TEST(cSharedText, Positions) {
  struct Sought {
    QString text;
    QString find;
    qsizetype start;
    qsizetype forward;
    qsizetype backward;
  };
  const std::vector<Sought> cases{
      {u"aBcabC"_s, u"BC"_s, 0, 2, 5},    {u"aBcabC"_s, u"bc"_s, 3, 5, 2},   {u"aBcabC"_s, u"bc"_s, 5, 5, 2},
      {u"aBcabC"_s, u"bc"_s, 6, 0, 5},    {u"aBcabC"_s, u"bc"_s, 99, 0, 5},  {u"aBcabC"_s, u"bc"_s, -3, 2, 5},
      {u"aBcabC"_s, u"x"_s, 1, 0, 0},     {u"ab"_s, QString(), 2, 2, 2},     {QString(), u"a"_s, 1, 0, 0},
      {QString(), QString(), 0, 0, 0},    {u"a<B><b>"_s, u"<b>"_s, 0, 2, 5}, {u"ЖЖ"_s, u"ж"_s, 2, 2, 2},
      {u"short"_s, u"shorter"_s, 1, 0, 0}};
  for (const auto& [text, find, start, forward, backward] : cases) {
    EXPECT_EQ(TextTools().SubstringLocation(text, find, start), forward) << text << ' ' << start;
    EXPECT_EQ(TextTools().SubstringLocationRev(text, find, start), backward) << text << ' ' << start;
  }
  EXPECT_EQ(TextTools().MyInstr(u"xAbc", u"aB"), 2);
  EXPECT_TRUE(TextTools().Contains(u"xAbc", u"XA"));
  EXPECT_EQ(TextTools().CountStringInString(u"AaaaA", u"aa"), 4);
  EXPECT_EQ(TextTools().CountStringInString(u"abc", u""), 0);
}

TEST(cSharedText, JoiningAndCopyingLoseNoCharacter) {
  EXPECT_EQ(TextTools().JoinStrings(u"Ж", u"😀é"), u"Ж😀é"_s);
  QString to = u"before"_s;
  TextTools().CopyString(u"abc", to, 2);
  EXPECT_EQ(to, u"ab"_s);
  TextTools().CopyString(to, to);
  EXPECT_EQ(to, u"ab"_s);
  TextTools().CopyString(u"abc", to, 9);
  EXPECT_EQ(to, u"abc"_s);
}
