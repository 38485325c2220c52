#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "support/Mutations.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QFile>

#include <gtest/gtest.h>
#include <random>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

const QByteArrayList kSnippets{"\r\n", ",", "%u", "%u04", "_INDEX", "RECENT", "&H", "-", "e9"};

}  // namespace

TEST(HostileInput, AnyBytesAreASettingsFileThatSavesAndLoadsTheSame) {
  const ScratchFolder folder;
  const QString path = folder.path(u"s.ini"_s);
  const QByteArray good =
      "FRMMAINWINDOWMAXED,-1 \r\nFRMMAINWINDOWWIDTH, 12000 \r\nRECENT_INDEX, 3 \r\nRECENT_1,C:\\a.qn4\r\n"
      "RECENT_2,C:\\b.qn4\r\nRECENT_3,%u0416.qn4\r\nFONT,Times, New\r\nNAME,caf\xE9 \x80 50%\r\n";
  std::mt19937 random(4711);
  const ScriptedToolkit person;
  for (int round = 0; round < 500; ++round) {
    cSHAREDSettings settings;
    writeFile(path, mutated(good, random, kSnippets));
    settings.LoadSettings(path);
    ASSERT_TRUE(settings.SaveSettings(path));
    const QByteArray first = fileBytes(path);
    cSHAREDSettings again;
    again.LoadSettings(path);
    ASSERT_TRUE(again.SaveSettings(path));
    ASSERT_EQ(fileBytes(path), first);
  }
}

#ifdef Q_OS_UNIX
// A stranger's project may hold anything in the place of a file.
TEST(HostileInput, WhatIsNoPlainFileOrTooLargeIsNotRead) {
  const ScratchFolder folder;
  const QString pipe = folder.path(u"pipe"_s);
  const QString huge = folder.path(u"huge"_s);
  ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
  QFile file(huge);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize((qint64{1} << 30) + 1));
  file.close();
  for (const QString& path : {pipe, huge, u"/dev/zero"_s, folder.path()}) {
    QByteArray bytes("before");
    EXPECT_FALSE(Files().LoadTextFile(path, bytes)) << path;
    EXPECT_EQ(bytes, QByteArray()) << path;
  }
}
#endif
