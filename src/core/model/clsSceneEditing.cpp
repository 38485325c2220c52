#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/OpenEditor.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <utility>

bool clsScene::EditingScene() const {
  return editor_ != nullptr;
}

SceneEditor* clsScene::fEditor() const {
  return editor_ ? editor_->window() : nullptr;
}

/// True when the window of the scene is up. One that fails is closed again: a window that doesn't hold the scene must
/// not be saved from, and one that isn't seen can't be closed.
bool clsScene::openEditor(const char* routine, void (SceneEditor::*show)()) {
  if (editor_) {
    bringForward();
    return false;
  }
  editor_ = OpenEditor::make(*this);
  if (!editor_) {
    return false;
  }
  SceneEditor* const window = fEditor();
  SavedByEditor = false;
  const bool shown = Guard(routine, "clsScene")([&] {
    window->EditScene(ID());
    (window->*show)();
  });
  if (!shown) {
    fEditor_Finished();
  }
  return shown;
}

/// A window that is going is not to be had back.
void clsScene::bringForward() {
  if (SceneEditor* const window = fEditor()) {
    SavedByEditor = false;
    window->Activate();
  }
}

void clsScene::Edit() {
  if (openEditor("Edit", &SceneEditor::Show)) {
    toolkit().DoEvents();
  }
}

void clsScene::Add() {
  // Whichever way the window ended, it has ended.
  if (openEditor("Add", &SceneEditor::ShowModal) && fEditor() != nullptr) {
    fEditor_Finished();
  }
}

void clsScene::fEditor_Finished() {
  // The window may hold the last reference to this scene by way of the list that it stands in.
  const std::shared_ptr<clsScene> alive = weak_from_this().lock();
  // The scene may be cleared while the window goes.
  const std::shared_ptr<OpenEditor> closing = editor_;
  if (closing && closing->isClosing()) {
    return;
  }
  if (closing) {
    SavedByEditor = closing->close();
    editor_ = editor_ == closing ? nullptr : editor_;
  }
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::fEditor_Changed() {
  g_Project->MarkEdited();
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::letEditorGo() {
  if (const auto open = std::exchange(editor_, nullptr)) {
    open->letGo();
  }
}

void clsScene::setCurrentSearchString(const QString& text) {
  if (SceneEditor* const editor = fEditor()) {
    editor->setCurrentSearchString(text);
  }
}

void clsScene::SaveEditor() {
  if (SceneEditor* const editor = fEditor()) {
    editor->SaveQuietly();
  }
}

bool clsScene::EditorHoldsUnsaved() const {
  const SceneEditor* const editor = fEditor();
  return editor != nullptr && editor->HoldsUnsaved();
}

bool clsScene::AskEditor() {
  if (!EditorHoldsUnsaved()) {
    return true;
  }
  SceneEditor* const editor = fEditor();
  editor->Activate();
  return editor->AskIfSave();
}

void clsScene::MarkCharacters() {
  if (SceneEditor* const editor = fEditor()) {
    editor->MarkCharacters();
  }
}

void clsScene::UnmarkCharacters() {
  if (SceneEditor* const editor = fEditor()) {
    editor->UnmarkCharacters();
  }
}

void clsScene::UpdateEditorCombos() {
  if (SceneEditor* const editor = fEditor()) {
    editor->UpdateCombos();
  }
}
