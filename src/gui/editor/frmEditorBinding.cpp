#include "core/infra/BusyPointer.h"
#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/Backups.h"
#include "core/persist/RescueFolder.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"
#include "core/text/modWordcount.h"
#include "gui/editor/CharacterMarks.h"
#include "gui/editor/EditorFind.h"
#include "gui/editor/EditorPlacement.h"
#include "gui/editor/EditorSpelling.h"
#include "gui/editor/EditorStatusBar.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/EditorText.h"
#include "gui/editor/FontBar.h"
#include "gui/editor/ViewpointBox.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"
#include "gui/toolkit/Twips.h"
#include "gui/views/TextObjects.h"
#include "gui/views/frmWordCount.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QPointer>

using namespace Qt::StringLiterals;

// What passes between the window and its scene.

namespace {

constexpr int kWordCountMs = 3000;
constexpr int kHintMs = 4000;

}  // namespace

bool frmEditor::HoldsUnsaved() const {
  return (Dirty || objects_->holdsUnsaved()) && !leaving_;
}

std::shared_ptr<clsScene> frmEditor::scene() const {
  auto found = g_Project->SceneByID(SceneID);
  return found->InScenes() && found == opened_.lock() ? found : nullptr;
}

void frmEditor::EditScene(qint32 id) {
  const bool fontsWaiting = TimerLoadFonts.isActive();
  TimerLoadFonts.stop();
  SceneID = id;
  const auto shown = g_Project->SceneByID(id);
  opened_ = shown;
  setCaption(shown->Title);
  StatusBar1->setPanel(EditorStatusBar::autosave, u"Last Autosave: None"_s);
  ShowScene();
  setDirty(false);
  DisableOrEnable(true);
  if (fontsWaiting) {
    TimerLoadFonts.start();
  }
}

void frmEditor::ShowScene() {
  DataToForm(SceneID, true);
  spelling_->begin();
  txtMain->setSelStart(0);
  MarkCharacters();
  beginCopies();
  setDirty(false);
}

void frmEditor::DataToForm(qint32 id, bool loadText) {
  const auto shown = g_Project->SceneByID(id);
  TabStrip1->refresh(*shown);
  TabStrip1->DataToForm(*shown);
  viewpoint_->DataToForm(*shown);
  showPlace(*shown);
  if (loadText) {
    loadMainText(*shown);
  }
  ShowSceneWordCount();
  TabStrip1->TabIcons();
  setDirty(false);
}

void frmEditor::loadMainText(const clsScene& from) {
  applyEditorFont();
  RichText text = readRtf(from.TextRTF(), &losses_);
  ResetFontColour(text, colours_.textColour());
  SetMainIndent(text);
  txtMain->setRichText(text);
  textDue_ = false;
  history_->clear();
  undoEndsAtSplit_ = false;
  tellLosses();
}

void frmEditor::tellLosses() {
  const QString names = namesOf(losses_).join(u", "_s);
  StatusBar1->setPanel(EditorStatusBar::hint, losses_ ? translated(u"Not kept when saved: %1"_s).arg(names) : QString(),
                       losses_ ? translated(u"This text holds what can't be kept when you change and save it: %1. The "
                                            "file as it is now goes into the day's backup folder first."_s)
                                     .arg(names)
                               : QString());
}

RichText frmEditor::cleanText() const {
  RichText text = txtMain->namedRichText();
  ResetFontColour(text, colours_.textColour());
  return text;
}

QByteArray frmEditor::textToSave() const {
  return writeRtf(cleanText());
}

void frmEditor::FormToData(clsScene& into) {
  TimerWC.stop();
  const int nextCopyMs = TimerBackup.remainingTime();
  TimerBackup.stop();
  viewpoint_->FormToData(into);
  TabStrip1->FormToData(into);
  const bool isNew = into.TextRTF().isEmpty() && into.RTFFilename().isEmpty();
  if (txtMain->isEdited() || isNew || textDue_) {
    into.setTextRTF(textToSave());
  } else if (before_ && into.TextRTF() != before_->TextRTF()) {
    // What was typed was taken back. What wasn't read stays so.
    into.setTextRTF(before_->TextRTF());
  }
  if (scene().get() == &into) {
    AutoBackup(into, into.TextRTF());
  }
  TimerWC.start(kWordCountMs);
  restartCopies(nextCopyMs);
}

bool frmEditor::keepOriginal(clsScene& of, bool mayAsk) {
  if (!losses_ || !txtMain->isEdited()) {
    return true;
  }
  if (!backUpOriginal(of)) {
    if (!mayAsk) {
      return false;
    }
    const Answer answer = toolkit().MsgBox(
        translated(u"The text as it was could not be copied to the backup folder. Saving it now loses: %1.\n\nSave all "
                   "the same?"_s)
            .arg(namesOf(losses_).join(u", "_s)),
        Buttons::NoUnlessYes);
    if (answer != Answer::Yes) {
      return false;
    }
  }
  losses_ = {};
  tellLosses();
  return true;
}

