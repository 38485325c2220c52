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
                                             {u"ωΜΕΓΑ straße"_s, u"Ωμεγα Straße"_s}});
  QString text = u"ÿµƒßжABC"_s;
  TextTools().ToUpper(text);
  EXPECT_EQ(text, u"ŸµƒßЖABC"_s) << "what has no capital in the code page stays, and nothing gets longer";
  TextTools().ToLower(text, 100);
  EXPECT_EQ(text, u"ÿµƒßжabc"_s);
}

TEST(cSharedText, LineEndsAreCutFromTheEnd) {
  expectChanges(&cSharedText::RemoveCRLFFromEnd,
                {{u"a\r\n\r\n"_s, u"a"_s}, {u"a\n\r\n"_s, u"a\n"_s}, {u"a\r\n "_s, u"a\r\n "_s}, {u"\n"_s, u"\n"_s}});
}

TEST(cSharedText, TextsAreEqualWithoutCaseAndOuterBlanks) {
  EXPECT_TRUE(TextTools().StringsEqual(u" Anne", u"anne "));
  EXPECT_TRUE(TextTools().StringsEqual(u"ÖLGA", u"ölga"));
  EXPECT_FALSE(TextTools().StringsEqual(u"\tanne", u"anne")) << "only blanks are trimmed";
  EXPECT_FALSE(TextTools().StringsEqual(u"anne", u"ANNEX"));
}
