#include "core/infra/cSharedFileSubs.h"

#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path) {
  QByteArray bytes;
  EXPECT_TRUE(Files().LoadTextFile(path, bytes)) << path;
  return bytes;
}

int errorOfReplacing(const QString& path, const QByteArray& bytes) {
  return errorOf([&] { Files().ReplaceFile(path, bytes); });
}

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

class cSharedFileSubsTest : public ::testing::Test {
 protected:
  const ScratchFolder folder;
  const QString path = folder.path(u"scene.rtf"_s);
};

}  // namespace

TEST(cSharedFileSubs, PathStringsArePartedAtBothSlashes) {
  using Operation = QString (cSharedFileSubs::*)(const QString&) const;
  const std::tuple<Operation, QString, QString> cases[] = {
      {&cSharedFileSubs::PathOnly, u"x.qn4"_s, u"./"_s},
      {&cSharedFileSubs::PathOnly, u"C:\\a/b\\c.txt"_s, u"C:/a/b/"_s},
      {&cSharedFileSubs::ExtractPath, u"x.qn4"_s, u""_s},
      {&cSharedFileSubs::ExtOnly, u"a.b.c"_s, u"c"_s},
      {&cSharedFileSubs::ExtOnlyWithDot, u"a.b.c"_s, u".c"_s},
      {&cSharedFileSubs::FileOnly, u"C:\\a/b.c"_s, u"b.c"_s},
      {&cSharedFileSubs::FileWithoutExt, u"C:\\a.b\\c"_s, u"C:\\a"_s},
      {&cSharedFileSubs::FileWithoutExt, u"/a.b/My.Novel.qn4"_s, u"/a.b/My.Novel"_s},
      {&cSharedFileSubs::AddSlashIfMissing, u""_s, u""_s},
      {&cSharedFileSubs::AddSlashIfMissing, u"a"_s, u"a/"_s},
      {&cSharedFileSubs::RemoveSlashFromEnd, u"/"_s, u"/"_s},
      {&cSharedFileSubs::LastFolder, u"C:\\a\\b\\"_s, u"b"_s},
  };
  for (const auto& [operation, path, expected] : cases) {
    EXPECT_EQ(Paths::native((Files().*operation)(path)), Paths::native(expected)) << path;
  }
  for (const QString& folder : {u"a"_s, u"a/"_s}) {
    EXPECT_EQ(Paths::native(Files().Combine(folder, u"\\b"_s)), Paths::native(u"a/b"_s));
  }
}

TEST(cSharedFileSubs, NamesAreFittedForTheFileSystem) {
  for (const auto& [given, expected] : {std::pair{u"a\\b/c:d*e?f<g>h|i&j,k%l\"m"_s, u"a b c d e f g h i j k l m"_s},
                                        {u"CON"_s, u"CON1"_s},
                                        {u" ?Mary's? "_s, u"Mary's"_s},
                                        {u"***"_s, u""_s}}) {
    QString name = given;
    Files().CleanString(name);
    EXPECT_EQ(name, expected);
  }
}

TEST_F(cSharedFileSubsTest, TextFilesComeBackByteForByte) {
  QByteArray all;
  for (int i = 0; i < 256 * 600; ++i) {
    all.append(static_cast<char>(i));
  }
  ASSERT_TRUE(Files().WriteTextFile(path, all));
  EXPECT_EQ(contentOf(path), all);
  EXPECT_TRUE(Files().SaveTextFile(path, u"\u20AC\u0416"_s));
  EXPECT_EQ(contentOf(path), "\x80?");
  EXPECT_TRUE(Files().WriteTextFile(path, QByteArray()));
  EXPECT_EQ(contentOf(path), "");
}

TEST_F(cSharedFileSubsTest, MissingFilesGiveTheDefaults) {
  const QString missing = folder.path(u"no/such.txt"_s);
  for (const QString& none : {missing, folder.path(), QString()}) {
    QByteArray text = "old";
    EXPECT_FALSE(Files().LoadTextFile(none, text)) << none;
    EXPECT_EQ(text, "");
  }
  EXPECT_FALSE(Files().FileDate(missing).isValid());
  EXPECT_EQ(Files().FileSize(missing), 0);
  EXPECT_TRUE(Files().EraseFile(missing));
  EXPECT_EQ(Files().CreateOutputFile(missing), -1);
  EXPECT_FALSE(Files().WriteTextFile(missing, QByteArray("x")));
}

