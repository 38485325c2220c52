#pragma once

#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "support/Required.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QString>

#include <gtest/gtest.h>

/// Every editor window that is there, shown or not.
QList<frmEditor*> editorWindows();
/// Lets windows that asked for it delete themselves.
void deleteUnloaded();

/// The small project saved in a folder of its own, its first scene ready to be edited in real windows.
class EditorTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  std::shared_ptr<clsScene> scene(qint32 id = 1) const;
  /// Opens the scene's editor; the test ends when no window comes.
  frmEditor* open(qint32 id = 1);
  /// Types at the end of the text.
  void type(frmEditor& editor, const QString& text);
  void trigger(frmEditor& editor, const char* action);
  void click(frmEditor& editor, const char* button);
  /// The text of the scene's file as it stands on the disk.
  QString textInFile(qint32 id = 1) const;
  /// The text of a panel of the status bar.
  QString panel(const frmEditor& editor, int number) const;

  template <class Control>
  Control& control(frmEditor& editor, const char* name) {
    return childOf<Control>(editor, QString::fromLatin1(name));
  }

  ScriptedToolkit toolkit;
  ScratchFolder folder;
};
