#include "core/model/OpenEditor.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsScene.h"

std::shared_ptr<OpenEditor> OpenEditor::make(clsScene& scene) {
  SceneEditor* const window = sceneEditorFactory() ? sceneEditorFactory()() : nullptr;
  if (window == nullptr) {
    return nullptr;
  }
  window->Finished = [&scene] { scene.fEditor_Finished(); };
  window->Changed = [&scene] { scene.fEditor_Changed(); };
  return std::shared_ptr<OpenEditor>(new OpenEditor(scene.ID(), *window));
}

OpenEditor::OpenEditor(qint32 sceneID, SceneEditor& window) : sceneID_(sceneID), window_(&window) {
  g_SceneChanges.LockRec(sceneID_);
}

bool OpenEditor::close() {
  closing_ = true;
  // The scene may be let go while the window goes; the window is to be unloaded all the same.
  SceneEditor& window = *window_;
  if (window.IsVisible()) {
    window.HideWindow();
    Guard("fEditor_Finished", "clsScene")([] { toolkit().DoEvents(); });
  }
  const bool saved = window.SavedChanges();
  letGo();
  window.Unload();
  return saved;
}

void OpenEditor::letGo() {
  if (window_ == nullptr) {
    return;
  }
  window_->Finished = nullptr;
  window_->Changed = nullptr;
  window_->LetGo();
  window_ = nullptr;
  g_SceneChanges.UnLockRec(sceneID_);
}
