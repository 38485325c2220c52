#include "core/infra/cSharedFileSubs.h"

#include "core/infra/Clock.h"
#include "core/infra/FileChannels.h"
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
  /// Files with their own name as text, and the folders above them.
  void makeFiles(const QStringList& names) const {
    for (const QString& name : names) {
      Files().MkMissingDir(Files().PathOnly(folder.path(name)));
      Files().WriteTextFile(folder.path(name), name.toLatin1());
    }
  }

  const ScratchFolder folder;
  const QString path = folder.path(u"scene.rtf"_s);
};

}  // namespace

TEST(cSharedFileSubs, PathStringsArePartedAtBothSlashes) {
  using Operation = QString (cSharedFileSubs::*)(const QString&) const;
  const std::pair<Operation, QList<std::pair<QString, QString>>> cases[] = {
      {&cSharedFileSubs::PathOnly, {{u"x.qn4"_s, u"./"_s}, {u"C:\\a/b\\c.txt"_s, u"C:/a/b/"_s}, {u""_s, u"./"_s}}},
      {&cSharedFileSubs::ExtractPath, {{u"x.qn4"_s, u""_s}, {u"/a/x"_s, u"/a/"_s}}},
      {&cSharedFileSubs::ExtOnly, {{u"a.b.c"_s, u"c"_s}, {u"abc"_s, u""_s}, {u"abc."_s, u""_s}}},
      {&cSharedFileSubs::ExtOnlyWithDot, {{u"a.b.c"_s, u".c"_s}, {u"abc"_s, u""_s}}},
      {&cSharedFileSubs::FileOnly, {{u"C:\\a/b.c"_s, u"b.c"_s}, {u"b.c"_s, u"b.c"_s}, {u"a/"_s, u""_s}}},
      {&cSharedFileSubs::FileWithoutExt,
       {{u"C:\\a.b\\c"_s, u"C:\\a"_s},
        {u"/a.b/My.Novel.qn4"_s, u"/a.b/My.Novel"_s},
        {u"abc"_s, u"abc"_s},
        {u".x"_s, u""_s}}},
      {&cSharedFileSubs::Fileroot, {{u"/a/b.txt"_s, u"/a/b"_s}}},
      {&cSharedFileSubs::FileExPath, {{u"/a/b.txt"_s, u"b.txt"_s}}},
      {&cSharedFileSubs::DriveOnly, {{u"C:\\a"_s, u"C"_s}, {u"\\a"_s, u""_s}, {u""_s, u""_s}}},
      {&cSharedFileSubs::FolderExDrive,
       {{u"C:\\a\\b"_s, u"a\\b"_s}, {u"\\\\server\\share\\x"_s, u"share\\x"_s}, {u"/a/b"_s, u"a/b"_s}}},
      {&cSharedFileSubs::AddSlashIfMissing, {{u""_s, u""_s}, {u"a"_s, u"a/"_s}, {u"a\\"_s, u"a\\"_s}}},
      {&cSharedFileSubs::AddForwardSlashIfMissing, {{u"a"_s, u"a/"_s}, {u"a/"_s, u"a/"_s}}},
      {&cSharedFileSubs::RemoveSlashFromEnd, {{u"a//"_s, u"a/"_s}, {u"/"_s, u"/"_s}}},
      {&cSharedFileSubs::ExtractUNCShare,
       {{u"\\\\server\\share\\x\\y"_s, u"\\\\server\\share"_s},
        {u"\\\\server"_s, u"\\\\server"_s},
        {u"C:\\a"_s, u""_s}}},
      {&cSharedFileSubs::ExtractUNCPath, {{u"\\\\server\\share\\x\\y"_s, u"\\x\\y"_s}, {u"\\\\server"_s, u""_s}}},
      {&cSharedFileSubs::LastFolder, {{u"C:\\a\\b\\"_s, u"b"_s}, {u"/a/b"_s, u"b"_s}}},
  };
  for (const auto& [operation, results] : cases) {
    for (const auto& [path, expected] : results) {
      EXPECT_EQ(Paths::native((Files().*operation)(path)), Paths::native(expected)) << path;
    }
  }
  for (const QString& file : {u"b"_s, u"/b"_s, u"\\b"_s}) {
    EXPECT_EQ(Paths::native(Files().Combine(u"a"_s, file)), Paths::native(u"a/b"_s));
    EXPECT_EQ(Paths::native(Files().Combine(u"a/"_s, file)), Paths::native(u"a/b"_s));
  }
  EXPECT_EQ(Files().Combine({}, u"/b"_s), u"/b"_s);
}

