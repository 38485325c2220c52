#include "model/Globals.h"
#include "model/SceneEditor.h"
#include "model/clsScene.h"
#include "toolkit/Toolkit.h"

/// The editor window, made on demand and listened to; null when no editor is registered.
SceneEditor* clsScene::openEditor() {
  if (fEditor_ == nullptr && sceneEditorFactory()) {
    fEditor_ = sceneEditorFactory()();
    fEditor_->Finished = [this] { fEditor_Finished(); };
    fEditor_->Changed = [this] { fEditor_Changed(); };
  }
  return fEditor_;
}

void clsScene::Edit() {
  SceneEditor* const editor = openEditor();
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
  editor->EditScene(ID());
  editor->Show();
  toolkit().DoEvents();
}

void clsScene::Add() {
  SceneEditor* const editor = openEditor();
  if (editor == nullptr) {
    return;
  }
  SavedByEditor = false;
  editor->EditScene(ID());
  editor->ShowModal();
}

void clsScene::fEditor_Finished() {
  // The window may hold the last reference to this scene by way of the list that it stands in.
  const std::shared_ptr<clsScene> alive = weak_from_this().lock();
  if (fEditor_ != nullptr) {
    SceneEditor* const editor = fEditor_;
    fEditor_ = nullptr;
    if (editor->IsVisible()) {
      editor->HideWindow();
      toolkit().DoEvents();
    }
    SavedByEditor = editor->SavedChanges();
    editor->Finished = nullptr;
    editor->Changed = nullptr;
    editor->Unload();
  }
  EditingScene = false;
  g_SceneChanges.UnLockRec(ID());
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::fEditor_Changed() {
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
