#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <utility>

/// The editor window, made on demand and listened to; null when no editor is registered.
SceneEditor* clsScene::openEditor() {
  if (fEditor_ == nullptr && sceneEditorFactory()) {
    fEditor_ = sceneEditorFactory()();
    if (fEditor_ == nullptr) {
      return nullptr;
    }
    fEditor_->Finished = [this] { fEditor_Finished(); };
    fEditor_->Changed = [this] { fEditor_Changed(); };
  }
  return fEditor_;
}

void clsScene::Edit() {
  SceneEditor* const editor = finishing_ ? nullptr : openEditor();
  if (editor == nullptr) {
    return;
  }
  SavedByEditor = false;
  g_SceneChanges.LockRec(ID());
  if (EditingScene) {
    editor->Activate();
    return;
  }
  EditingScene = true;
  const Guard guard("Edit", "clsScene");
  const bool shown = guard([&] {
    editor->EditScene(ID());
    editor->Show();
  });
  // A window that doesn't hold the scene must not be saved from, and one that isn't seen can't be closed.
  shown ? toolkit().DoEvents() : fEditor_Finished();
}

void clsScene::Add() {
  SceneEditor* const editor = openEditor();
  if (editor == nullptr) {
    return;
  }
  SavedByEditor = false;
  const bool filled = Guard("Add", "clsScene")([&] { editor->EditScene(ID()); });
  filled ? editor->ShowModal() : fEditor_Finished();
}

void clsScene::fEditor_Finished() {
  // The window may hold the last reference to this scene by way of the list that it stands in.
  const std::shared_ptr<clsScene> alive = weak_from_this().lock();
  if (fEditor_ != nullptr && !finishing_) {
    // While the window goes, the scene can't be opened again.
    finishing_ = true;
    if (fEditor_->IsVisible()) {
      fEditor_->HideWindow();
      toolkit().DoEvents();
    }
    SavedByEditor = fEditor_->SavedChanges();
    fEditor_->Finished = nullptr;
    fEditor_->Changed = nullptr;
    std::exchange(fEditor_, nullptr)->Unload();
    finishing_ = false;
  }
  EditingScene = false;
  g_SceneChanges.UnLockRec(ID());
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::fEditor_Changed() {
  g_Project->EditedSinceSave = true;
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::setCurrentSearchString(const QString& text) {
  if (fEditor_ != nullptr) {
    fEditor_->setCurrentSearchString(text);
  }
}

void clsScene::MarkCharacters() {
  if (Locked() && fEditor_ != nullptr) {
    fEditor_->MarkCharacters();
  }
}

void clsScene::UnmarkCharacters() {
  if (Locked() && fEditor_ != nullptr) {
    fEditor_->UnmarkCharacters();
  }
}

void clsScene::UpdateEditorCombos() {
  if (Locked() && fEditor_ != nullptr) {
    fEditor_->UpdateCombos();
  }
}
