#include "gui/shell/main/StrayEditors.h"

#include "core/model/SceneEditor.h"

#include <QApplication>
#include <QWidget>

QList<SceneEditor*> strayTexts() {
  QList<SceneEditor*> found;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const editor = dynamic_cast<SceneEditor*>(window);
    if (editor != nullptr && !editor->Finished && editor->HoldsUnsaved()) {
      found.append(editor);
    }
  }
  return found;
}
