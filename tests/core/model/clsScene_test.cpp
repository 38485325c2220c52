// A scene: its text and counts, its viewpoint, and its life with an editor window.

#include "core/model/clsScene.h"

#include "core/infra/RuntimeError.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// An editor without a window; what happens to it is noted in `calls`.
class RecordingEditor : public SceneEditor {
 public:
  explicit RecordingEditor(QStringList& calls) : calls_(calls) {}
  void EditScene(qint32 id) override {
    calls_ += u"EditScene %1"_s.arg(id);
    if (whenFilled) {
      whenFilled();
    }
  }
  void Show() override {
    if (whenShown) {
      whenShown();
    }
    note(u"Show"_s, true);
  }
  void SaveQuietly() override { calls_ += u"Save"_s; }
  void Activate() override { calls_ += u"Activate"_s; }
  void ShowModal() override {
    calls_ += u"ShowModal"_s;
    if (whileModal) {
      whileModal();
    }
  }
  bool IsVisible() const override { return visible_; }
  void HideWindow() override { note(u"Hide"_s, false); }
  void Unload() override {
    calls_ += u"Unload"_s;
    delete this;
  }
  bool HoldsUnsaved() const override { return false; }
  bool AskIfSave() override { return true; }
  void LetGo() override {}
  bool SavedChanges() const override { return saved; }
  void setCurrentSearchString(const QString& text) override { calls_ += u"Search "_s + text; }
  void MarkCharacters() override { calls_ += u"Mark"_s; }
  void UnmarkCharacters() override { calls_ += u"Unmark"_s; }
  void UpdateCombos() override { calls_ += u"Combos"_s; }

  bool saved = false;
  std::function<void()> whenFilled;
  std::function<void()> whenShown;
  std::function<void()> whileModal;

 private:
  void note(const QString& call, bool visible) {
    calls_ += call;
    visible_ = visible;
  }

  QStringList& calls_;
  bool visible_ = false;
};

class Scene : public ::testing::Test {
 protected:
  void SetUp() override {
    makeSmallProject();
    editorsAre([](RecordingEditor&) {});
  }
  void TearDown() override { sceneEditorFactory() = nullptr; }

  static QList<qint32> characters(clsScene& scene) { return {scene.CharIDs().begin(), scene.CharIDs().end()}; }

  /// Every editor is made so from now on; Unload deletes it.
  void editorsAre(const std::function<void(RecordingEditor&)>& prepared) {
    sceneEditorFactory() = [this, prepared] {
      editor_ = new RecordingEditor(calls_);
      prepared(*editor_);
      return editor_;
    };
  }

  /// The last one that was made.
  RecordingEditor& editor() const { return required(editor_, u"editor"_s); }

  QStringList calls_;
  RecordingEditor* editor_ = nullptr;
};

}  // namespace

TEST_F(Scene, ChangingTheViewpointKeepsTheOldOneAndSettingReplacesIt) {
  using IDs = QList<qint32>;
  const std::tuple<IDs, qint32, IDs, IDs> cases[] = {
      {{3, 5}, 5, {5, 3}, {5}}, {{3, 5}, 7, {7, 3, 5}, {7, 5}}, {{}, 7, {7}, {7}}, {{4, 6}, 4, {4, 6}, {4, 6}}};
  for (const auto& [before, id, afterChange, afterSetting] : cases) {
    clsScene changed;
    clsScene set;
    for (const qint32 there : before) {
      changed.AddCharByID(there);
      set.AddCharByID(there);
    }
    changed.ChangeViewpointByID(id);
    set.SetViewpointByID(id);
    EXPECT_EQ(characters(changed), afterChange);
    EXPECT_EQ(characters(set), afterSetting);
  }
}

TEST_F(Scene, WithoutCharactersHasTheViewpointNA) {
  const auto scene = sceneAt(2);
  EXPECT_EQ(scene->ViewPointID(), 0);
  EXPECT_EQ(scene->ViewPointChar()->Title(), u"N/A"_s);
  scene->AddCharByID(3);
  scene->AddCharByID(3);
  EXPECT_EQ(scene->CharCount(), 1);
  EXPECT_EQ(scene->ViewPointChar()->Title(), u"Пётр"_s);
}

