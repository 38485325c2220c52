#include "core/infra/FileChannels.h"

#include "core/infra/cSharedFileSubs.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Mode = FileChannels::Mode;

namespace {

class FileChannelsTest : public ::testing::Test {
 protected:
  const ScratchFolder folder;
  const QString path = folder.path(u"file"_s);
  FileChannels channels;
};

}  // namespace

TEST_F(FileChannelsTest, LinesAreWrittenAndAppended) {
  int number = channels.Open(path, Mode::Output);
  channels.PrintLine(number, "one");
  channels.PrintLine(number, u"zw\u00F6lf \u0416"_s);
  const QByteArray large(200000, 'x');
  channels.Print(number, large);
  channels.Close(number);
  number = channels.Open(path, Mode::Append);
  channels.PrintLine(number);
  channels.Print(number, "end");
  channels.Close(number);
  EXPECT_EQ(readWholeFile(path), "one\r\nzw\xF6lf ?\r\n" + large + "\r\nend");
}

TEST_F(FileChannelsTest, NoFileIsWrittenByTwo) {
  EXPECT_EQ(errorOf([&] { channels.Print(1, "x"); }), RuntimeError::BadFileName);
  EXPECT_EQ(errorOf([&] { channels.Open(folder.path(u"no/x"_s), Mode::Output); }), RuntimeError::PathNotFound);
  channels.Open(path, Mode::Output);
  EXPECT_EQ(errorOf([&] { channels.Open(folder.path(u"./file"_s), Mode::Append); }), RuntimeError::FileAlreadyOpen);
}

TEST_F(FileChannelsTest, AReplacementTakesTheFilesPlaceWhenItIsClosedAndOnlyThen) {
  const auto content = [&] { return readWholeFile(path).value_or("gone"); };
  const auto write = [&](const QByteArray& text) {
    const int number = channels.Open(path, Mode::Replace);
    channels.Print(number, text);
    return number;
  };
  channels.Close(write("old"));
  const int abandoned = write("half");
  EXPECT_EQ(errorOf([&] { channels.Open(path, Mode::Output); }), RuntimeError::FileAlreadyOpen);
  EXPECT_EQ(content(), "old");
  channels.Abandon(abandoned);
  EXPECT_EQ(content(), "old");
  {
    FileChannels endsEarly;
    endsEarly.Print(endsEarly.Open(path, Mode::Replace), "half");
  }
  EXPECT_EQ(content(), "old") << "what was not closed is not whole";
  channels.CloseToDisk(write("new"));
  EXPECT_EQ(content(), "new");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}

TEST_F(FileChannelsTest, ANewFileIsKnownAgainThroughALinkedFolder) {
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"real"_s));
  ASSERT_TRUE(QFile::link(folder.path(u"real"_s), folder.path(u"link"_s)));
  for (const Mode mode : {Mode::Replace, Mode::Output}) {
    const int number = channels.Open(folder.path(u"link/new"_s), mode);
    EXPECT_EQ(errorOf([&] { channels.Open(folder.path(u"real/new"_s), Mode::Append); }), RuntimeError::FileAlreadyOpen);
    channels.Abandon(number);
  }
}

// A hole in a file must not be papered over by what is printed behind it.
TEST_F(FileChannelsTest, AChannelThatFailedOnceStaysFailed) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const int number = channels.Open(path, Mode::Output);
  const QByteArray first(60000, 'A');
  const QByteArray second(10000, 'B');
  channels.Print(number, first);
  {
    const FailingDisk full(30000);
    EXPECT_EQ(errorOf([&] { channels.Print(number, second); }), RuntimeError::DiskFull);
  }
  EXPECT_EQ(errorOf([&] { channels.Print(number, second); }), RuntimeError::DiskFull);
  EXPECT_EQ(errorOf([&] { channels.Close(number); }), RuntimeError::DiskFull);
}
