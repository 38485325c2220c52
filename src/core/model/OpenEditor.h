#pragma once

#include <QtGlobal>

#include <memory>

class SceneEditor;
class clsScene;

/// A scene that is open in its editor window: the lock of its record, the window, and the scene's hold on both, for as
/// long as the object lives. When it goes, the record is free and the window knows that nobody listens to it any more;
/// it closes by itself then, when its user wants that.
class OpenEditor {
 public:
  /// Makes the window and locks the record; null when there is no window to be had.
  static std::shared_ptr<OpenEditor> make(clsScene& scene);

  ~OpenEditor() { letGo(); }
  OpenEditor(const OpenEditor&) = delete;
  OpenEditor& operator=(const OpenEditor&) = delete;

  /// Null once it was let go or is being closed.
  SceneEditor* window() const { return closing_ ? nullptr : window_; }
  bool isClosing() const { return closing_; }
  /// Takes the window off the screen, unloads it and frees the record. Yields where the window was to be seen; while
  /// it does, the scene can't be opened again. True when the window had saved anything.
  bool close();
  /// Frees the record and leaves the window to itself.
  void letGo();

 private:
  OpenEditor(qint32 sceneID, SceneEditor& window);

  qint32 sceneID_;
  SceneEditor* window_;
  bool closing_ = false;
};