TEST_F(cSharedFileSubsTest, AFailedWriteLeavesTheOldFileWhole) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old text")));
  {
    const FailingDisk full(3);
    EXPECT_EQ(errorOfReplacing(path, "new text"), RuntimeError::DiskFull);
    EXPECT_FALSE(Files().WriteTextFile(path, QByteArray("new text")));
    EXPECT_TRUE(Files().WriteTextFile(path, QByteArray("fit"))) << "what fits is written";
  }
  EXPECT_EQ(contentOf(path), "fit");
  EXPECT_EQ(namesIn(folder.path()), QStringList(u"scene.rtf"_s)) << "nothing half written is left behind";
}

TEST_F(cSharedFileSubsTest, ReplacingKeepsPermissionsAndFollowsLinks) {
  const QString real = folder.path(u"real"_s);
  const QString link = folder.path(u"link"_s);
  ASSERT_TRUE(Files().WriteTextFile(real, QByteArray("old")));
  ASSERT_TRUE(QFile::link(real, link));
  const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
  QFile::setPermissions(real, rights);
  ASSERT_TRUE(Files().WriteTextFile(link, QByteArray("new")));
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  EXPECT_EQ(contentOf(real), "new");
  EXPECT_EQ(QFile::permissions(real) & QFile::Permissions(0x7077), QFile::Permissions(rights));
  const QString longest = folder.path(QString(255, u'n'));
  EXPECT_EQ(errorOfReplacing(longest, "x"), 0);
}

TEST_F(cSharedFileSubsTest, ReadOnlyFilesAreMadeWritable) {
  const auto lock = [&] { return QFile::setPermissions(path, QFile::ReadOwner); };
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old")) && lock());
  EXPECT_TRUE(Files().WriteTextFile(path, QByteArray("new")));
  EXPECT_EQ(contentOf(path), "new");
  EXPECT_FALSE(Files().isReadonly(path));
  ASSERT_TRUE(lock());
  EXPECT_TRUE(Files().EraseFile(path));
  EXPECT_FALSE(Files().FileExists(path));
}

TEST_F(cSharedFileSubsTest, AFileThatStaysReadOnlyIsLeft) {
  QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old")));
  QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  const OrdinaryUser user;
  if (!user.limited()) {
    GTEST_SKIP() << "permissions don't refuse here";
  }
  EXPECT_EQ(Files().CreateOutputFile(path), -1);
  EXPECT_EQ(Files().OpenAppendFile(path), -1);
  EXPECT_EQ(errorOfReplacing(path, "new"), RuntimeError::PathAccess);
  EXPECT_EQ(contentOf(path), "old");
}

TEST_F(cSharedFileSubsTest, AFolderThatRefusesNewFilesIsTold) {
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old")));
  QFile::setPermissions(path, QFile::Permissions(0x6666));
  QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
  const OrdinaryUser user;
  if (!user.limited()) {
    GTEST_SKIP() << "permissions don't refuse here";
  }
  EXPECT_FALSE(Files().WriteTextFile(path, QByteArray("new")));
  EXPECT_TRUE(Logging().CurrentAction().contains(u"can't make a new file in "_s + folder.path() + u" (75)"_s))
      << Logging().CurrentAction();
  EXPECT_EQ(contentOf(path), "old");
}

TEST_F(cSharedFileSubsTest, LeftoversAreNoFilesAndGoWithTheNextSave) {
  const QString stale = folder.path(u".quillane-1-1.tmp"_s);
  const QString young = folder.path(u".quillane-1-2.tmp"_s);
  for (const QString& left : {stale, young, path}) {
    ASSERT_TRUE(QFile(left).open(QIODevice::WriteOnly));
  }
  Files().SetFileDateTime(stale, QDateTime(QDate(2020, 1, 1), QTime(12, 0)));
  QStringList list;
  Files().FillFiles(folder.path(), {}, list);
  EXPECT_EQ(list, QStringList(u"scene.rtf"_s));
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("x")));
  EXPECT_FALSE(Files().FileExists(stale));
  EXPECT_TRUE(Files().FileExists(young)) << "it may be at work";
}

TEST_F(cSharedFileSubsTest, ALinkIsErasedAndMovedByItself) {
  const QString real = folder.path(u"real"_s);
  const QString link = folder.path(u"link"_s);
  ASSERT_TRUE(Files().WriteTextFile(real, QByteArray("x")));
  QFile::setPermissions(real, QFile::ReadOwner);
  ASSERT_TRUE(QFile::link(real, link));
  EXPECT_TRUE(Files().MoveFile(link, folder.path(u"moved"_s)));
  EXPECT_TRUE(Files().EraseFile(folder.path(u"moved"_s)));
  EXPECT_TRUE(Files().isReadonly(real)) << "what it led to is as it was";
  ASSERT_TRUE(QFile::link(folder.path(u"nowhere"_s), link));
  EXPECT_TRUE(Files().EraseFile(link));
  EXPECT_EQ(namesIn(folder.path()), QStringList(u"real"_s));
}