TEST(cSharedFileSubs, NamesAreFittedForTheFileSystem) {
  const std::pair<QString, QString> cases[] = {{u"a\\b/c:d*e?f<g>h|i&j,k%l\"m"_s, u"a b c d e f g h i j k l m"_s},
                                               {u"CON"_s, u"CON1"_s},
                                               {u"AUX"_s, u"AUX1"_s},
                                               {u"CONS"_s, u"CONS"_s},
                                               {u" ?Mary's? "_s, u"Mary's"_s},
                                               {u"***"_s, u""_s}};
  for (const auto& [given, expected] : cases) {
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
  QString text;
  EXPECT_TRUE(Files().ReadTextFile(path, text));
  EXPECT_EQ(text, u"\u20AC?"_s);
  EXPECT_TRUE(Files().AppendToTextFile(path, QByteArray("x")));
  EXPECT_EQ(contentOf(path), "\x80?x\r\n");
  EXPECT_TRUE(Files().WriteTextFile(path, QByteArray()));
  EXPECT_EQ(contentOf(path), "");
}

TEST_F(cSharedFileSubsTest, MissingFilesGiveTheDefaults) {
  const QString missing = folder.path(u"no/such.txt"_s);
  QByteArray text = "old";
  EXPECT_FALSE(Files().LoadTextFile(missing, text));
  EXPECT_EQ(text, "");
  text = "old";
  EXPECT_FALSE(Files().LoadTextFile(folder.path(), text)) << "a folder is no text file";
  EXPECT_EQ(text, "");
  EXPECT_FALSE(Files().LoadTextFile({}, text));
  EXPECT_FALSE(Files().FileDate(missing).isValid());
  EXPECT_EQ(Files().FileSize(missing), 0);
  EXPECT_EQ(Files().LinesInFile(missing), 0);
  EXPECT_FALSE(Files().isReadonly(missing));
  EXPECT_FALSE(Files().MakeReadWrite(missing));
  EXPECT_EQ(Files().OpenFile(missing), -1);
  EXPECT_TRUE(Files().EraseFile(missing));
  EXPECT_EQ(Files().CreateOutputFile(missing), -1);
  EXPECT_FALSE(Files().AppendToTextFile(missing, QByteArray("x")));
  EXPECT_FALSE(Files().WriteTextFile(missing, QByteArray("x")));
  EXPECT_TRUE(Logging().CurrentAction().contains(u"(76) in WriteTextFile of module cSharedFileSubs"_s));
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

TEST_F(cSharedFileSubsTest, ReplacingTellsWhyItFailed) {
  QDir(folder.path()).mkdir(u"folder"_s);
  const std::pair<QString, int> cases[] = {{QString(), RuntimeError::BadFileName},
                                           {folder.path(QString(300, u'x')), RuntimeError::BadFileName},
                                           {folder.path(u"folder"_s), RuntimeError::PathAccess},
                                           {folder.path(u"missing/x"_s), RuntimeError::PathNotFound}};
  for (const auto& [target, number] : cases) {
    EXPECT_EQ(errorOfReplacing(target, "x"), number) << target;
  }
  EXPECT_EQ(namesIn(folder.path()), QStringList(u"folder"_s));
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
  const auto lock = [&] { QFile::setPermissions(path, QFile::ReadOwner); };
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old")));
  lock();
  EXPECT_TRUE(Files().isReadonly(path));
  EXPECT_TRUE(Files().WriteTextFile(path, QByteArray("new")));
  EXPECT_FALSE(Files().isReadonly(path));
  lock();
  EXPECT_TRUE(Files().AppendToTextFile(path, QByteArray("er")));
  EXPECT_EQ(contentOf(path), "newer\r\n");
  lock();
  EXPECT_TRUE(Files().EraseFile(path));
  EXPECT_FALSE(Files().FileExists(path));
}

TEST_F(cSharedFileSubsTest, AFileThatStaysReadOnlyIsLeftAndTold) {
  QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
  ASSERT_TRUE(Files().WriteTextFile(path, QByteArray("old")));
  QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  Logging().WriteActionsToLog();
  const OrdinaryUser user;
  if (!user.limited()) {
    GTEST_SKIP() << "permissions don't refuse here";
  }
  EXPECT_EQ(Files().CreateOutputFile(path), -1);
  EXPECT_EQ(Logging().CurrentAction(),
            u"DBG: "_s + path +
                u" is read only, can't change it to read write, can't update it in CreateOutputFile of module "
                u"cSharedFileSubs"_s);
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

TEST_F(cSharedFileSubsTest, LinesAreCountedAtEveryKindOfEnd) {
  const std::pair<const char*, int> cases[] = {{"", 0},       {"a", 1},    {"a\r\n", 1},    {"a\r\nb", 2},
                                               {"a\nb\n", 2}, {"a\rb", 2}, {"\r\n\r\n", 2}, {"\n\r", 2}};
  for (const auto& [text, lines] : cases) {
    Files().WriteTextFile(path, QByteArray(text));
    EXPECT_EQ(Files().LinesInFile(path), lines) << text;
  }
}

TEST_F(cSharedFileSubsTest, FoldersAreMadeLevelByLevel) {
  const QString deep = folder.path(u"a/b/c/"_s);
  EXPECT_FALSE(Files().MkMissingDir(u"  "_s));
  EXPECT_FALSE(Files().MkMissingDirNoRecurse(deep)) << "the levels above are missing";
  EXPECT_TRUE(Files().MkMissingDir(deep));
  EXPECT_FALSE(Files().MkMissingDir(deep)) << "it is there already";
  EXPECT_TRUE(Files().FolderExists(folder.path(u"a/b/c"_s)));
  EXPECT_TRUE(Files().MkMissingDirNoRecurse(folder.path(u"a/d"_s)));
  EXPECT_FALSE(Files().EraseFolder(folder.path(u"a"_s))) << "it isn't empty";
  EXPECT_TRUE(Files().EraseFolder(deep));
  EXPECT_FALSE(Files().FileExists(folder.path(u"a"_s)));
  Files().WriteTextFile(folder.path(u"file"_s), QByteArray("x"));
  EXPECT_FALSE(Files().MkMissingDir(folder.path(u"file/below"_s)));
}

TEST_F(cSharedFileSubsTest, CopiesKeepTimeAndContent) {
  const QString from = folder.path(u"from.txt"_s);
  const QDateTime time(QDate(2020, 2, 3), QTime(4, 5, 6));
  const QByteArray large(3 << 20, 'x');
  ASSERT_TRUE(Files().WriteTextFile(from, large));
  ASSERT_TRUE(Files().SetFileDateTime(from, time));
  ScriptedToolkit person;
  qint64 reported = 0;
  int reports = 0;
  const auto progress = [&](qint64 done, qint64 total) {
    EXPECT_EQ(total, large.size());
    reported = done;
    ++reports;
  };
  QDir(folder.path()).mkdir(u"to"_s);
  EXPECT_TRUE(Files().CopyFile(from, folder.path(u"to/"_s), progress));
  EXPECT_EQ(reported, large.size());
  EXPECT_GE(reports, 3);
  const QString copy = folder.path(u"to/from.txt"_s);
  EXPECT_EQ(contentOf(copy), large);
  EXPECT_EQ(Files().FileDate(copy), time);

  EXPECT_TRUE(Files().CopyFile(copy, copy)) << "onto itself nothing is lost";
  EXPECT_EQ(contentOf(copy), large);
  Files().WriteTextFile(from, QByteArray("older"));
  Files().SetFileDateTime(from, time.addDays(-1));
  EXPECT_TRUE(Files().CopyFileIfNewer(from, copy));
  EXPECT_EQ(Files().FileSize(copy), large.size());
  Files().SetFileDateTime(from, time.addDays(1));
  EXPECT_TRUE(Files().CopyFileIfNewer(from, copy));
  EXPECT_EQ(contentOf(copy), "older");
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
  const QDateTime old(QDate(2020, 1, 1), QTime(12, 0));
  makeFiles({u"b.RTF"_s, u"A.rtf"_s, u"c.txt"_s, u"sub/d.rtf"_s, u"sub/deep/e.txt"_s});
  Files().SetFileDateTime(folder.path(u"A.rtf"_s), old);
  const auto full = [&](const QString& name) { return QDir::toNativeSeparators(folder.path(name)); };
  const QDateTime limit = old.addDays(1);
  QStringList list{u"stale"_s};
  Files().FillFiles(folder.path(), {}, list);
  EXPECT_EQ(list, QStringList({u"A.rtf"_s, u"b.RTF"_s, u"c.txt"_s}));
  Files().FillFiles(folder.path(), u".rtf"_s, list);
  EXPECT_EQ(list, QStringList({u"A.rtf"_s, u"b.RTF"_s}));
  Files().FillFilesAfterDate(folder.path(), u"rtf"_s, limit, list);
  EXPECT_EQ(list, QStringList(u"b.RTF"_s));
  Files().FillFilesBeforeDate(folder.path(), {}, limit, list);
  EXPECT_EQ(list, QStringList(u"A.rtf"_s));
  Files().FillFilesRecursed(folder.path(), u"rtf"_s, list);
  EXPECT_EQ(list, QStringList({full(u"A.rtf"_s), full(u"b.RTF"_s), full(u"sub/d.rtf"_s)}));
  Files().FillFolders(folder.path(), list);
  EXPECT_EQ(list, QStringList(u"sub"_s));
  Files().FillFoldersRecursed(folder.path(), list);
  EXPECT_EQ(list, QStringList({full(u"sub"_s), full(u"sub/deep"_s)}));
  QList<FileObject> objects;
  Files().FillFileObjects(folder.path(), u"rtf"_s, objects);
  ASSERT_EQ(objects.size(), 2);
  EXPECT_EQ(objects[0].Date, old);
  EXPECT_EQ(objects[1].Path, full(u"b.RTF"_s));
  EXPECT_EQ(objects[1].Size, 5);
}

TEST_F(cSharedFileSubsTest, FoldersAreCopiedWithTheirFolders) {
  makeFiles({u"from/a.rtf"_s, u"from/x/b.rtf"_s, u"from/x/c.txt"_s});
  EXPECT_TRUE(Files().CopyFolder(folder.path(u"from"_s), folder.path(u"from/inside"_s), u"*.rtf"_s));
  QStringList list;
  Files().FillFilesRecursed(folder.path(u"from/inside"_s), {}, list);
  EXPECT_EQ(list.size(), 2);
  EXPECT_EQ(contentOf(folder.path(u"from/inside/x/b.rtf"_s)), "from/x/b.rtf");
  EXPECT_FALSE(Files().CopyFolder(folder.path(u"missing"_s), folder.path(u"to"_s)));
}

TEST_F(cSharedFileSubsTest, ListingsYieldToTheWindow) {
  for (int i = 0; i < 25; ++i) {
    ASSERT_TRUE(QFile(folder.path(QString::number(i))).open(QIODevice::WriteOnly));
  }
  ScriptedToolkit person;
  QStringList list;
  const qint64 limit = Clock::ticks() + 60000;
  while (person.yields == 0 && Clock::ticks() < limit) {
    Files().FillFiles(folder.path(), {}, list);
  }
  EXPECT_EQ(person.yields, 1);
  EXPECT_GT(Files().DiskFree(folder.path(u"missing/x"_s)), 0);
  EXPECT_GE(Files().DiskSize(folder.path()), Files().DiskFree(folder.path()));
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
  const QString shell = QFileInfo(u"/bin/sh"_s).absoluteFilePath();
  const QString missing = folder.path(u"missing"_s);
  ScriptedToolkit person;
  for (const QString& started : {script, text, guarded, shell, missing, u"no-such-program"_s}) {
    Files().RunFile(started);
  }
  EXPECT_EQ(person.programsRun, QStringList({script, shell}));
  EXPECT_EQ(person.openedDocuments, QStringList({text, guarded, missing, u"no-such-program"_s}));
  person.programsRun.clear();
  EXPECT_TRUE(Files().RunFile(u"sh"_s));
  EXPECT_TRUE(person.programsRun.value(0).endsWith(u"/sh"_s));
  EXPECT_TRUE(Files().RunFileWithParam(script, u"two words"_s));
  EXPECT_EQ(person.programsRun.last(), script + u" two words"_s);
  EXPECT_TRUE(Files().RunFileHidden(script));
  person.openedDocuments.clear();
  EXPECT_FALSE(Files().RunFileHidden(guarded) || Files().RunFileHidden(text));
  Files().RunFileWithParam(text, u"x"_s);
  EXPECT_EQ(person.openedDocuments, QStringList(text));
}
