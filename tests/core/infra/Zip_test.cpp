// Archives: what is packed under which name, what stands there when packing fails, and what unpacking refuses.

#include "core/infra/ZipNames.h"
#include "core/infra/cSHAREDUnzip2.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/infra/cSharedFileSubs.h"
#include "support/Archives.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <gtest/gtest.h>
#include <zip.h>

using namespace Qt::StringLiterals;

namespace {

class Zip : public ::testing::Test {
 protected:
  void SetUp() override {
    QDir().mkpath(scratch_.path(u"book/RTF"_s));
    writeFile(path(u"book/Book.qn4"_s), "the book");
    writeFile(path(u"book/RTF/1.rtf"_s), "scene one");
    writeFile(path(u"Settings.ini"_s), "KEY,1");
    zip_.Setup();
    zip_.ZipFileName = archive_;
    zip_.RootDirectory = path(u"book/"_s);
  }

  QString path(const QString& name) const { return scratch_.path(name); }
  int pack(const QStringList& names) {
    zip_.Setup();
    for (const QString& name : names) {
      zip_.AddFile(path(name));
    }
    return zip_.MakeZipFile();
  }

  ScratchFolder scratch_;
  QString archive_ = scratch_.path(u"a.zip"_s);
  cSHAREDZipFiles zip_;
};

struct Raw {
  QByteArray name, content;
  /// Of a system that knows links.
  zip_uint32_t type = 0100644;
};

void writeRaw(const QString& archive, const QList<Raw>& members) {
  zip_t* const zip = zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  ASSERT_NE(zip, nullptr);
  for (const Raw& member : members) {
    zip_source_t* const source =
        zip_source_buffer(zip, member.content.constData(), static_cast<zip_uint64_t>(member.content.size()), 0);
    const zip_int64_t index = zip_file_add(zip, member.name.constData(), source, ZIP_FL_ENC_UTF_8);
    ASSERT_GE(index, 0);
    zip_set_file_compression(zip, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);
    zip_file_set_external_attributes(zip, static_cast<zip_uint64_t>(index), 0, ZIP_OPSYS_UNIX, member.type << 16);
  }
  ASSERT_EQ(zip_close(zip), 0);
}

void setWritable(const QString& folder, bool writable) {
  const auto rights = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
  QFile::setPermissions(folder, writable ? rights | QFile::WriteOwner | QFile::WriteOther : rights);
}

}  // namespace

TEST_F(Zip, NamesStayInTheFolderThatIsUnpackedInto) {
  for (const auto& [file, root, name] : {std::tuple{u"/a/b/c.rtf"_s, u"/a/"_s, u"b/c.rtf"_s},
                                         {u"/a/b/c.rtf"_s, u"/a"_s, u"b/c.rtf"_s},
                                         {u"/ab/c.rtf"_s, u"/a"_s, u"c.rtf"_s},
                                         {u"/a/../b/c.rtf"_s, u"/a/"_s, u"c.rtf"_s},
                                         {u"/a/..\\b.rtf"_s, u"/a/"_s, u".._b.rtf"_s},
                                         {u"/a/C:b.rtf"_s, QString(), u"C_b.rtf"_s}}) {
    EXPECT_EQ(ZipNames::of(file, root), name) << qPrintable(file);
    EXPECT_TRUE(ZipNames::isSafe(ZipNames::of(file, root)));
  }
  EXPECT_FALSE(ZipNames::isSafe({}));
}

TEST_F(Zip, PacksUnderNamesBelowTheRootAndMergesByName) {
  EXPECT_EQ(pack({u"book/Book.qn4"_s, u"book/RTF/1.rtf"_s, u"Settings.ini"_s}), 0);
  // The first member, and the last, in archives of all lengths: what stands before that is taken over as it is.
  QByteArray book;
  for (int i = 0; i < 400; ++i) {
    book += QByteArray::number(i * 7919);
  }
  writeFile(path(u"book/Book.qn4"_s), book);
  EXPECT_EQ(pack({u"book/Book.qn4"_s}), 0);
  QByteArray settings;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    settings += letter;
    writeFile(path(u"Settings.ini"_s), settings);
    ASSERT_EQ(pack({u"Settings.ini"_s}), 0);
  }
  const QMap<QString, QByteArray> expected{
      {u"Book.qn4"_s, book}, {u"RTF/1.rtf"_s, "scene one"}, {u"Settings.ini"_s, settings}};
  EXPECT_EQ(membersOf(archive_), expected);
  EXPECT_TRUE(othersCanRead(archive_));
}

