// Whole novels as project folders: loaded and saved, everything on disk is the same byte for byte.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/BackupsProject.h"
#include "support/Archives.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class Novels : public ::testing::Test {
 protected:
  void SetUp() override {
    if (sharedFolder().isEmpty()) {
      GTEST_SKIP() << "the shared novels are not here";
    }
  }
  void TearDown() override { newProject(); }
};

}  // namespace

TEST_F(Novels, ComeBackByteForByte) {
  const QStringList novels{u"pride-and-prejudice"_s, u"war-and-peace"_s};
  const QStringList styles{u"richedit"_s, u"word"_s, u"mixed"_s};
  for (const QString& novel : novels) {
    for (const QString& style : styles) {
      const ScratchFolder scratch;
      const QString path = makeNovel(scratch.path(), novel, {u"--style"_s, style});
      ASSERT_FALSE(path.isEmpty());
      const auto before = filesBelow(scratch.path());
      newProject();
      ASSERT_TRUE(g_Project->Load(path, false));
      ASSERT_TRUE(g_Project->SaveQN4(false));
      EXPECT_TRUE(filesBelow(scratch.path()) == before) << novel << ' ' << style;
    }
  }
}

TEST_F(Novels, AreWholeInTheirCompleteBackup) {
  const ScratchFolder scratch;
  const QString path = makeNovel(scratch.path(), u"war-and-peace"_s, {});
  const auto files = filesBelow(scratch.path());
  newProject();
  ASSERT_TRUE(g_Project->Load(path, false));
  const BackupOutcome outcome = backUpProject(*g_Project, true, false);
  EXPECT_EQ(outcome.causes, QStringList());
  EXPECT_TRUE(othersCanRead(outcome.archive));
  EXPECT_TRUE(verifyBackup(*g_Project, outcome.archive).isWhole());
  EXPECT_TRUE(membersOf(outcome.archive) == files);
}

// What a scene counts is its words, not how they were written down. The whole novels were counted by other means:
// a plain text parted at white space, dashes and double hyphens.
TEST_F(Novels, CountTheSameInEveryStyle) {
  for (const auto& [novel, words] :
       {std::pair(u"pride-and-prejudice"_s, 121748), std::pair(u"war-and-peace"_s, 563510)}) {
    std::vector<std::vector<std::pair<qint32, qint32>>> counts;
    for (const QString& style : {u"richedit"_s, u"word"_s}) {
      const ScratchFolder scratch;
      const QString path = makeNovel(scratch.path(), novel, {u"--stale"_s, u"--style"_s, style});
      newProject();
      ASSERT_TRUE(g_Project->Load(path, false) && g_Project->SaveQN4(false));
      newProject();
      ASSERT_TRUE(g_Project->Load(path, false));
      counts.emplace_back();
      qint32 total = 0;
      for (const auto& scene : g_Project->Scenes) {
        counts.back().emplace_back(scene->Wordcount(), scene->Lettercount());
        total += scene->Wordcount();
        EXPECT_GT(counts.back().back().first, 0) << scene->Title;
      }
      EXPECT_NEAR(total, words, words / 2000) << novel;
    }
    EXPECT_FALSE(counts[0].empty());
    EXPECT_TRUE(counts[0] == counts[1]) << novel;
  }
}

// The sample is the first thing that a newcomer opens: it must be written as this program writes it, counts too.
TEST(Sample, IsAsThisProgramWritesIt) {
  const ScratchFolder scratch;
  const QString name = u"The-Return-Fare"_s;
  const auto sample = filesBelow(QStringLiteral(QUILLANE_SOURCE_DIR "/samples/") + name);
  ASSERT_EQ(sample.size(), 29);
  QDir(scratch.path()).mkdir(u"RTF"_s);
  for (auto file = sample.begin(); file != sample.end(); ++file) {
    writeFile(scratch.path(file.key()), file.value());
  }
  newProject();
  ASSERT_TRUE(g_Project->Load(scratch.path(name + u".qn4"_s), false));
  for (const auto& scene : g_Project->Scenes) {
    const qint32 words = scene->Wordcount();
    const qint32 letters = scene->Lettercount();
    scene->ForceWordcount();
    EXPECT_EQ(scene->Wordcount(), words) << scene->Title;
    EXPECT_EQ(scene->Lettercount(), letters) << scene->Title;
  }
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_TRUE(filesBelow(scratch.path()) == sample);
  newProject();
}
