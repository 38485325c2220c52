// The collections of entities, and what an entity keeps when it is cleared.

#include "core/model/Collections.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Collections : public ::testing::Test {
 protected:
  void SetUp() override { makeSmallProject(); }
};

}  // namespace

TEST_F(Collections, ASceneThatWasTakenOutComesBackWholeWithItsChapter) {
  const auto scene = g_Project->SceneByID(1);
  g_Project->RemoveSceneByID(1);
  EXPECT_FALSE(scene->InScenes());
  g_Project->ChapterByID(2)->Addscene(scene);
  EXPECT_EQ(g_Project->SceneByID(1), scene);
}

TEST_F(Collections, ClearReleasesScenesAndLeavesChaptersAsTheyAre) {
  const auto scene = g_Project->SceneByID(1);
  const auto chapter = g_Project->ChapterByID(1);
  const auto character = g_Project->CharByID(1);
  g_SceneChanges.LockRec(1);
  g_SceneChanges.MarkUpdated(1);
  g_Project->Clear();
  EXPECT_EQ(g_Project->SceneCount() + g_Project->ChapterCount() + g_Project->CharCount() + g_Project->NoteCount(), 0);
  EXPECT_FALSE(g_SceneChanges.IsLocked(1) || g_SceneChanges.HasChanged(1, 1));
  EXPECT_EQ(scene->Title, u"Arrival 1"_s);
  EXPECT_TRUE(scene->TextRTF().isEmpty() && scene->CharCount() == 0 && scene->ConvertedToBodyText().isEmpty());
  EXPECT_EQ(scene->Wordcount(), 0);
  EXPECT_EQ(chapter->SceneCount(), 2);
  EXPECT_EQ(character->Title(), QString());
}

TEST_F(Collections, ARenamedCharacterIsMarkedUnlessItBecomesThePlaceholder) {
  g_CharChanges.ResetAllChanged(1);
  const auto character = g_Project->CharByID(1);
  character->setTitle(u"n/A"_s);
  EXPECT_FALSE(g_CharChanges.HasChanged(1, 1));
  character->setTitle(u"Ann"_s);
  EXPECT_TRUE(g_CharChanges.HasChanged(1, 1) && g_CharChanges.HasChanged(1, 5));
}

TEST_F(Collections, TextsAreWrittenWhenDueOrForcedAndAFailureKeepsTheOthersGoing) {
  const ScratchFolder scratch;
  g_Project->FileWithPath = scratch.path(u"a.qn4"_s);
  QDir(scratch.path()).mkpath(u"RTF"_s);
  g_Project->SceneByID(2)->SaveRTF(false);
  QFile::remove(scratch.path(u"RTF/RTF_00001.rtf"_s));
  QDir(scratch.path()).mkpath(u"RTF/RTF_00001.rtf"_s);  // A folder where the scene's file should be.
  g_Project->SceneByID(2)->setTextRTF("new");
  EXPECT_FALSE(g_Project->Scenes.SaveScenesText(false)) << "its book could not be opened";
  const auto due = [](qint32 id) { return g_Project->SceneByID(id)->RTFChanged(); };
  EXPECT_TRUE(due(2));
  EXPECT_FALSE(due(1) || due(3) || due(4) || due(5));
  EXPECT_EQ(filesBelow(scratch.path()).size(), 4);
  const QString first = g_Project->SceneByID(1)->RTFFileWithPath();
  writeFile(first, "another program's");
  g_Project->Scenes.SaveScenesText(true);
  EXPECT_EQ(fileBytes(first), "another program's");
  g_Project->SceneByID(1)->setTextRTF("mine");
  g_Project->Scenes.SaveScenesText(true);
  EXPECT_EQ(fileBytes(first), "another program's");
  EXPECT_TRUE(due(1)) << "nobody was asked";
  QFile::remove(first);
  g_Project->Scenes.SaveScenesText(false);
  EXPECT_TRUE(QFile::remove(first));
  g_Project->Scenes.SaveScenesText(false);
  EXPECT_FALSE(QFile::exists(first));
  g_Project->Scenes.SaveScenesText(true);
  EXPECT_EQ(fileBytes(first), g_Project->SceneByID(1)->TextRTF());
}
