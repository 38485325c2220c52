// The project as a whole: IDs, removal and what it leaves, order of chapters and scenes, sums.

#include "core/model/clsProject.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsLocation.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Project : public ::testing::Test {
 protected:
  void SetUp() override { makeSmallProject(); }
  void TearDown() override { entityDialogs() = {}; }

  static QList<qint32> scenesOf(qint32 chapter) {
    const IDList& ids = g_Project->ChapterByID(chapter)->SceneIDs();
    return {ids.begin(), ids.end()};
  }
};

}  // namespace

TEST_F(Project, RemovalIsForgottenByWhatRefersToIt) {
  g_Project->EndBeginningChID = 1;
  g_Project->RemoveCharByID(2);
  g_Project->RemoveLocationByID(1);
  g_Project->RemoveItemByID(1);
  const auto first = sceneAt(1);
  EXPECT_EQ(first->CharCount() + first->LocationCount() + first->ItemCount(), 1);
  EXPECT_EQ(first->ViewPointID(), 1);
  g_Project->RemoveSceneByID(1);
  EXPECT_EQ(scenesOf(1), QList<qint32>{2});
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, 1));
  g_Project->RemoveChapterByID(1);
  EXPECT_EQ(g_Project->SceneCount(), 4) << "a removed chapter's scenes stay";
  EXPECT_EQ(g_Project->EndBeginningChID, 1);
}

TEST_F(Project, ScenesAreInsertedAtOddPositionsWithoutLoss) {
  const auto chapter = g_Project->ChapterByID(3);
  const auto add = [&](qint32 position) {
    const auto scene = std::make_shared<clsScene>();
    chapter->InsertScene(scene, position);
    EXPECT_EQ(scene->BelongsToChID, 3);
    EXPECT_TRUE(scene->InScenes());
  };
  add(1);
  add(0);
  add(50);
  add(2);
  EXPECT_EQ(scenesOf(3), (QList<qint32>{6, 9, 5, 7, 8}));
  chapter->Addscene(g_Project->SceneByID(5));
  EXPECT_EQ(chapter->SceneCount(), 5) << "a scene stands in a chapter once";
  g_Project->SceneByID(5)->BelongsToChID = 1;
  chapter->UpdateBelongsToChapter();
  EXPECT_EQ(g_Project->SceneByID(5)->BelongsToChID, 3);
}

TEST_F(Project, ChaptersKeepBookOrder) {
  const auto chapter = std::make_shared<clsChapter>();
  g_Project->InsertChapter(chapter, 2);
  EXPECT_EQ(g_Project->Chapters.ChapterIndex(4), 2);
  EXPECT_EQ(g_Project->Chapters.ChapterID(3), 2);
  const auto last = std::make_shared<clsChapter>();
  g_Project->InsertChapter(last, 70);
  EXPECT_EQ(g_Project->Chapters.ChapterIndex(5), 5);
}

TEST_F(Project, SumsLeaveUnusedOutAndLettersDoNot) {
  EXPECT_EQ(g_Project->ChapterByID(2)->Wordcount(false), 4);
  EXPECT_EQ(g_Project->ChapterByID(2)->Wordcount(true), 5);
  EXPECT_EQ(g_Project->ChapterByID(3)->Wordcount(false), 0);
  EXPECT_EQ(g_Project->ChapterByID(3)->Wordcount(true), 2);
  EXPECT_EQ(g_Project->ChapterByID(3)->Lettercount(), 13);
  EXPECT_EQ(g_Project->Wordcount(false), 9);
  EXPECT_TRUE(g_Project->IsViewpointSomewhere(2));
  EXPECT_FALSE(g_Project->IsViewpointSomewhere(3));
}

TEST_F(Project, UnsavedTextsAreThoseOfTheScenesThatAreInItNow) {
  const ScratchFolder folder;
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  EXPECT_EQ(g_Project->UnsavedTexts(), 5);
  g_Project->SaveQN4(false);
  EXPECT_EQ(g_Project->UnsavedTexts(), 0);
  const auto scene = sceneAt(2);
  scene->setTextRTF("{\\rtf1 Anew}");
  EXPECT_EQ(g_Project->UnsavedTexts(), 1);
  g_Project->RemoveSceneByID(scene->ID());
  EXPECT_EQ(g_Project->UnsavedTexts(), 0);
  g_Project->Addscene(scene);
  EXPECT_EQ(g_Project->UnsavedTexts(), 1);
  scene->Save();
  EXPECT_EQ(g_Project->UnsavedTexts(), 0);
}

TEST_F(Project, DaysLeftCountBothEnds) {
  for (const auto& [start, deadline, today, left] :
       {std::tuple{0, 100, 100.9, 1}, {90, 100, 80.0, 11}, {90, 100, 95.5, 6}, {0, 100, 102.0, -1}}) {
    g_Project->setDeadlineStartDate(3, start);
    g_Project->setDeadlineDate(3, deadline);
    EXPECT_EQ(g_Project->DaysLeft(3, today), left);
  }
}

