#include "core/infra/WholeText.h"

#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(WholeText, IsReadByItsMarkItsFormOrAsSingleBytes) {
  const QString text = u"Zoë – d’accord"_s;
  const QByteArray utf8 = text.toUtf8();
  QByteArray wide = "\xFE\xFF";
  QByteArray wideLittle = "\xFF\xFE";
  for (const QChar unit : text) {
    wide.append(char(unit.unicode() >> 8U)).append(char(unit.unicode() & 0xFFU));
    wideLittle.append(char(unit.unicode() & 0xFFU)).append(char(unit.unicode() >> 8U));
  }
  for (const QByteArray& bytes : {utf8, "\xEF\xBB\xBF" + utf8, wide, wideLittle,
                                  QByteArray("Zo\xEB \x96 d\x92"
                                             "accord")}) {
    EXPECT_EQ(WholeText::fromBytes(bytes), text) << bytes.toHex().toStdString();
  }
  EXPECT_EQ(WholeText::fromBytes(QByteArrayView()), QString());
  EXPECT_EQ(WholeText::fromBytes("\xEF"), u"ï");
  EXPECT_EQ(WholeText::fromBytes(QByteArray("\0\0a\0", 4)).size(), 4) << "zeros are no mark";
}

TEST(WholeText, IsSingleBytesUntilALetterIsMissing) {
  EXPECT_EQ(WholeText::toBytes(u"Zoë – d’accord"), QByteArray("Zo\xEB \x96 d\x92"
                                                              "accord"));
  EXPECT_EQ(WholeText::fromBytes(WholeText::toBytes(u"Žofie a Łukasz 🙂")), u"Žofie a Łukasz 🙂");
}

TEST(WholeText, TakesThePlaceOfAReadOnlyFileToo) {
  const ScratchFolder folder;
  const QString path = folder.path(u"Out.txt"_s);
  writeFile(path, "old");
  QFile::setPermissions(path, QFile::ReadOwner);
  WholeText::replaceFile(path, u"new");
  EXPECT_EQ(fileBytes(path), "new");
  EXPECT_TRUE(QFile::permissions(path).testFlag(QFile::WriteOwner));
}

}  // namespace