TEST_F(Scene, OnlyAChangeOfTextOrAnEmptyOneMakesItDue) {
  const ScratchFolder scratch;
  g_Project->FileWithPath = scratch.path(u"a.qn4"_s);
  QDir(scratch.path()).mkdir(u"RTF"_s);
  clsScene scene;
  scene.setTextRTF(simpleRtf("one two"));
  EXPECT_EQ(scene.Wordcount(), 2);
  scene.SaveRTF(false);
  EXPECT_EQ(scene.RTFFilename(), u"RTF_00001.rtf"_s);
  EXPECT_FALSE(scene.RTFChanged());
  scene.setTextRTF(simpleRtf("one two"));
  EXPECT_FALSE(scene.RTFChanged() || scene.WordsStale());
  scene.setTextRTF(simpleRtf("one two three"));
  EXPECT_TRUE(scene.RTFChanged() && scene.WordsStale());
  EXPECT_EQ(scene.Wordcount(), 3);
  EXPECT_EQ(scene.Lettercount(), 13);
  scene.setTextRTF({});
  scene.SaveRTF(false);
  scene.setTextRTF({});
  EXPECT_TRUE(scene.RTFChanged()) << "an empty text always counts as a change";
  EXPECT_EQ(scene.Wordcount(), 0);
}

TEST_F(Scene, AWindowThatCannotShowTheSceneIsClosedAgain) {
  const ScriptedToolkit screen;
  const auto scene = sceneAt(1);
  editorsAre([](RecordingEditor& made) { made.whenFilled = [] { throw RuntimeError(RuntimeError::OutOfMemory); }; });
  scene->Edit();
  EXPECT_EQ(calls_, (QStringList{u"EditScene 1"_s, u"Unload"_s}));
  EXPECT_FALSE(scene->Locked() || scene->EditingScene());
  EXPECT_FALSE(g_Project->CreateNewScene(1, 0));
  editorsAre([](RecordingEditor& made) { made.whenShown = [] { throw RuntimeError(RuntimeError::OutOfMemory); }; });
  scene->Edit();
  EXPECT_FALSE(scene->EditingScene());
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_FALSE(g_SceneChanges.AnyLocked());
}

TEST_F(Scene, EditLocksTheRecordAndOpensOneWindowOnly) {
  const ScriptedToolkit screen;
  const auto scene = sceneAt(1);
  g_SceneChanges.ResetAllChanged(scene->ID());
  scene->Edit();
  scene->Edit();
  EXPECT_EQ(calls_, (QStringList{u"EditScene 1"_s, u"Show"_s, u"Activate"_s}));
  EXPECT_TRUE(scene->Locked());
  EXPECT_FALSE(g_SceneChanges.HasChanged(1, 1));
  editor().Changed();
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, 1));
  g_SceneChanges.ResetAllChanged(1);
  calls_.clear();
  editor().saved = true;
  editor().Finished();
  EXPECT_EQ(calls_, (QStringList{u"Hide"_s, u"Unload"_s}));
  EXPECT_TRUE(scene->SavedByEditor);
  EXPECT_FALSE(scene->Locked() || scene->EditingScene());
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, 1));
  g_Project->MarkAllCharInEditorWindows();
  EXPECT_EQ(calls_.size(), 2) << "a closed window is not asked any more";
}

TEST_F(Scene, WhatConcernsEditorWindowsReachesEachOpenOneAndNoOther) {
  const ScriptedToolkit screen;
  g_Project->SceneByIndex(1)->Edit();
  g_Project->SceneByIndex(3)->Edit();
  const auto tell = [] {
    for (const auto& scene : g_Project->Scenes) {
      scene->setCurrentSearchString(u"sea"_s);
    }
    g_Project->MarkAllCharInEditorWindows();
    g_Project->UnMarkAllCharInEditorWindows();
    g_Project->UpdateCombosInEditorWindows();
  };
  calls_.clear();
  tell();
  const QStringList each{u"Search sea"_s, u"Search sea"_s, u"Mark"_s,   u"Mark"_s,
                         u"Unmark"_s,     u"Unmark"_s,     u"Combos"_s, u"Combos"_s};
  EXPECT_EQ(calls_, each);
  g_Project->SceneByIndex(1)->fEditor_Finished();
  g_Project->SceneByIndex(3)->fEditor_Finished();
  calls_.clear();
  tell();
  EXPECT_EQ(calls_, QStringList());
}