TEST_F(Zip, ManyBatchesMakeOneArchive) {
  QStringList names;
  for (int i = 0; i < 250; ++i) {
    names.append(u"book/RTF/S%1.rtf"_s.arg(i));
    writeFile(path(names.last()), QByteArray::number(i));
  }
  EXPECT_EQ(pack(names), 0);
  EXPECT_EQ(membersOf(archive_).size(), 250);
  EXPECT_EQ(membersOf(archive_).value(u"RTF/S249.rtf"_s), "249");
  EXPECT_TRUE(othersCanRead(archive_));

  // The code is the last batch's; what failed in an earlier one is known all the same.
  QFile::remove(path(names.first()));
  EXPECT_EQ(pack(names), 0);
  ASSERT_EQ(zip_.Failures().size(), 1);
  EXPECT_EQ(zip_.Failures().first().file, path(names.first()));
  QFile::remove(path(names.last()));
  EXPECT_NE(pack(names), 0);
  EXPECT_EQ(membersOf(archive_).size(), 250);
}

TEST_F(Zip, WhatIsUnchangedIsntPackedAgain) {
  zip_.KeepUnchanged = true;
  ASSERT_EQ(pack({u"book/Book.qn4"_s, u"book/RTF/1.rtf"_s}), 0);
  const QDateTime packed = QDateTime::currentDateTime().addDays(-1);
  Files().SetFileDateTime(archive_, packed);
  EXPECT_EQ(pack({u"book/Book.qn4"_s, u"book/RTF/1.rtf"_s}), 0);
  EXPECT_FALSE(zip_.GetLastMessage().contains(u"adding"_s));
  EXPECT_LT(QFileInfo(archive_).lastModified(), packed.addSecs(60));

  // Within the same second, of the same length.
  const QDateTime time = QFileInfo(path(u"book/Book.qn4"_s)).lastModified();
  writeFile(path(u"book/Book.qn4"_s), "THE BOOK");
  QFile file(path(u"book/Book.qn4"_s));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(time.addMSecs(1), QFileDevice::FileModificationTime));
  file.close();
  EXPECT_EQ(pack({u"book/Book.qn4"_s, u"book/RTF/1.rtf"_s}), 0);
  EXPECT_EQ(zip_.GetLastMessage(), u"adding: Book.qn4\n"_s);
  EXPECT_EQ(membersOf(archive_).value(u"Book.qn4"_s), "THE BOOK");
}

TEST_F(Zip, NoTwoFilesShareANameInIt) {
  writeFile(path(u"other.ini"_s), "other");
  QDir().mkdir(path(u"x"_s));
  writeFile(path(u"x/other.ini"_s), "not me");
  EXPECT_NE(pack({u"other.ini"_s, u"x/other.ini"_s}), 0);
  EXPECT_EQ(membersOf(archive_).value(u"other.ini"_s), "other");
}

