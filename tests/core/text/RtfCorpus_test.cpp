#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList wordsOf(const QString& text) {
  static const QRegularExpression blank(u"\\s+"_s);
  return text.split(blank, Qt::SkipEmptyParts);
}

/// Where line ends are a matter of taste: page and section breaks, rows of tables in tables.
bool comparesWordsOnly(const CorpusFile& file) {
  return file.flags.contains(u"page") || file.flags.contains(u"sect") || file.rtf.contains("\\nesttableprops");
}

}  // namespace

TEST(RtfCorpus, FilesOfOtherProgramsGiveTheirExpectedPlainText) {
  const QList<CorpusFile> files = rtfCorpus();
  if (files.isEmpty()) {
    GTEST_SKIP() << "the shared RTF files are absent";
  }
  for (const CorpusFile& file : files) {
    SCOPED_TRACE(file.name);
    const QString plain = withoutTrailingLineEnds(rtfToPlainText(file.rtf));
    if (comparesWordsOnly(file)) {
      EXPECT_EQ(wordsOf(plain).join(u' '), wordsOf(file.plain).join(u' '));
    } else {
      EXPECT_EQ(plain, file.plain);
    }
  }
}
