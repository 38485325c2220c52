// The menus of the editor's window, a function for each.

#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorFind.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/FieldClipboard.h"
#include "gui/editor/RightClick.h"
#include "gui/editor/SceneReader.h"
#include "gui/editor/WordLookup.h"
#include "gui/editor/WritingTips.h"
#include "gui/editor/frmEditor.h"
#include "gui/editor/frmEditorSettings.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/PrintRun.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";

}  // namespace

void frmEditor::createMenus() {
  createFileMenu();
  createEditMenu();
  createSceneMenu();
  createFormatMenu();
  createSpellingMenu();
  createToolsMenu();
  assignMnemonics(menuBar()->actions());
  for (const QAction* const menu : menuBar()->actions()) {
    assignMnemonics(menu->menu()->actions());
  }
  createRightClickMenu();
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
  addEntry(file, u"mnuSave"_s, u"Save"_s, [this] { saveWhole(true); })->setShortcut(QKeySequence(u"Ctrl+S"_s));
  addEntry(file, u"mnuSaveAndExit"_s, u"Save && Exit"_s, [this] {
    if (saveWhole()) {
      ExitForm();
    }
  });
  file->addSeparator();
  addEntry(file, u"mnuExit"_s, u"Close"_s, [this] { closeForm(); });
}

void frmEditor::createEditMenu() {
  QMenu* const edit = addMenu(u"mnuEdit"_s, u"Edit"_s);
  createUndoEntries(edit);
  edit->addSeparator();
  addEntry(edit, u"mnuCut"_s, u"Cut"_s, [this] { clipboard_->cut(); })->setShortcut(QKeySequence::Cut);
  addEntry(edit, u"mnuCopy"_s, u"Copy"_s, [this] { clipboard_->copy(); })->setShortcut(QKeySequence::Copy);
  addEntry(edit, u"mnuPaste"_s, u"Paste"_s, [this] { clipboard_->paste(); })->setShortcut(QKeySequence::Paste);
  edit->addSeparator();
  const auto add = [&](const char* name, const QString& caption, QKeySequence key, std::function<void()> run) {
    addEntry(edit, QString::fromLatin1(name), caption, std::move(run))->setShortcut(key);
  };
  add("mnuFind", u"Find"_s, QKeySequence(u"Ctrl+F"_s), [this] { find_->ShowFind(false); });
  add("mnuReplace", u"Replace"_s, QKeySequence(u"Ctrl+H"_s), [this] { find_->ShowFind(true); });
  add("mnuFindNext", u"Find next"_s, QKeySequence(u"F3"_s), [this] { find_->FindNext(); });
  add("mnuFindPrev", u"Find previous"_s, QKeySequence(u"Shift+F3"_s), [this] { find_->FindPrev(); });
  edit->addSeparator();
  const auto addCut = [&](const QString& name, const QString& caption, void (EditorTabStrip::*into)(const QString&)) {
    QAction* const entry = addEntry(edit, name, caption, [this, into] { cutSelection(into); });
    entry->setEnabled(false);
    connect(txtMain, &QTextEdit::copyAvailable, entry, &QAction::setEnabled);
  };
  addCut(u"mnuCutForTitle"_s, u"Cut for scene title"_s, &EditorTabStrip::takeTitle);
  addCut(u"mnuCutForDesc"_s, u"Cut for scene description"_s, &EditorTabStrip::takeDescription);
  followClipboard(*edit);
}

/// Enabled while the menu is open as there is something to cut, copy or paste; while it isn't, their keys find out.
void frmEditor::followClipboard(QMenu& menu) {
  const auto enable = [this](bool cut, bool copy, bool paste) {
    findChild<QAction*>(u"mnuCut"_s)->setEnabled(cut);
    findChild<QAction*>(u"mnuCopy"_s)->setEnabled(copy);
    findChild<QAction*>(u"mnuPaste"_s)->setEnabled(paste);
  };
  connect(&menu, &QMenu::aboutToShow, this,
          [this, enable] { enable(clipboard_->canCut(), clipboard_->canCopy(), clipboard_->canPaste()); });
  connect(&menu, &QMenu::aboutToHide, this, [enable] { enable(true, true, true); });
}

void frmEditor::createRightClickMenu() {
  auto* const menu = new QMenu(this);
  menu->setObjectName(u"mnuRightClick"_s);
  for (const char* const name : {"mnuCut", "mnuCopy", "mnuPaste"}) {
    menu->addAction(findChild<QAction*>(QString::fromLatin1(name)));
  }
  followClipboard(*menu);
  offerSpelling(*menu, *new RightClick(*txtMain, *menu));
}

void frmEditor::createSceneMenu() {
  QMenu* const menu = addMenu(u"mnuScene"_s, u"Scene"_s);
  addEntry(menu, u"mnuNewScene"_s, u"Add Scene"_s, [this] { addScene(false); });
  addEntry(menu, u"mnuInsertScene"_s, u"Insert Scene"_s, [this] { addScene(true); });
  menu->addSeparator();
  int index = 0;
  for (const QString& separator : {u"* * *"_s, u"***"_s, u"#"_s}) {
    addEntry(menu, u"mnuSplitScene(%1)"_s.arg(index++), toldText(u"Split scene on '%1'"_s, {separator}),
             [this, separator] { splitScene(separator); });
  }
  addEntry(menu, u"mnuSplitScene(%1)"_s.arg(index), u"Split scene on custom"_s, [this] { splitOnCustom(); });
  menu->addSeparator();
  addEntry(menu, u"mnuPrintScene"_s, u"Print Scene"_s, [this] { mnuPrintScene_Click(); });
}

// From the book: what was typed since it was last kept there isn't in the print.
void frmEditor::mnuPrintScene_Click() {
  const auto shown = scene();
  if (!shown || !shown->InScenes()) {
    toolkit().MsgBox(u"Save the scene first. What is printed is the scene as the book holds it."_s);
  } else {
    printScenes({shown->ID()});
  }
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
  addEntry(tools, u"mnuOpenNote"_s, u"Open note, link or name"_s, [this] {
    mnuOpenNote_Click();
  })->setShortcut(QKeySequence(u"Ctrl+Return"_s));
  mnuChar =
      addEntry(tools, u"mnuChar"_s, u"Highlight known characters"_s, [this] { mnuChar_Click(mnuChar->isChecked()); });
  mnuChar->setCheckable(true);
  const auto selected = [this] { return txtMain->SelRichText().plainText(); };
  addEntry(tools, u"mnuDictionary"_s, u"Dictionary Lookup"_s, [=] { lookUpInDictionary(selected()); });
  addEntry(tools, u"mnuThesaurus"_s, u"Thesaurus Lookup"_s, [=] { lookUpInThesaurus(selected()); });
  addEntry(tools, u"mnuTop20"_s, u"Show word usage"_s, [this] { mnuTop20_Click(); });
  addEntry(tools, u"mnuWritingTips"_s, u"Writing Tips"_s, [] { toolkit().MsgBox(nextWritingTip()); });
  addEntry(tools, u"mnuPageling"_s, u"View scene in Pageling"_s, [this] { viewInReader(textToSave()); });
  tools->addSeparator();
  addEntry(tools, u"mnuSettings"_s, u"Editor Settings"_s, [this] { frmEditorSettings::edit(*this); });
}