TEST_F(Zip, WhateverFailsTheOldArchiveIsThereAndTheCauseIsTold) {
  ASSERT_EQ(pack({u"book/Book.qn4"_s}), 0);
  const QByteArray old = fileBytes(archive_);
  QDir().mkdir(path(u"folder.zip"_s));
  writeFile(path(u"none.zip"_s), "no archive");
  writeFile(path(u"short.zip"_s), old.chopped(30));
  for (const auto& [archive, cause] : {std::pair{u"gone/a.zip"_s, u"Path not found"_s},
                                       {u"folder.zip"_s, u"Path/File access"_s},
                                       {u"none.zip"_s, u"it is no archive"_s},
                                       {u"short.zip"_s, u"it is no archive"_s}}) {
    const QByteArray before = fileBytes(path(archive));
    zip_.ZipFileName = path(archive);
    EXPECT_NE(pack({u"book/RTF/1.rtf"_s}), 0) << qPrintable(archive);
    ASSERT_EQ(zip_.Failures().size(), 1) << qPrintable(archive);
    EXPECT_TRUE(zip_.Failures().first().cause.contains(cause)) << qPrintable(zip_.Failures().first().cause);
    EXPECT_EQ(fileBytes(path(archive)), before);
  }
  zip_.ZipFileName = archive_;
  if (FailingDisk::available()) {
    FailingDisk disk(10);
    EXPECT_NE(pack({u"book/RTF/1.rtf"_s}), 0);
    EXPECT_TRUE(zip_.Failures().constLast().cause.contains(u"Disk full"_s));
  }
  EXPECT_EQ(fileBytes(archive_), old);
  {
    QDir().mkdir(path(u"locked"_s));
    setWritable(path(u"locked"_s), false);
    const OrdinaryUser user;
    if (user.limited()) {
      zip_.ZipFileName = path(u"locked/a.zip"_s);
      EXPECT_NE(pack({u"book/RTF/1.rtf"_s}), 0);
    }
  }
  setWritable(path(u"locked"_s), true);
  EXPECT_EQ(QDir(path(u"locked"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
  zip_.ZipFileName = archive_;
  EXPECT_EQ(pack({u"book/RTF/1.rtf"_s}), 0);
  EXPECT_EQ(membersOf(archive_).size(), 2);
}

TEST_F(Zip, UnpackingHeedsWhatIsThere) {
  writeRaw(archive_, {{"a b.txt", "one\ntwo\r\n"}, {"in/c.txt", "three"}});
  cSHAREDUnzip2 unzip;
  unzip.Zipfile = archive_;
  unzip.UnzipFolder = path(u"out/deeper/"_s);
  const QString out = path(u"out/deeper"_s);
  EXPECT_TRUE(unzip.Unzip());
  EXPECT_EQ(filesBelow(out), (QMap<QString, QByteArray>{{u"a b.txt"_s, "one\ntwo\r\n"}, {u"c.txt"_s, "three"}}));
  for (const bool overwrites : {false, true}) {
    writeFile(out + u"/c.txt"_s, "mine");
    unzip.OverwriteExisting = overwrites;
    EXPECT_TRUE(unzip.Unzip());
    EXPECT_EQ(fileBytes(out + u"/c.txt"_s), overwrites ? "three" : "mine");
  }
  unzip.UnzipFolder = path(u"chosen"_s);
  unzip.UseFolderNames = true;
  unzip.setFileSelected(2, true);
  EXPECT_TRUE(unzip.Unzip());
  EXPECT_EQ(filesBelow(path(u"chosen"_s)).keys(), QStringList{u"in/c.txt"_s});
}

TEST_F(Zip, UnpackingRefusesWhatWouldLeaveTheFolder) {
  QDir().mkdir(path(u"out"_s));
  QDir().mkdir(path(u"elsewhere"_s));
  ASSERT_TRUE(QFile::link(path(u"elsewhere"_s), path(u"out/way"_s)));
  writeFile(path(u"elsewhere/target"_s), "mine");
  ASSERT_TRUE(QFile::link(path(u"elsewhere/target"_s), path(u"out/link.txt"_s)));
  const QByteArray absolute = QFile::encodeName(path(u"absolute.txt"_s));
  for (const Raw& bad : {Raw{"../up.txt", "x"}, Raw{"in/../../up.txt", "x"}, Raw{absolute, "x"}, Raw{"..\\up.txt", "x"},
                         Raw{"C:up.txt", "x"}, Raw{"soft", "/etc/passwd", 0120777}, Raw{"pipe", "", 0010644},
                         Raw{"way/up.txt", "x"}, Raw{"way/new/up.txt", "x"}, Raw{"link.txt", "x"}}) {
    const auto before = filesBelow(path({}));
    writeRaw(archive_, {bad, {"good.txt", "good"}});
    cSHAREDUnzip2 unzip;
    unzip.Zipfile = archive_;
    unzip.UnzipFolder = path(u"out"_s);
    unzip.UseFolderNames = unzip.OverwriteExisting = true;
    EXPECT_FALSE(unzip.Unzip()) << bad.name;
    EXPECT_TRUE(unzip.LastMessage().contains(QString::fromUtf8(bad.name))) << bad.name;
    EXPECT_EQ(fileBytes(path(u"out/good.txt"_s)), "good");
    QFile::remove(path(u"out/good.txt"_s));
    auto after = filesBelow(path({}));
    after.insert(u"a.zip"_s, before.value(u"a.zip"_s));
    auto expected = before;
    expected.insert(u"a.zip"_s, before.value(u"a.zip"_s));
    EXPECT_EQ(after, expected) << bad.name;
  }
  EXPECT_EQ(QDir(path(u"elsewhere"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"target"_s});
}

TEST_F(Zip, WhatIsDamagedOrLongerThanToldIsNotUnpacked) {
  const QByteArray text(100000, 'w');
  writeFile(path(u"book/Book.qn4"_s), text);
  ASSERT_EQ(pack({u"book/Book.qn4"_s}), 0);
  const QByteArray whole = fileBytes(archive_);
  const qsizetype listing = whole.indexOf("PK\x01\x02");
  constexpr qsizetype kSum = 16;
  constexpr qsizetype kSize = 24;
  for (const auto& [what, at, value] :
       {std::tuple{"shorter size", kSize, 10U}, {"longer size", kSize, 200000U}, {"sum", kSum, 1U}}) {
    QByteArray bytes = whole;
    qToLittleEndian(value, bytes.data() + listing + at);
    writeFile(archive_, bytes);
    cSHAREDUnzip2 unzip;
    unzip.Zipfile = archive_;
    unzip.UnzipFolder = path(u"out"_s);
    EXPECT_FALSE(unzip.Unzip()) << what;
    EXPECT_FALSE(QFile::exists(path(u"out/Book.qn4"_s))) << what;
    EXPECT_EQ(readFromZip(archive_, u"book.QN4"_s), std::nullopt) << what;
  }
  writeFile(archive_, whole);
  EXPECT_EQ(readFromZip(archive_, u"book.QN4"_s), text);
}