void frmEditor::textChanged() {
  markDirty();
  TimerWC.start(kWordCountMs);
}

void frmEditor::ShowSceneWordCount() {
  TimerWC.stop();
  const QString text = txtMain->PlainText();
  if (text != LastCountedText) {
    LastCountedText = text;
    const qint32 words = Html().CalcWordCount(text);
    StatusBar1->setPanel(EditorStatusBar::sceneWords, translated(u"Scene: %L1 words"_s).arg(words));
    showChapterWordCount(words);
  }
  TimerWC.start(kWordCountMs);
}

// What was put together in the former language. What was typed or chosen stays.
void frmEditor::showInLanguage() {
  UpdateCombos();
  TabStrip1->TabIcons();
  fontBar_->markReplaced();
  tellLosses();
  showCopyPlace();
  LastCountedText.reset();
  ShowSceneWordCount();
}

void frmEditor::showChapterWordCount(qint32 wordsHere) {
  const auto counted = scene();
  if (!counted) {
    return;
  }
  qint32 total = 0;
  qint32 unused = 0;
  const auto chapter = g_Project->ChapterByID(counted->BelongsToChID);
  for (const qint32 id : chapter->SceneIDs()) {
    const auto other = g_Project->SceneByID(id);
    const qint32 words = id == SceneID ? wordsHere : other->Wordcount();
    total += words;
    unused += other->Unused || chapter->Unused ? words : 0;
  }
  // The chapter list leaves them out.
  StatusBar1->setPanel(
      EditorStatusBar::chapterWords, translated(u"Chapter: %L1 words"_s).arg(total),
      unused > 0 ? translated(u"%L1 in use, %L2 in unused scenes"_s).arg(total - unused).arg(unused) : QString());
}

// What stood there of the book is true no more.
void frmEditor::LetGo() {
  StatusBar1->setPanel(EditorStatusBar::autosave, u"No longer in the open book"_s);
  StatusBar1->setToolTip({});
  StatusBar1->setPanel(EditorStatusBar::chapterWords, {});
  StatusBar1->setPanel(EditorStatusBar::chapterTitle, {});
  // No copy is made of what would be typed from now on.
  txtMain->setLocked(true);
  TabStrip1->lock();
}

void frmEditor::mnuTop20_Click() {
  const BusyPointer pointer;
  clsHashTable table;
  BreakAndHash(table, txtMain->PlainText());
  frmWordCount::showOver(*this, table);
}

void frmEditor::mnuOpenNote_Click() {
  if (txtMain->openAtCaret()) {
    return;
  }
  if (const qint32 id = characters_->characterAt(txtMain->SelStart()); id != 0) {
    showSheet(id, 0);
    return;
  }
  const QString there = txtMain->describeAtCaret();
  showHint(there.isEmpty() ? translated(u"There is no note, link or marked name at the caret"_s) : there);
}

void frmEditor::showHint(const QString& text) {
  StatusBar1->setPanel(EditorStatusBar::hint, text);
  hintTime_.start(kHintMs);
}

bool frmEditor::SaveChanges(bool spellCheck) {
  QGuiApplication::inputMethod()->commit();
  const auto saved = scene();
  if (!saved) {
    toolkit().MsgBox(
        u"This scene isn't in the open project any more, so it can't be saved. Please copy its text to keep it."_s);
    return false;
  }
  if (!keepOriginal(*saved, true)) {
    return false;
  }
  // What a save asks and shows lets timers run.
  const bool exits = TimerExit.isActive();
  TimerExit.stop();
  const QPointer<frmEditor> alive(this);
  const bool written = writeChanges(*saved);
  if (written) {
    savePlan();
  }
  if (!alive || !written || !saved->InScenes()) {
    if (alive && exits) {
      stay();
    }
    return false;
  }
  LastEditorLeft = Twips::fromPixels(x());
  LastEditorTop = Twips::fromPixels(y());
  setCaption(saved->Title);
  TabStrip1->TabIcons();
  spellCheck ? spelling_->SpellCheckEditor(false) : MarkCharacters();
  ShowSceneWordCount();
  TabStrip1->refresh(*saved);
  showSaved();
  if (exits) {
    TimerExit.start();
  }
  return true;
}

/// False when the scene or this window has gone meanwhile: what it holds then is nobody's.
bool frmEditor::writeChanges(clsScene& saved) {
  const QPointer<frmEditor> alive(this);
  if (!before_) {
    before_.emplace(saved);
  }
  const bool isNew = saved.RTFFilename().isEmpty();
  FormToData(saved);
  before_->take(saved);
  if (isNew || before_->planDiffers(saved)) {
    g_Project->setPlanDue();
  }
  txtMain->setUnedited();
  setDirty(false);
  const QByteArray given = saved.TextRTF();
  saved.Save(false, true);
  if (!alive || !saved.InScenes()) {
    return false;
  }
  // What came in while the save showed its progress or asked is in no file yet.
  const bool changedMeanwhile = Dirty && saved.TextRTF() == given;
  if (saved.TextRTF() != given) {
    // Another program had changed the file, and the user took that.
    loadMainText(saved);
    copies_.begin(saved);
  }
  // What could not be written stays due, and can be dropped. The texts of a book that has no place are kept by the book
  // until it has one.
  textDue_ = g_Project->HasPlace() && saved.RTFChanged();
  if (!textDue_) {
    before_.reset();
    copies_.sceneSaved(saved);
  }
  savedChanges_ = true;
  if (Changed) {
    Changed();
  }
  setDirty(changedMeanwhile || textDue_);
  return true;
}