TEST_F(cSharedFileSubsTest, FoldersAreMadeLevelByLevel) {
  const QString deep = folder.path(u"a/b/c/"_s);
  EXPECT_FALSE(Files().MkMissingDir(u"  "_s));
  EXPECT_FALSE(Files().MkMissingDirNoRecurse(deep)) << "the levels above are missing";
  EXPECT_TRUE(Files().MkMissingDir(deep));
  EXPECT_FALSE(Files().MkMissingDir(deep)) << "it is there already";
  EXPECT_TRUE(Files().FolderExists(folder.path(u"a/b/c"_s)));
  EXPECT_FALSE(Files().FileExists(folder.path(u"a"_s)));
  Files().WriteTextFile(path, QByteArray("x"));
  EXPECT_FALSE(Files().MkMissingDir(path + u"/below"_s));
}

TEST_F(cSharedFileSubsTest, AFailedCopyOrMoveLosesNothing) {
  const QString from = folder.path(u"from"_s);
  const QString to = folder.path(u"to"_s);
  Files().WriteTextFile(from, QByteArray("new text"));
  Files().WriteTextFile(to, QByteArray("old"));
  EXPECT_NE(Files().CopyFileWithRetCode(folder.path(u"missing"_s), to), 0);
  if (FailingDisk::available()) {
    const FailingDisk full(2);
    EXPECT_NE(Files().CopyFileWithRetCode(from, to), 0);
  }
  EXPECT_FALSE(Files().MoveFile(from, to)) << "what stands there isn't overwritten";
  EXPECT_EQ(contentOf(to), "old");
  EXPECT_EQ(contentOf(from), "new text");
  Files().EraseFile(to);
  EXPECT_TRUE(Files().MoveFile(from, to));
  EXPECT_EQ(contentOf(to), "new text");
  EXPECT_FALSE(Files().FileExists(from));
  EXPECT_FALSE(Files().MoveFile(from, to));
}

TEST_F(cSharedFileSubsTest, ListingsAreSortedAndFiltered) {
  for (const QString& name : {u"b.RTF"_s, u"A.rtf"_s, u"c.txt"_s, u"sub/d.rtf"_s}) {
    Files().MkMissingDir(Files().PathOnly(folder.path(name)));
    Files().WriteTextFile(folder.path(name), name.toLatin1());
  }
  QStringList list{u"stale"_s};
  Files().FillFiles(folder.path(), {}, list);
  EXPECT_EQ(list, QStringList({u"A.rtf"_s, u"b.RTF"_s, u"c.txt"_s}));
  Files().FillFiles(folder.path(), u".rtf"_s, list);
  EXPECT_EQ(list, QStringList({u"A.rtf"_s, u"b.RTF"_s}));
  Files().FillFolders(folder.path(), list);
  EXPECT_EQ(list, QStringList(u"sub"_s));
  QList<FileObject> objects;
  Files().FillFileObjects(folder.path(), u"rtf"_s, objects);
  ASSERT_EQ(objects.size(), 2);
  EXPECT_EQ(objects[1].Path, QDir::toNativeSeparators(folder.path(u"b.RTF"_s)));
  EXPECT_EQ(objects[1].Size, 5);
}

TEST_F(cSharedFileSubsTest, AProgramIsRunAndADocumentOpened) {
  const auto file = [&](const QString& name, const QByteArray& content, bool mayRun) {
    Files().WriteTextFile(folder.path(name), content);
    if (mayRun) {
      QFile(folder.path(name)).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return folder.path(name);
  };
  const QString script = file(u"a tool"_s, "#!/bin/sh\n", true);
  const QString text = file(u"notes.txt"_s, "Anna leaves", true);
  const QString guarded = file(u"a script"_s, "#!/bin/sh\n", false);
  const QString missing = folder.path(u"missing"_s);
  ScriptedToolkit person;
  for (const QString& started : {script, text, guarded, missing}) {
    Files().RunFile(started);
  }
  EXPECT_EQ(person.programsRun, QStringList(script));
  EXPECT_EQ(person.openedDocuments, QStringList({text, guarded, missing}));
  EXPECT_TRUE(Files().RunFileHidden(script));
  EXPECT_FALSE(Files().RunFileHidden(guarded) || Files().RunFileHidden(text));
}
