// The collections of entities, and what an entity keeps when it is cleared.

#include "core/model/Collections.h"

#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Elements.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class Collections : public ::testing::Test {
 protected:
  void SetUp() override { makeSmallProject(); }

  static bool logged(const QString& what) { return Logging().CurrentAction().contains(what); }
  static QStringList namesOf(const clsCharacters& characters) {
    QStringList names;
    for (const auto& character : characters) {
      names += character->Title();
    }
    return names;
  }
  static std::shared_ptr<clsCharacter> person(const QString& name, qint32 id = 0) {
    auto made = id == 0 ? std::make_shared<clsCharacter>() : withID<clsCharacter>(id);
    made->setTitle(name);
    return made;
  }
};

}  // namespace

TEST_F(Collections, AssigningByIndexReplacesAndAboveTheCountAdds) {
  clsCharacters& chars = g_Project->Chars;
  chars.setCharByIndex(2, person(u"Nell"_s, 9));
  EXPECT_EQ(namesOf(chars), (QStringList{u"Anna"_s, u"Nell"_s, u"Пётр"_s}));
  EXPECT_EQ(chars.CharByID(9)->Title(), u"Nell"_s);
  EXPECT_EQ(chars.CharByID(2)->Title(), QString()) << "the one that was replaced is found no more";
  chars.setCharByIndex(40, person(u"Last"_s));
  EXPECT_EQ(required(chars.CharByIndex(4), u"fourth character"_s).ID(), 10);
  chars.setCharByIndex(1, person(u"Twin"_s, 10));
  EXPECT_EQ(required(chars.CharByIndex(1), u"first character"_s).Title(), u"Anna"_s);
  EXPECT_TRUE(logged(u"(457) in CharByIndex of module clsCharacters"_s));
}

TEST_F(Collections, BehindTheHighestIDThatThereIsTheLowestFreeOneIsTaken) {
  clsCharacters& chars = g_Project->Chars;
  const auto nextTaken = [&chars] {
    chars.setCharByIndex(chars.Count() + 1, person(u"New"_s));
    return required(chars.CharByIndex(chars.Count()), u"last character"_s).ID();
  };
  chars.setCharByIndex(4, person(u"Last"_s, std::numeric_limits<qint32>::max()));
  EXPECT_EQ(nextTaken(), 4);
  EXPECT_EQ(nextTaken(), 5);
  chars.RemoveCharByID(2);
  EXPECT_EQ(nextTaken(), 2);
  EXPECT_EQ(nextTaken(), 6);
  chars.RemoveCharByIndex(1);
  EXPECT_EQ(nextTaken(), 1);
}

TEST_F(Collections, RemovingWhatIsNotThereIsLoggedAndChangesNothing) {
  g_Project->Chars.RemoveCharByIndex(0);
  EXPECT_TRUE(logged(u"(9) in RemoveCharByIndex of module clsCharacters"_s));
  g_Project->Chapters.RemoveChapterByIndex(4);
  EXPECT_FALSE(logged(u"in RemoveChapterByIndex"_s));
  g_Project->Notes.RemoveNoteByID(77);
  EXPECT_TRUE(logged(u"(5) in RemoveNoteByID of module clsNotes"_s));
  EXPECT_EQ(g_Project->CharCount() + g_Project->ChapterCount() + g_Project->NoteCount(), 7);
  g_Project->Chars.RemoveCharByIndex(1);
  EXPECT_EQ(namesOf(g_Project->Chars), (QStringList{u"Zoë"_s, u"Пётр"_s}));
  EXPECT_EQ(g_Project->CharByID(1)->Title(), QString());
}

TEST_F(Collections, NoObjectIsLoggedAndAddedNowhere) {
  g_Project->AddChapter(g_Project->ChapterByIndex(99));
  g_Project->Addscene(nullptr);
  g_Project->Chars.setCharByIndex(1, nullptr);
  g_Project->ChapterByID(1)->Addscene(g_Project->SceneByIndex(99));
  g_Project->ChapterByID(1)->InsertScene(nullptr, 1);
  EXPECT_TRUE(logged(u"(91) in InsertScene of module clsChapter"_s));
  EXPECT_EQ(g_Project->ChapterCount() + g_Project->SceneCount() + g_Project->CharCount(), 11);
  EXPECT_EQ(g_Project->ChapterByID(1)->SceneCount(), 2);
}

TEST_F(Collections, ASceneThatWasTakenOutComesBackWholeWithItsChapter) {
  const auto scene = g_Project->SceneByID(1);
  g_Project->RemoveSceneByID(1);
  EXPECT_FALSE(scene->InScenes());
  g_Project->ChapterByID(2)->Addscene(scene);
  EXPECT_EQ(g_Project->SceneByID(1), scene);
  const auto other = std::make_shared<clsScene>();
  g_Project->Scenes.setSceneByIndex(1, other);
  EXPECT_TRUE(other->InScenes());
  EXPECT_EQ(g_Project->SceneByIndex(1), other);
  const auto twin = withID<clsScene>(other->ID());
  g_Project->Scenes.setSceneByIndex(2, twin);
  EXPECT_FALSE(twin->InScenes() || g_Project->SceneByIndex(2) == twin);
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

TEST_F(Collections, ClearedEntitiesKeepWhatTheirKindKeeps) {
  const auto character = g_Project->CharByID(1);
  character->Bio = character->Goals = character->Notes = character->DescText = character->Tags = u"x"_s;
  character->Clear();
  EXPECT_EQ(character->Bio + character->Goals + character->Notes + character->DescText + character->Title(), QString());
  EXPECT_TRUE(character->major && character->SortOrder == 1 && character->Tags == u"x"_s);
  EXPECT_EQ(character->FullName, u"Anna Marsh"_s);
  clsLocation location;
  location.Title = location.DescText = location.Tags = u"x"_s;
  location.Unused = true;
  location.SortOrder = 3;
  location.Clear();
  EXPECT_TRUE(location.Unused && location.SortOrder == 3 && location.Tags == u"x"_s);
  EXPECT_EQ(location.Title + location.DescText, QString());
  clsNote note;
  note.Title = note.DescText = note.Tags = u"x"_s;
  note.Clear();
  EXPECT_EQ(note.Title + note.DescText + note.Tags, u"x"_s);
  const auto chapter = g_Project->ChapterByID(2);
  chapter->Clear();
  EXPECT_EQ(chapter->SceneCount(), 0);
  EXPECT_EQ(chapter->Title + chapter->DescText, u"What happens in Departure"_s);
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
