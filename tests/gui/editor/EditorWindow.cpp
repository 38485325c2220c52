#include "gui/editor/EditorWindow.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorPlacement.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

QList<frmEditor*> editorWindows() {
  QList<frmEditor*> found;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const editor = dynamic_cast<frmEditor*>(window)) {
      found.append(editor);
    }
  }
  return found;
}

void deleteUnloaded() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void EditorTest::SetUp() {
  Settings().DeleteAllSettings();
  LastEditorLeft = 0;
  LastEditorTop = 0;
  registerWindows();
  saveSmallProject(folder.path(u"Small/"_s));
  g_SceneChanges.ResetChangedByArea(1);
}

void EditorTest::TearDown() {
  // The scenes go first: they hold on to their windows.
  newProject();
  deleteUnloaded();
  qDeleteAll(editorWindows());
  sceneEditorFactory() = nullptr;
}

std::shared_ptr<clsScene> EditorTest::scene(qint32 id) const {
  return g_Project->SceneByID(id);
}

frmEditor* EditorTest::open(qint32 id) {
  const QList<frmEditor*> before = editorWindows();
  scene(id)->Edit();
  for (frmEditor* const editor : editorWindows()) {
    if (!before.contains(editor)) {
      EXPECT_TRUE(waitUntilActive(*editor));
      return editor;
    }
  }
  throw std::runtime_error("no editor window opened");
}

void EditorTest::type(frmEditor& editor, const QString& text) {
  auto& pane = control<RichTextBox>(editor, "txtMain");
  pane.moveCursor(QTextCursor::End);
  QTest::keyClicks(&pane, text);
}

void EditorTest::trigger(frmEditor& editor, const char* action) {
  control<QAction>(editor, action).trigger();
}

void EditorTest::click(frmEditor& editor, const char* button) {
  QTest::mouseClick(&control<QPushButton>(editor, button), Qt::LeftButton);
}

QString EditorTest::textInFile(qint32 id) const {
  return rtfToPlainText(fileBytes(scene(id)->RTFFileWithPath()));
}

QString EditorTest::panel(const frmEditor& editor, int number) const {
  return childOf<QLabel>(editor, u"StatusBar1(%1)"_s.arg(number)).text();
}