TEST_F(Project, ANewEntityIsAddedAndSavedOnlyWhenItsDialogWasAccepted) {
  ScriptedToolkit screen;
  const ScratchFolder scratch;
  g_Project->FileWithPath = scratch.path(u"Small.qn4"_s);
  EXPECT_FALSE(g_Project->EnterNewChapter()) << "no dialog, no chapter";
  bool accept = false;
  entityDialogs().chapter = [&](const SheetSubject&, const ChapterDetails& given) {
    EXPECT_EQ(given, ChapterDetails());
    return accept ? std::optional(ChapterDetails{u"The end"_s, u"All is told."_s}) : std::nullopt;
  };
  entityDialogs().thing = [&](const SheetSubject& subject, const ThingDetails&) {
    EXPECT_TRUE(g_LocationChanges.IsLocked(subject.id));
    return accept ? std::optional(ThingDetails{u"Sea"_s, {}, {}}) : std::nullopt;
  };
  EXPECT_FALSE(g_Project->EnterNewChapter() || g_Project->EnterNewLocation());
  EXPECT_EQ(filesBelow(scratch.path()).size(), 0);
  accept = true;
  EXPECT_TRUE(g_Project->EnterNewChapter());
  EXPECT_TRUE(g_Project->EnterNewLocation());
  EXPECT_FALSE(g_LocationChanges.AnyLocked());
  EXPECT_TRUE(g_LocationChanges.HasChanged(3, 1));
  const QByteArray saved = fileBytes(g_Project->FileWithPath);
  EXPECT_TRUE(saved.contains("The%20end") && saved.contains("<Title>Sea</Title>"));
}

TEST_F(Project, ADialogThatIsOpenComesForwardAndIsNotOpenedTwice) {
  QStringList calls;
  entityDialogs().bringForward = [&](EntityKind kind, qint32 id) {
    calls += QString::number(static_cast<int>(kind)) + u':' + QString::number(id);
  };
  const auto person = g_Project->CharByID(2);
  entityDialogs().character = [&](const SheetSubject& subject, const CharacterDetails& given, qint32 tab) {
    calls += u"edit %1"_s.arg(tab);
    EXPECT_FALSE(person->Edit(1));
    EXPECT_TRUE(g_CharChanges.IsLocked(subject.id));
    return std::optional(given);
  };
  const auto chapter = g_Project->ChapterByID(1);
  entityDialogs().chapter = [&](const SheetSubject&, const ChapterDetails& given) {
    calls += u"%1 words in %2"_s.arg(given.Wordcount).arg(given.SceneDescs.size());
    EXPECT_FALSE(chapter->Edit());
    return std::optional(ChapterDetails{u"New name"_s, {}});
  };
  EXPECT_TRUE(person->Edit(4));
  EXPECT_TRUE(chapter->Edit());
  EXPECT_EQ(calls, (QStringList{u"edit 4"_s, u"1:2"_s, u"5 words in 2"_s, u"0:1"_s}));
  EXPECT_EQ(chapter->Title, u"New name"_s);
  EXPECT_FALSE(person->EditOpen || chapter->EditOpen || g_CharChanges.AnyLocked());
}

TEST_F(Project, WhatLeavesTheBookWhileItsDialogIsOpenIsNotSaved) {
  const std::function<void()> leave[] = {[] { g_Project->RemoveCharByID(2); }, [] { newProject(); }};
  for (const auto& go : leave) {
    makeSmallProject();
    entityDialogs().character = [&](const SheetSubject& subject, const CharacterDetails& given, qint32) {
      EXPECT_TRUE(subject.isThere());
      go();
      EXPECT_FALSE(subject.isThere());
      return std::optional(given);
    };
    EXPECT_FALSE(g_Project->CharByID(2)->Edit(0));
    EXPECT_FALSE(g_CharChanges.AnyLocked());
    makeSmallProject();
  }
  ScriptedToolkit screen;
  entityDialogs().thing = [&](const SheetSubject&, const ThingDetails& given) {
    newProject();
    return std::optional(given);
  };
  EXPECT_FALSE(g_Project->EnterNewItem());
  EXPECT_EQ(g_Project->ItemCount(), 0);
}

TEST_F(Project, ADialogThatFailsCountsAsCancelledAndReleasesItsRecord) {
  entityDialogs().character = [](const SheetSubject&, const CharacterDetails&,
                                 qint32) -> std::optional<CharacterDetails> {
    throw RuntimeError(RuntimeError::OutOfMemory);
  };
  entityDialogs().chapter = [](const SheetSubject&, const ChapterDetails&) -> std::optional<ChapterDetails> {
    throw RuntimeError(RuntimeError::OutOfMemory);
  };
  const auto person = g_Project->CharByID(2);
  const auto chapter = g_Project->ChapterByID(1);
  EXPECT_FALSE(person->Edit(0) || chapter->Edit());
  EXPECT_FALSE(g_Project->EnterNewChapter());
  EXPECT_FALSE(person->EditOpen || chapter->EditOpen || g_CharChanges.AnyLocked());
  EXPECT_TRUE(Logging().CurrentAction().contains(u"(7) in Add of module clsChapter"_s));
}
