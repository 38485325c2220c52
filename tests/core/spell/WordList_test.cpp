// The script that makes the checker's lists out of the system's.
#include "SpellFiles.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

int makeList(const QString& source, const QString& output) {
  return QProcess::execute(QStringLiteral(QUILLANE_SOURCE_DIR) + u"/scripts/make-word-list"_s, {source, output});
}

}  // namespace

TEST(WordList, PossessivesGoAndContractionsStayWhole) {
  const ScratchFolder folder;
  put(folder.path(u"from"_s), "dog\ndog's\nLone's\ndidn't\nwe've\nwe\no'clock\nna\xC3\xAFve\r\n\nT\n");
  ASSERT_EQ(makeList(folder.path(u"from"_s), folder.path(u"list"_s)), 0);
  EXPECT_EQ(contentOf(folder.path(u"list"_s)), "dog\nLone's\ndidn't\nwe've\nwe\no'clock\nna\xC3\xAFve\nT\n");
}

TEST(WordList, AFormerListStaysWhenNoneCanBeMade) {
  const ScratchFolder folder;
  put(folder.path(u"from"_s), "\n");
  put(folder.path(u"list"_s), "dog\n");
  EXPECT_NE(makeList(folder.path(u"from"_s), folder.path(u"list"_s)), 0);
  EXPECT_NE(makeList(folder.path(u"none"_s), folder.path(u"list"_s)), 0);
  EXPECT_EQ(contentOf(folder.path(u"list"_s)), "dog\n");
}
