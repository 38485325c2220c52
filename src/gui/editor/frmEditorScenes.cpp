#include "core/infra/BusyPointer.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneSplit.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"

#include <QPointer>

using namespace Qt::StringLiterals;

// From the text into the book: scenes that are added to this one or cut out of it, and passages that become its title
// or its description.

namespace {

/// What of a text is no letter.
RichText objectsOf(const RichText& text) {
  RichText objects;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text.charFormatAt(at).object) {
      objects.append(text.slice(at, 1));
    }
  }
  return objects;
}

/// Many more scenes than somebody has in mind are named before they are made.
QString splitQuestion(const QString& text, const QString& separator) {
  constexpr size_t kMany = 50;
  const QString question = translated(u"Are you sure you want to split this scene on '%1' markers?"_s).arg(separator);
  const size_t scenes = SceneSplit::cut(RichText::fromPlain(text), separator).size();
  return scenes > kMany ? question + u"\n\n"_s + translated(u"It becomes %L1 scenes."_s).arg(scenes) : question;
}

}  // namespace

/// False, and the user has been told, when no scene can be put beside this one.
bool frmEditor::hasPlaceInBook() {
  const auto shown = scene();
  if (!shown) {
    toolkit().MsgBox(
        u"This scene isn't in the open project any more, so no scene can be put behind it. Please copy "
        "its text to keep it."_s);
    return false;
  }
  if (g_Project->ChapterByID(shown->BelongsToChID)->SceneIndex(SceneID) == 0) {
    toolkit().MsgBox(u"This scene stands in no chapter, so no scene can be put behind it."_s);
    return false;
  }
  if (g_Project->IsBusy()) {
    showHint(translated(u"The project is being loaded or saved"_s));
    return false;
  }
  return true;
}

void frmEditor::addScene(bool behindThisOne) {
  const QPointer<frmEditor> alive(this);
  if (!hasPlaceInBook() || !saveWhole() || !alive || !hasPlaceInBook()) {
    return;
  }
  const auto chapter = g_Project->ChapterByID(scene()->BelongsToChID);
  if (!g_Project->CreateNewScene(chapter->ID(), behindThisOne ? chapter->SceneIndex(SceneID) + 1 : 0) || !alive) {
    return;
  }
  refreshNavigator();
  if (Changed) {
    Changed();
  }
}

void frmEditor::splitOnCustom() {
  const QString separator = toolkit().InputBox(u"Enter the characters you want to split this scene on (e.g. '%-%')"_s,
                                               u"Custom scene splitting"_s, {});
  if (!separator.isEmpty()) {
    splitScene(separator);
  }
}

/// False, and the user has been told, when the book can't take what is cut out of this scene.
bool frmEditor::mayBeSplit() {
  if (!hasPlaceInBook()) {
    return false;
  }
  if (g_Project->ReadOnly()) {
    toolkit().MsgBox(u"The book was opened read-only, so nothing is saved to its place and no scene can be split."_s);
    return false;
  }
  return true;
}

void frmEditor::splitScene(const QString& separator) {
  if (!mayBeSplit()) {
    return;
  }
  const auto isThere = [&] {
    if (!txtMain->Text().contains(separator)) {
      toolkit().MsgBox(translated(u"I can't see any %1 separators in the text. Split cancelled."_s).arg(separator));
      return false;
    }
    return true;
  };
  if (!isThere() || toolkit().MsgBox(splitQuestion(txtMain->Text(), separator), Buttons::YesNo) != Answer::Yes) {
    return;
  }
  // A book without a file gets one now: the pieces are written before the project file that names them.
  const bool saved = saveWhole(true) && (g_Project->HasPlace() || g_Project->SaveQN4(false));
  // Questions may have been up meanwhile, and another text may have been taken.
  if (saved && mayBeSplit() && isThere()) {
    cutAt(separator);
  }
}

void frmEditor::cutAt(const QString& separator) {
  const BusyPointer pointer;
  const auto source = scene();
  const RichText whole = cleanText();
  const std::vector<RichText> pieces = SceneSplit::cut(whole, separator);
  std::vector<QByteArray> texts;
  for (size_t i = 1; i < pieces.size(); ++i) {
    texts.push_back(writeRtf(pieces[i]));
  }
  const QPointer<frmEditor> alive(this);
  const QString failure = SceneSplit::addBehind(*source, texts);
  if (!failure.isEmpty()) {
    toolkit().MsgBox(translated(u"The scene was not split, and nothing has changed."_s) + u"\n\n"_s +
                     translated(failure));
  }
  if (!alive || !failure.isEmpty()) {
    return;
  }
  // What came in meanwhile is in no piece; words that stand twice are better than words that are gone.
  const bool isCut = cleanText() == whole;
  if (isCut) {
    const qsizetype kept = pieces.front().size();
    txtMain->select(kept, txtMain->Text().size() - kept);
    txtMain->setSelText({});
    // What was cut off stands in scenes of its own: taken back here, its words would stand twice.
    history_->clear();
    undoEndsAtSplit_ = true;
    showUndo(false);
  }
  source->ForceWordcount();
  FindInCombos(*source);
  ShowSceneWordCount();
  if (Changed) {
    Changed();
  }
  if (isCut) {
    showHint(translated(u"The scene is split into %1"_s).arg(pieces.size()));
  } else {
    toolkit().MsgBox(
        translated(u"The text was changed while it was split, so this scene keeps all of it. What was to be cut off "
                   "stands in %1 behind it, too."_s)
            .arg(countedScenes(static_cast<qsizetype>(texts.size()))));
  }
}

// What is no letter has no place in a title, and stays where it is.
void frmEditor::cutSelection(void (EditorTabStrip::*into)(const QString&)) {
  if (txtMain->Locked()) {
    showHint(translated(u"This scene isn't in the open project any more"_s));
    return;
  }
  if (txtMain->SelLength() == 0) {
    showHint(translated(u"Select the words first"_s));
    return;
  }
  const RichText objects = objectsOf(txtMain->SelRichText());
  QString words = txtMain->SelText();
  words.remove(u"\r\n"_s).remove(QChar(QChar::ObjectReplacementCharacter));
  if (words.isEmpty()) {
    showHint(translated(u"There are no words in the selection"_s));
    return;
  }
  (TabStrip1->*into)(words);
  objects.isEmpty() ? txtMain->setSelText({}) : txtMain->setSelRichText(objects);
  markDirty();
  if (!objects.isEmpty()) {
    showHint(translated(u"What is no text stays in the scene"_s));
  }
}
