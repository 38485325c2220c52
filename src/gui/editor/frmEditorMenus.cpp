// The menus of the editor's window, a function for each.

#include "gui/editor/frmEditor.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";

}  // namespace

void frmEditor::createMenus() {
  createFileMenu();
  createFormatMenu();
  createToolsMenu();
  assignMnemonics(menuBar()->actions());
  for (const QAction* const menu : menuBar()->actions()) {
    assignMnemonics(menu->menu()->actions());
  }
}

QMenu* frmEditor::addMenu(const QString& name, const QString& caption) {
  QMenu* const menu = menuBar()->addMenu(caption);
  menu->setObjectName(name);
  return menu;
}

QAction* frmEditor::addEntry(QMenu* menu, const QString& name, const QString& caption, std::function<void()> run) {
  QAction* const action = menu->addAction(caption);
  action->setObjectName(name);
  connect(action, &QAction::triggered, this,
          [handler = name.toLatin1() + "_Click", run = std::move(run)] { Guard(handler.constData(), kModule)(run); });
  return action;
}

void frmEditor::createFileMenu() {
  QMenu* const file = addMenu(u"mnuFile"_s, u"File"_s);
  addEntry(file, u"mnuSave"_s, u"Save"_s, [this] { SaveChanges(true); })->setShortcut(QKeySequence(u"Ctrl+S"_s));
  addEntry(file, u"mnuSaveAndExit"_s, u"Save && Exit"_s, [this] {
    if (saveWhole()) {
      ExitForm();
    }
  });
  file->addSeparator();
  addEntry(file, u"mnuExit"_s, u"Close"_s, [this] { closeForm(); });
}

void frmEditor::createFormatMenu() {
  QMenu* const format = addMenu(u"mnuFormat"_s, u"Format"_s);
  addEntry(format, u"mnuSelectFont"_s, u"Default Font"_s, [this] { mnuSelectFont_Click(); });
  format->addSeparator();
  addEntry(format, u"mnuBGColour"_s, u"Set editor background colour"_s, [this] { mnuBGColour_Click(); });
  addEntry(format, u"mnuFGColour"_s, u"Set editor font colour"_s, [this] { mnuFGColour_Click(); });
  addEntry(format, u"mnuAutomaticColours"_s, u"Use the desktop's colours"_s, [this] { takeColours({}); });
}

void frmEditor::createToolsMenu() {
  QMenu* const tools = addMenu(u"mnuTools"_s, u"Tools"_s);
  addEntry(tools, u"mnuOpenNote"_s, u"Open note or link"_s, [this] {
    mnuOpenNote_Click();
  })->setShortcut(QKeySequence(u"Ctrl+Return"_s));
  addEntry(tools, u"mnuTop20"_s, u"Show word usage"_s, [this] { mnuTop20_Click(); });
}
