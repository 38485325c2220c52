#include "core/model/clsScene.h"
#include "gui/editor/CharacterMarks.h"
#include "gui/editor/EditorSpelling.h"
#include "gui/editor/RightClick.h"
#include "gui/editor/frmEditor.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

// Where spelling meets the window: its menu, and what the pop-up offers for a misspelled word.

void frmEditor::createSpellingMenu() {
  QMenu* const menu = addMenu(u"mnuSpelling"_s, u"Spelling"_s);
  const auto add = [&](const char* name, const QString& caption, void (EditorSpelling::*run)()) {
    return addEntry(menu, QString::fromLatin1(name), caption, [this, run] { (spelling_->*run)(); });
  };
  const EditorSpelling::Entries entries{
      menu, add("mnuClear", u"Clear"_s, &EditorSpelling::mnuClear_Click),
      add("mnuSpellingOn", u"Spell check on display and save"_s, &EditorSpelling::mnuSpellingOn_Click),
      add("mnuCheckNow", u"Check Now"_s, &EditorSpelling::mnuCheckNow_Click),
      add("mnuInstallDictionary", u"Install Dictionary"_s, &EditorSpelling::mnuInstallDictionary_Click)};
  spelling_ = new EditorSpelling(*txtMain, *marks_, entries);
  spelling_->MarkNames = [this] { MarkCharacters(); };
  spelling_->KnownNames = &CharacterMarks::knownNames;
  connect(spelling_, &EditorSpelling::told, this, [this](const QString& what) {
    const auto shown = scene();
    setCaption(!what.isEmpty() ? what : shown ? shown->Title : QString());
  });
}

void frmEditor::offerSpelling(QMenu& menu, RightClick& clicks) {
  QAction* const pbarSpell = menu.addSeparator();
  pbarSpell->setObjectName(u"pbarSpell"_s);
  QAction* const word = addEntry(&menu, u"mnuAddWordToCustom"_s, u"&Add selection to custom dictionary"_s,
                                 [this] { spelling_->mnuAddWordToCustom_Click(); });
  connect(&clicks, &RightClick::asked, this, [this, pbarSpell, word](std::optional<qsizetype> clicked) {
    const bool isWrong = spelling_->selectMisspelling(clicked);
    pbarSpell->setVisible(isWrong);
    word->setVisible(isWrong);
  });
}
