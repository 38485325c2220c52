// A PDF file whose writer is killed or whose disk is full: under its name stands the older file or the whole new one.

#include "core/infra/RuntimeError.h"
#include "faults/FaultyProcess.h"
#include "faults/PrintedBook.h"
#include "faults/SmallDisk.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kOlder = "the older one";
constexpr qint64 kDisk = 1024 * 1024;
constexpr qint64 kRoom = 4096;

bool isWholePdf(const QByteArray& bytes) {
  return bytes.startsWith("%PDF-") && bytes.trimmed().endsWith("%%EOF");
}

}  // namespace

TEST(PrintedFile, OfAKilledPrintIsTheOlderOneOrWhole) {
  const QTemporaryDir scratch(quickFolder() + u"/quillane-print-XXXXXX"_s);
  const QString folder = scratch.filePath(u"out"_s);
  const QString file = folder + u"/Book.pdf"_s;
  ASSERT_TRUE(QDir().mkpath(folder) && QDir().mkpath(scratch.filePath(u"home"_s)));
  const auto print = [&](int point) {
    writeFile(file, kOlder);
    return saveWithFault(Means::Preloaded, {u"kill"_s, point}, folder, scratch.filePath(u"home"_s), {file},
                         u"print_a_pdf"_s);
  };
  const int calls = print(0).calls;
  EXPECT_TRUE(isWholePdf(fileBytes(file)));
  ASSERT_GT(calls, 2) << "the calls are not seen";
  constexpr int kSample = 12;
  int older = 0;
  for (const int point : faultPoints(calls, kSample)) {
    EXPECT_TRUE(print(point).killed) << point;
    const bool isOlder = fileBytes(file) == kOlder;
    older += isOlder ? 1 : 0;
    EXPECT_TRUE(isOlder || isWholePdf(fileBytes(file))) << "killed at call " << point << " of " << calls;
  }
  EXPECT_GT(older, 0);
}

TEST(PrintedFile, OnAFullDiskIsTheOlderOneAndNothingIsLeftBesideIt) {
  const SmallDisk disk(kDisk);
  if (!disk.refused().isEmpty()) {
    GTEST_SKIP() << "a file system can't be mounted here: " << disk.refused().toStdString();
  }
  const QString file = disk.path() + u"/Book.pdf"_s;
  const PrintDocument document = printedBook();
  int refused = 0;
  for (qint64 room = 0; room < kDisk; room += kRoom) {
    writeFile(file, kOlder);
    ASSERT_TRUE(disk.fill(room));
    PatientProgress progress;
    try {
      PdfFile(file).print(document, progress);
    } catch (const RuntimeError&) {
      EXPECT_EQ(fileBytes(file), kOlder) << room;
      EXPECT_EQ(QDir(disk.path()).entryList({u"*.tmp"_s}, QDir::Files | QDir::Hidden), QStringList()) << room;
      ++refused;
      continue;
    }
    EXPECT_TRUE(isWholePdf(fileBytes(file))) << room;
    break;
  }
  EXPECT_GT(refused, 2);
}
