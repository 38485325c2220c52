#include "core/infra/Paths.h"

#include "core/infra/cSharedFileSubs.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Paths, BothSlashesBecomeThePlatformsOwn) {
  EXPECT_EQ(Paths::native(u"C:\\a/b"_s), u"C:1a1b"_s.replace(u'1', Paths::separator()));
  EXPECT_TRUE(Paths::isSeparator(u'/') && Paths::isSeparator(u'\\'));
  EXPECT_FALSE(Paths::isSeparator(u':'));
}

TEST(Paths, ABackslashIsALetterInAFullPathWhereSlashesPart) {
  if (Paths::separator() != u'/') {
    GTEST_SKIP();
  }
  const QString own = u"/home/me/Yes\\No/a\\b.qn4"_s;
  EXPECT_EQ(Paths::native(own), own);
  EXPECT_EQ(Files().FileOnly(own), u"a\\b.qn4"_s);
  EXPECT_EQ(Files().PathOnly(own), u"/home/me/Yes\\No/"_s);
  EXPECT_EQ(Files().AddSlashIfMissing(u"/home/Yes\\"_s), u"/home/Yes\\/"_s);
  for (const QString& old : {u"C:\\a\\b.qn4"_s, u"RTF\\b.qn4"_s, u"//server\\share\\b.qn4"_s}) {
    EXPECT_EQ(Files().FileOnly(old), u"b.qn4"_s) << old;
    EXPECT_FALSE(Paths::native(old).contains(u'\\')) << old;
  }
}

TEST(Paths, AnInstalledProgramFindsItsFilesFromWhereItStandsAndThoseBesideItFirst) {
  const ScratchFolder folder;
  const QString former = Paths::programFolder();
  const QString program = QDir::toNativeSeparators(folder.path(u"bin"_s)) + Paths::separator();
  QDir(folder.path()).mkpath(u"bin"_s);
  QDir(folder.path()).mkpath(u"share/quillane4/Dict"_s);
  Paths::overrideFolders(program);
  EXPECT_EQ(Paths::installed(u"Dict"_s), folder.path(u"share/quillane4/Dict"_s));
  QDir(folder.path()).mkpath(u"bin/Dict"_s);
  EXPECT_EQ(Paths::installed(u"Dict"_s), program + u"Dict"_s);
  EXPECT_EQ(Paths::installed(u"missing"_s), program + u"missing"_s);

  QDir(folder.path()).mkpath(u"lib/quillane4/helpers/Hash.dll"_s);
  EXPECT_EQ(Paths::helperLibrary(u"Hash.dll"_s), folder.path(u"lib/quillane4/helpers/Hash.dll"_s));
  QDir(folder.path()).mkpath(u"bin/Hash.dll"_s);
  EXPECT_EQ(Paths::helperLibrary(u"Hash.dll"_s), program + u"Hash.dll"_s);
  EXPECT_EQ(Paths::helperLibrary(u"missing"_s), program + u"missing"_s);
  Paths::overrideFolders(former);
}

TEST(Paths, DocumentsAreAtHomeWhereTheyHaveNoFolder) {
  const QString home = QDir::homePath() + Paths::separator();
  EXPECT_EQ(Paths::documentsFolder(), home);
  ASSERT_TRUE(QDir(home).mkdir(u"Documents"_s));
  EXPECT_EQ(Paths::documentsFolder(), home + u"Documents"_s + Paths::separator());
  QDir(home).rmdir(u"Documents"_s);
}
