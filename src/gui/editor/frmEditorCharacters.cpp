#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/StoryMoves.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsScene.h"
#include "gui/editor/Cast.h"
#include "gui/editor/CharacterMarks.h"
#include "gui/editor/EditorStatusBar.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/SceneNavigator.h"
#include "gui/editor/ViewpointBox.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QAction>
#include <QPointer>

using namespace Qt::StringLiterals;

// The cast beside the text, and what of the book around the scene is shown.

namespace {

constexpr auto kModule = "frmEditor";

/// As the book's file would hold it.
QByteArray wholeCast() {
  QByteArray cast;
  for (const auto& character : g_Project->Chars) {
    character->DataAsXML(cast);
  }
  return cast;
}

}  // namespace

void frmEditor::connectCharacters() {
  connect(viewpoint_, &ViewpointBox::changed, this, &frmEditor::markDirty);
  connect(viewpoint_, &ViewpointBox::viewpointShown, TabStrip1, &EditorTabStrip::DisplayCharacter);
  const auto edit = [this](qint32 id) { EditChar(id, 0); };
  connect(viewpoint_, &ViewpointBox::editCharWanted, this, guarded("cmdEditChar_Click", kModule, edit));
  connect(viewpoint_, &ViewpointBox::addCharWanted, this,
          guarded("cmdAddChar_Click", kModule, this, &frmEditor::cmdAddChar_Click));
  connect(TabStrip1, &EditorTabStrip::characterWanted, this, guarded("ListChar_DblClick", kModule, edit));
  connect(TabStrip1, &EditorTabStrip::castWanted, this,
          guarded("ListChar_OLEDragDrop", kModule, this, &frmEditor::changeCast));
  connect(characters_, &CharacterMarks::characterWanted, this,
          guarded("txtMain_DblClick", kModule, [this](qint32 id) { showSheet(id, 0); }));
}

void frmEditor::showPlace(clsScene& of) {
  StatusBar1->setPanel(EditorStatusBar::chapterTitle, g_Project->ChapterByID(of.BelongsToChID)->Title);
  navigator_->find(of, TabStrip1->Title());
}

void frmEditor::FindInCombos(clsScene& of) {
  showPlace(of);
  viewpoint_->refresh(of);
  TabStrip1->refresh(of);
}

void frmEditor::UpdateCombos() {
  if (const auto shown = scene()) {
    FindInCombos(*shown);
  }
}

void frmEditor::changeCast(const QList<qint32>& ids, bool inScene) {
  const auto changed = scene();
  if (!changed || g_Project->IsBusy()) {
    showHint(translated(changed ? shownText(u"The project is being loaded or saved"_s)
                                : shownText(u"This scene isn't in the open project any more"_s)));
    return;
  }
  QList<qint32> moving = ids;
  moving.removeIf([&](qint32 id) { return changed->CharIDs().contains(id) == inScene || !isInCast(id); });
  if (moving.isEmpty()) {
    showHint(translated(inScene ? shownText(u"In this scene already"_s) : shownText(u"Not in this scene"_s)));
    return;
  }
  const QPointer<frmEditor> alive(this);
  inScene ? StoryMoves::addToScene(*changed, CastKind::Character, moving)
          : StoryMoves::removeFromScene(*changed, CastKind::Character, moving);
  changed->Save(false, false);
  // Why it could not be saved is told by the save.
  const bool saved = g_Project->HasPlace() && g_Project->SaveQN4(false);
  g_Project->UpdateCombosInEditorWindows();
  if (!alive) {
    return;
  }
  if (!saved) {
    showHint(translated(g_Project->ReadOnly() ? shownText(u"Read-only: changed, but not saved"_s)
                                              : shownText(u"Changed, but not saved yet"_s)));
  }
  if (Changed && !saved) {
    Changed();
  }
}

// One setting for all editors: each follows it, whichever has changed it.
void frmEditor::MarkCharacters() {
  const bool highlight = Numbers::ToBool(Settings().sGet(u"HighlightChar"_s, false));
  mnuChar->setChecked(highlight);
  highlight ? characters_->show() : characters_->hide();
}

void frmEditor::UnmarkCharacters() {
  characters_->hide();
}

void frmEditor::mnuChar_Click(bool highlight) {
  Settings().sSet(u"HighlightChar"_s, highlight);
  MarkCharacters();
  g_Project->MarkAllCharInEditorWindows();
}

void frmEditor::EditChar(qint32 id, qint32 tab) {
  if (!scene()) {
    showHint(translated(u"This scene isn't in the open project any more"_s));
    return;
  }
  if (!isInCast(id)) {
    showHint(translated(id == 0 ? shownText(u"No viewpoint character is selected"_s)
                                : shownText(u"There is no such character"_s)));
    return;
  }
  showSheet(id, tab);
}

void frmEditor::showSheet(qint32 id, qint32 tab) {
  const QPointer<frmEditor> alive(this);
  g_Project->UnMarkAllCharInEditorWindows();
  const bool changed = g_Project->CharByID(id)->Edit(tab);
  if (changed) {
    g_Project->UpdateCombosInEditorWindows();
  }
  g_Project->MarkAllCharInEditorWindows();
  if (changed && alive && Changed) {
    Changed();
  }
}

void frmEditor::cmdAddChar_Click() {
  const QPointer<frmEditor> alive(this);
  const QByteArray before = wholeCast();
  g_Project->AddEditCharacters(0);
  g_Project->UpdateCombosInEditorWindows();
  if (wholeCast() != before && alive && Changed) {
    Changed();
  }
}
