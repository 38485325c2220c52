#pragma once

#include <QString>

#include <functional>

class clsScene;

/// The window in which one scene is written, as the model sees it. It destroys itself some time after Unload,
/// so that it may raise Finished from within its own handlers.
class SceneEditor {
 public:
  virtual ~SceneEditor() = default;

  virtual void EditScene(qint32 id) = 0;
  /// Places the window and shows it without blocking.
  virtual void Show() = 0;
  /// Brings a window that is open already to the front: normal state, shown, focused.
  virtual void Activate() = 0;
  /// Shows the window and returns when it has finished.
  virtual void ShowModal() = 0;
  /// True while the window is on the screen.
  virtual bool IsVisible() const = 0;
  virtual void HideWindow() = 0;
  virtual void Unload() = 0;
  /// Saves what the window holds, if there is anything to save, without a question or a word.
  virtual void SaveQuietly() = 0;
  /// The user changed something that no save has taken up.
  virtual bool HoldsUnsaved() const = 0;
  /// Asks whether to save that, and does. False when the window is to stay as it is.
  virtual bool AskIfSave() = 0;
  /// The scene has left its book, or the window: what the window holds can't be saved any more.
  virtual void LetGo() = 0;
  /// Whether anything was saved.
  virtual bool SavedChanges() const = 0;

  virtual void setCurrentSearchString(const QString& text) = 0;
  virtual void MarkCharacters() = 0;
  virtual void UnmarkCharacters() = 0;
  virtual void UpdateCombos() = 0;

  /// The window is finished; and: saved data changed. Set by the scene, empty when it has gone.
  std::function<void()> Finished;
  std::function<void()> Changed;
};

/// Makes the editor window of a scene; registered by the shell. Without one, no editor opens.
using SceneEditorFactory = std::function<SceneEditor*()>;
SceneEditorFactory& sceneEditorFactory();