/// What a writer saves is to be on the disk: title, description and notes, and that the scene is there, stand in the
/// project file alone.
void frmEditor::savePlan() {
  if (g_Project->PlanDue() && !textDue_ && g_Project->HasPlace()) {
    g_Project->SaveQN4(false);
  }
}

void frmEditor::showSaved() {
  StatusBar1->setPanel(EditorStatusBar::autosave, Dirty ? shownText(u"Not saved yet"_s) : whereSaved());
}

/// In English: it stays there while the language is changed.
QString frmEditor::whereSaved() const {
  if (g_Project->HasPlace()) {
    return toldText(g_Project->PlanDue() ? shownText(u"Text saved, project file not: %1"_s) : shownText(u"Saved: %1"_s),
                    {Clock::now().toString(u"HH:mm:ss"_s)});
  }
  const bool isRescued = RescueFolder(*g_Project).holds(*scene());
  if (g_Project->ReadOnly()) {
    return isRescued ? shownText(u"Read-only: kept in the rescue folder"_s) : shownText(u"Read-only: kept in memory"_s);
  }
  return isRescued ? shownText(u"No file yet: kept in the rescue folder"_s)
                   : shownText(u"No file yet: kept in memory"_s);
}

// Should the scene's own file not take it, there is one more.
void frmEditor::SaveQuietly() {
  QGuiApplication::inputMethod()->commit();
  objects_->takeOpenNote();
  if (!Dirty) {
    return;
  }
  const auto saved = scene();
  if (!saved) {
    keepWithoutBook();
    return;
  }
  // Nobody can be asked whether the only copy may be written over.
  if (!keepOriginal(*saved, false)) {
    keepWithoutBook();
    return;
  }
  if (!writeChanges(*saved)) {
    return;
  }
  showSaved();
  Guard("SaveQuietly", "frmEditor")([&] { backUpScene(*saved); });
}

void frmEditor::keepWithoutBook() {
  clsScene kept;
  if (const auto opened = opened_.lock()) {
    kept.setTextRTF(opened->TextRTF());
  }
  TabStrip1->FormToData(kept);
  // What is kept there is still to be saved here.
  if (txtMain->isEdited() || kept.TextRTF().isEmpty()) {
    kept.setTextRTF(textToSave());
  }
  const RescueFolder rescue(*g_Project);
  if (rescue.keep(kept)) {
    Settings().sSet(u"RescuedTexts"_s, rescue.path());
  }
}

// A window that goes takes the text along: it stays as long as that stands nowhere else.
bool frmEditor::saveWhole(bool spellCheck) {
  if (!SaveChanges(spellCheck)) {
    return false;
  }
  if (Dirty && !scene()->SaveFailure().isEmpty()) {
    toolkit().MsgBox(
        translated(u"The text of this scene could not be written to %1. The window stays open. Please make "
                   "room or free the file and save again."_s)
            .arg(scene()->RTFFileWithPath()) +
        u"\n\n"_s + translated(scene()->SaveFailure()));
  }
  return !Dirty;
}

bool frmEditor::AskIfSave() {
  QGuiApplication::inputMethod()->commit();
  if (!Dirty) {
    return true;
  }
  switch (
      toolkit().MsgBox(translated(u"File has been changed.  Save it?"_s) + u"\n\n"_s + calledScene(TabStrip1->Title()),
                       Buttons::YesNoOrBack)) {
    case Answer::Yes:
      return saveWhole();
    case Answer::No:
      savedChanges_ = false;
      dropTyped();
      return true;
    default:
      return false;
  }
}

void frmEditor::ExitForm() {
  TimerWC.stop();
  TimerBackup.stop();
  leaving_ = true;
  if (const auto shown = scene()) {
    copies_.sceneSaved(*shown);
  }
  find_->close();
  if (!Finished) {
    // Nobody is left to unload the window.
    Unload();
    return;
  }
  // A copy, since the listener lets go of the window while it runs.
  const auto finished = Finished;
  finished();
}

void frmEditor::saveAndExit() {
  DisableOrEnable(false);
  const Guard guard("cmdSaveAndExit_Click", "frmEditor");
  guard([this] { storeWindowSettings(); });
  bool saved = false;
  guard([&] { saved = saveWhole(); });
  if (saved) {
    ExitForm();
  } else {
    DisableOrEnable(true);
  }
}

void frmEditor::closeForm() {
  if (leaving_) {
    return;
  }
  if (AskIfSave()) {
    ExitForm();
  }
}

void frmEditor::setCurrentSearchString(const QString& text) {
  find_->search(text);
}
