#pragma once

#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"
#include "support/Required.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QString>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

class frmEditor;

/// The main window over a program folder of its own. Each start makes a fresh window, as a new process would.
class ShellTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The small project, saved below the scratch folder and then forgotten; its path.
  QString smallProject(const QString& name = QStringLiteral("Small"));
  /// Lines of the settings file that the next start finds, such as "LastProjectFile,/a/b".
  void writeSettings(const QStringList& lines);
  QString settingsText() const;
  QString logText() const;

  /// A whole start; the window is shown unless the program has ended by then.
  frmMain& start(const QString& commandLine = {});
  /// With a settings file, so that nobody is greeted, and this project on the command line.
  frmMain& startWith(const QString& project);
  frmMain& window() { return required(window_, QStringLiteral("main window")); }
  /// Ends the program by its own way out and forgets the window.
  void endProgram();

  /// Lets a timer come round that a start holds back: machines do other work too.
  void hurry(const char* timer) { control<QTimer>(timer).setInterval(1); }

  void trigger(const char* entry);
  bool isEnabled(const char* entry);
  bool isShown(const char* entry);
  QString panel(const char* key);
  ListView& list(const char* name) { return control<ListView>(name); }
  /// A cell of a row that there has to be.
  QModelIndex item(const char* listName, int row, int column = 0) { return indexOf(list(listName), row, column); }
  /// The texts of a row, and one of them.
  QStringList row(const char* listName, int index);
  QString cell(const char* listName, int index, int column) { return elementOf(row(listName, index), column); }
  /// Clicks a row with the real mouse.
  void click(ListView& list, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void doubleClick(ListView& list, int row);
  /// A point of the row in the list's viewport, which it is brought into; for -1 one where no row is.
  static QPoint placeOf(ListView& view, int row);
  /// Until the scan has had its turn and this holds.
  bool soon(const std::function<bool()>& holds);
  /// The editor window that is up; null when there is none.
  frmEditor* editor() const;
  /// The same where there has to be one.
  frmEditor& openEditor() const;

  /// What the selected scene shows is shown whole by then.
  template <class Control>
  Control& control(const char* name) {
    completeDisplay();
    return childOf<Control>(window(), QString::fromLatin1(name));
  }

  ScriptedToolkit toolkit;
  ScratchFolder folder;
  /// What is done to each new window before its start-up.
  std::function<void(frmMain&)> prepare;
  /// How often the process was asked to end.
  int ended = 0;

 private:
  void completeDisplay();
  static QModelIndex indexOf(ListView& list, int row, int column = 0);

  std::unique_ptr<frmMain> window_;
};
