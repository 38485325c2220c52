#include "core/infra/FolderLock.h"

#include "core/infra/FileStamp.h"
#include "core/infra/NativeFile.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>

#include <gtest/gtest.h>
#include <memory>
#include <utime.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray linesOf(const QString& host) {
  return host.toUtf8() + "\nanna\n4711\n2026-11-20 18:05\n";
}

}  // namespace

TEST(FolderLock, NamesWhoHasTheFolderForAsLongAsThatOneLives) {
  const ScratchFolder folder;
  const QString file = folder.path(FolderLock::fileName());
  auto first = std::make_unique<FolderLock>(folder.path());
  EXPECT_FALSE(first->other());
  {
    const FolderLock second(folder.path());
    ASSERT_TRUE(second.other());
    EXPECT_EQ(second.other()->host, QSysInfo::machineHostName());
    EXPECT_EQ(second.other()->process, QString::number(QCoreApplication::applicationPid()));
    EXPECT_FALSE(second.other()->user.isEmpty());
    EXPECT_FALSE(second.other()->since.isEmpty());
  }
  EXPECT_TRUE(QFile::exists(file)) << "whoever was refused took the lock away";
  EXPECT_TRUE(FolderLock(folder.path(), FolderLock::Claim::InAnyCase).other()) << "a living process is no dead one";
  first.reset();
  EXPECT_FALSE(QFile::exists(file));
}

TEST(FolderLock, TheDeadOfThisMachineCountForNothingAndOtherMachinesAreBelieved) {
  const ScratchFolder folder;
  const QString file = folder.path(FolderLock::fileName());
  for (const QByteArray& left : {linesOf(QSysInfo::machineHostName()), QByteArray()}) {
    writeFile(file, left);
    EXPECT_FALSE(FolderLock(folder.path()).other()) << left;
    EXPECT_FALSE(QFile::exists(file));
  }
  writeFile(file, linesOf(u"elsewhere"_s));
  const FolderLock refused(folder.path());
  ASSERT_TRUE(refused.other());
  EXPECT_EQ(refused.other()->host, u"elsewhere"_s);
  EXPECT_EQ(refused.other()->user, u"anna"_s);
  EXPECT_EQ(refused.other()->since, u"2026-11-20 18:05"_s);
}

TEST(FolderLock, AnotherUsersIsSeen) {
  const ScratchFolder folder;
  ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
  const FolderLock theirs(folder.path());
  ASSERT_TRUE(QFile::setPermissions(folder.path(FolderLock::fileName()),
                                    QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  const OrdinaryUser user;
  if (!user.limited()) {
    GTEST_SKIP() << "no other user to be had";
  }
  EXPECT_TRUE(FolderLock(folder.path()).other());
}

TEST(FolderLock, AFolderOfAnotherMachineCanBeClaimed) {
  const ScratchFolder folder;
  writeFile(folder.path(FolderLock::fileName()), linesOf(u"elsewhere"_s));
  EXPECT_FALSE(FolderLock(folder.path(), FolderLock::Claim::InAnyCase).other());
  // Where no file can be made nobody can be told of.
  EXPECT_FALSE(FolderLock(folder.path(u"missing"_s)).other());
}

TEST(FileStamp, TheHashMindsEveryByteAndNotHowTheyCome) {
  QByteArray bytes;
  for (int i = 0; i < 100; ++i) {
    bytes.append(static_cast<char>(i * 37));
  }
  const quint64 whole = ContentHash::of(bytes);
  for (qsizetype cut = 0; cut <= bytes.size(); ++cut) {
    ContentHash hash;
    hash.add(bytes.first(cut));
    hash.add(bytes.sliced(cut));
    EXPECT_EQ(hash.value(), whole) << "cut at " << cut;
    EXPECT_NE(ContentHash::of(bytes.first(cut)), ContentHash::of(bytes.first(cut) + '\0'));
  }
  for (char& byte : bytes) {
    ++byte;
    EXPECT_NE(ContentHash::of(bytes), whole);
    --byte;
  }
}

TEST(FileStamp, WhatWasReadOrWrittenIsKnownAgain) {
  const ScratchFolder folder;
  const QString path = folder.path(u"file"_s);
  ReplacementFile file(path);
  file.write("one ");
  file.write("two");
  const FileStamp written = file.commit(ReplacementFile::Durability::ContentOnDisk);
  FileStamp read;
  EXPECT_EQ(readWholeFile(path, Links::Refused, &read), "one two");
  EXPECT_TRUE(read.looksLike(written));
  EXPECT_TRUE(FileStamp::lookAt(path).looksLike(written));
  read.noteContent("one two");
  EXPECT_EQ(read.hash, written.hash);
  EXPECT_TRUE(written.hasContent("one two"));
  EXPECT_FALSE(written.hasContent("one twO"));
  const utimbuf earlier{1000, 1000};
  ASSERT_EQ(::utime(QFile::encodeName(path).constData(), &earlier), 0);
  EXPECT_FALSE(FileStamp::lookAt(path).looksLike(written));
  EXPECT_FALSE(FileStamp::lookAt(folder.path()).isKnown()) << "a folder";
}
