// What a book that is to be begun is called on disk, and which folders can hold it.

#include "core/persist/NewBook.h"

#include "core/infra/Paths.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NewBook, TheFileIsCalledAsTheTitleAsFarAsThatCanBe) {
  const QString longest = u'a' + QString(u"\u0416"_s).repeated(99);
  for (const auto& [title, expected] : {std::pair{u"Love, Death & 100% Vol. 2"_s, u"Love, Death & 100% Vol. 2"_s},
                                        {u"\u0416 \u2014 \U0001F600"_s, u"\u0416 \u2014 \U0001F600"_s},
                                        {u"War/Peace\\Rest: a \"<b>|*?\tend"_s, u"War Peace Rest a b end"_s},
                                        {u"../up. "_s, u"up"_s},
                                        {u".hidden"_s, u"hidden"_s},
                                        {u"..."_s, u"MyProject"_s},
                                        {u"???"_s, u"MyProject"_s},
                                        {longest + u"\u0416\u0416"_s, longest},
                                        {longest.chopped(1) + u"\U0001F600"_s, longest.chopped(1)}}) {
    const NewBook book{title, {}, u"/f/"_s};
    EXPECT_EQ(book.fileName(), expected);
    EXPECT_EQ(book.file(), u"/f/"_s + expected + u".qn4"_s);
  }
}

TEST(NewBook, TheFileBesideIsNoneThatIsThere) {
  const ScratchFolder folder;
  const NewBook book{u"Ti:tle"_s, {}, folder.path() + Paths::separator()};
  EXPECT_EQ(book.fileBeside(QTime(1, 0, 7, 900)), folder.path(u"Ti tle-3607.qn4"_s));
  writeFile(folder.path(u"Ti tle-3607.qn4"_s), {});
  EXPECT_EQ(book.fileBeside(QTime(1, 0, 7, 900)), folder.path(u"Ti tle-3608.qn4"_s));
}

TEST(NewBookFolder, APathIsNamedInFull) {
  const QString documents = Paths::documentsFolder();
  const QString home = QDir::toNativeSeparators(QDir::homePath());
  const QChar slash = Paths::separator();
  for (const auto& [typed, expected] : {std::pair{u"  "_s, QString()},
                                        {u" Novels "_s, documents + u"Novels"_s + slash},
                                        {u"a\\b/../c"_s, documents + u'a' + slash + u'c' + slash},
                                        {documents, documents},
                                        {u"~"_s, home + slash},
                                        {u"~/x"_s, home + slash + u'x' + slash},
                                        {u"~x"_s, documents + u"~x"_s + slash},
                                        {QDir::rootPath(), QDir::toNativeSeparators(QDir::rootPath())}}) {
    EXPECT_EQ(NewBookFolder::named(typed), expected) << typed;
  }
}

TEST(NewBookFolder, OneThatHoldsAProjectOrCanHoldNothingIsRefused) {
  const ScratchFolder folder;
  const auto named = [&](const QString& name) { return NewBookFolder::named(folder.path(name)); };
  writeFile(folder.path(u"file"_s), {});
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"taken/rTF"_s) && QDir(folder.path()).mkpath(u"free/Data"_s) &&
              QDir(folder.path()).mkpath(u"locked"_s));
  writeFile(folder.path(u"free/Rtf"_s), {});
  const QString taken = u"There's already a project in that folder. Please choose another location."_s;
  const QString cannot = u"Unable to create project folder. Please choose another location."_s;
  for (const auto& [name, expected] :
       {std::pair{u"free"_s, QString()}, {u"new/deep"_s, QString()}, {u"taken"_s, taken}, {u"file/new"_s, cannot}}) {
    EXPECT_EQ(NewBookFolder::whyNot(named(name)), expected) << name;
  }
  EXPECT_EQ(NewBookFolder::nearestThere(named(u"new/deep"_s)), folder.path());
  EXPECT_FALSE(QDir(folder.path(u"new"_s)).exists()) << "looking makes nothing";
  EXPECT_EQ(NewBookFolder::make(named(u"new/deep"_s)), QString());
  EXPECT_TRUE(QDir(folder.path(u"new/deep"_s)).exists());
  EXPECT_EQ(NewBookFolder::make(named(u"free/"_s + QString(300, u'x'))), cannot) << "no name is that long";
  ASSERT_TRUE(QFile::setPermissions(folder.path(u"locked"_s), QFile::ReadOwner | QFile::ExeOwner));
  if (!QFileInfo(folder.path(u"locked"_s)).isWritable()) {
    EXPECT_EQ(NewBookFolder::whyNot(named(u"locked"_s)),
              u"Nothing can be written to that folder. Please choose another location."_s);
    EXPECT_EQ(NewBookFolder::whyNot(named(u"locked/new"_s)), cannot);
  }
}