// A window outlives its scene's hold on it in some of these: it hears of it then, and can be closed.
TEST_F(Scene, HoweverItsEditorEndsNothingStaysLocked) {
  ScriptedToolkit screen;
  struct Way {
    const char* name;
    std::function<void()> end;
    bool unloads;
  };
  const auto whileItGoes = [&](const std::function<void()>& happens) {
    screen.onYield = happens;
    editor_->Finished();
  };
  const auto clearScene = [] { g_Project->SceneByID(1)->Clear(); };
  const Way ways[] = {
      {"finished", [&] { editor_->Finished(); }, true},
      {"scene cleared", clearScene, false},
      {"scene removed", [] { g_Project->RemoveSceneByID(1); }, false},
      {"project cleared", [] { g_Project->Clear(); }, false},
      {"project replaced", [] { g_Project = std::make_unique<clsProject>(); }, false},
      {"cleared while the window goes", [&] { whileItGoes(clearScene); }, true},
      {"removed while the window goes", [&] { whileItGoes([] { g_Project->RemoveSceneByID(1); }); }, true},
      {"a failure while the window goes", [&] { whileItGoes([] { throw RuntimeError(RuntimeError::DiskFull); }); },
       true},
  };
  for (const Way& way : ways) {
    makeSmallProject();
    g_Project->SceneByID(1)->Edit();
    ASSERT_TRUE(g_SceneChanges.IsLocked(1));
    calls_.clear();
    way.end();
    EXPECT_FALSE(g_SceneChanges.AnyLocked()) << way.name;
    EXPECT_FALSE(g_Project->SceneByID(1)->EditingScene()) << way.name;
    EXPECT_EQ(calls_.count(u"Unload"_s), way.unloads ? 1 : 0) << way.name;
    if (!way.unloads) {
      EXPECT_FALSE(editor_->Finished || editor_->Changed) << way.name;
      editor_->Unload();
    }
  }
}

TEST_F(Scene, ANewScenesWindowIsNeitherLoadedTwiceNorLeftOpen) {
  const ScriptedToolkit screen;
  const std::function<void()> ways[] = {
      [] {},
      [] { throw RuntimeError(RuntimeError::OutOfMemory); },
      [] { g_Project->SceneByID(6)->Edit(); },
  };
  for (const auto& way : ways) {
    makeSmallProject();
    calls_.clear();
    editorsAre([&](RecordingEditor& made) {
      made.whileModal = [&] {
        EXPECT_TRUE(g_SceneChanges.IsLocked(6));
        way();
      };
    });
    EXPECT_FALSE(g_Project->CreateNewScene(1, 0));
    EXPECT_EQ(calls_.count(u"EditScene 6"_s), 1);
    EXPECT_EQ(calls_.count(u"Unload"_s), 1);
    EXPECT_FALSE(g_SceneChanges.AnyLocked());
    EXPECT_EQ(g_Project->SceneCount(), 5);
  }
}

TEST_F(Scene, CannotBeOpenedAgainWhileItsWindowGoes) {
  ScriptedToolkit screen;
  const auto scene = sceneAt(1);
  scene->Edit();
  calls_.clear();
  screen.onYield = [&] { scene->Edit(); };
  editor().Finished();
  EXPECT_EQ(calls_, (QStringList{u"Hide"_s, u"Unload"_s}));
  EXPECT_FALSE(scene->Locked() || scene->EditingScene());
  scene->Edit();
  EXPECT_TRUE(scene->Locked() && scene->EditingScene());
  editor().Finished();
}

TEST_F(Scene, ANewSceneStaysOnlyWhenItsEditorSaved) {
  for (const bool saved : {false, true}) {
    editorsAre([saved](RecordingEditor& made) {
      made.saved = saved;
      made.whileModal = [&made] { made.Finished(); };
    });
    EXPECT_EQ(g_Project->CreateNewScene(2, 1), saved);
    EXPECT_EQ(g_Project->SceneCount(), saved ? 6 : 5);
    EXPECT_EQ(g_Project->ChapterByID(2)->SceneCount(), saved ? 3 : 2);
    EXPECT_FALSE(g_SceneChanges.AnyLocked());
  }
  EXPECT_EQ(g_Project->ChapterByID(2)->SceneID(1), 6);
}
