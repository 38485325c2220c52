#include "gui/shell/commands/BookSearch.h"

#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/RichText.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/ListView.h"
#include "gui/views/frmFind.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// The dialog has the keyboard while its hits are looked at: many desktops all but hide a selection then.
void showSelectionAsActive(QWidget& widget) {
  QPalette palette = widget.palette();
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
    palette.setBrush(QPalette::Inactive, role, palette.brush(QPalette::Active, role));
  }
  widget.setPalette(palette);
}

}  // namespace

void BookSearch::makeDialog() {
  Find = new frmFind(&main_);
  Find->offerReplace(false);
  QObject::connect(
      Find, &frmFind::DoFind, &main_,
      guarded("Find_DoFind", kModule, [this](const QString& text, bool matchCase) { Find_DoFind(text, matchCase); }));
  QObject::connect(Find, &frmFind::DoPrevious, &main_,
                   guarded("Find_DoPrevious", kModule,
                           [this](const QString& text, bool matchCase) { Find_DoPrevious(text, matchCase); }));
  QObject::connect(Find, &QDialog::rejected, &main_, [&main = main_] { main.activateWindow(); });
}

void BookSearch::ShowFind() {
  if (!Find) {
    makeDialog();
    Find->setText(search_.SearchText());
  }
  Find->setText(selectedTerm());
  PrepareFind();
  Find->ask();
}

void BookSearch::PrepareFind() {
  search_.restart();
  noteSelection();
}

/// Empty for the last hit: it is looked for already, perhaps in other letters.
QString BookSearch::selectedTerm() const {
  const RichTextBox* const body = main_.panes().scenes().tabStrip1().content();
  const QString selected = body == nullptr || !body->isVisible() ? QString() : frmFind::termIn(*body);
  return selected.compare(search_.SearchText(), Qt::CaseInsensitive) == 0 ? QString() : selected;
}

void BookSearch::setSearch(const QString& text, bool caseSensitive) {
  search_.setSearch(text, caseSensitive);
  if (Find) {
    Find->setText(text);
  }
}

void BookSearch::Find_DoFind(const QString& text, bool caseSensitive) {
  if (g_Project->IsBusy()) {
    return;
  }
  if (search_.setSearch(text, caseSensitive)) {
    PrepareFind();
    if (RichTextBox* const body = main_.panes().scenes().tabStrip1().content()) {
      body->setSelStart(0);
    }
  }
  FindNext();
}

void BookSearch::Find_DoPrevious(const QString& text, bool caseSensitive) {
  if (!g_Project->IsBusy()) {
    search_.setSearch(text, caseSensitive);
    FindPrevious();
  }
}

void BookSearch::findWord(const QString& word) {
  setSearch(word, search_.SearchCase());
  search_.standAtStartOfScene();
  FindNext();
}

void BookSearch::findInAnyCase(const QString& word) {
  setSearch(word, false);
  FindNext();
}

void BookSearch::FindNext() {
  if (search_.SearchText().isEmpty()) {
    ShowFind();
    return;
  }
  followSelection();
  show(search_.FindNext());
}

void BookSearch::FindPrevious() {
  if (search_.SearchText().isEmpty()) {
    ShowFind();
    return;
  }
  followSelection();
  show(search_.FindPrevious());
}

void BookSearch::followSelection() {
  const qint32 chapter = main_.panes().chapters().SelectedChapterID();
  const qint32 scene = main_.panes().scenes().SelectedSceneID();
  const auto seen = seenScene_.lock();
  const bool isSeen = scene == 0 ? !seen : seen == g_Project->SceneByID(scene);
  if (!isSeen || chapter != seenChapter_) {
    search_.standAt(chapter, scene);
  }
}

void BookSearch::noteSelection() {
  const qint32 scene = main_.panes().scenes().SelectedSceneID();
  seenChapter_ = main_.panes().chapters().SelectedChapterID();
  seenScene_ = scene == 0 ? nullptr : g_Project->SceneByID(scene);
}

void BookSearch::show(const std::optional<StorySearch::Hit>& hit) {
  if (hit) {
    ShowHit(*hit);
    return;
  }
  showEnd();
  toolkit().MsgBox(u"No match"_s);
}

/// Where the search stands is what is seen.
void BookSearch::showEnd() {
  const qint32 row = std::min(search_.SearchChapter(), g_Project->ChapterCount());
  if (row > 0) {
    const auto chapter = g_Project->ChapterByIndex(row);
    const bool atEnd = search_.SearchChapter() > row;
    selectRows(*chapter, atEnd ? chapter->SceneCount() : std::min(search_.SearchScene(), chapter->SceneCount()));
  }
  noteSelection();
}

void BookSearch::selectRows(clsChapter& chapter, qint32 sceneRow) {
  MainPanes& panes = main_.panes();
  ScenePane& scenes = panes.scenes();
  panes.showScenesTab();
  panes.chapters().SelectChapter(chapter.ID());
  const qint32 scene = sceneRow > 0 ? chapter.SceneIDs().at(sceneRow) : 0;
  if (scenes.shownChapterID() == chapter.ID() && scenes.listScenes().rowOfTag(scene) >= 0) {
    scenes.SelectScene(scene);
  } else {
    panes.FillSceneList(sceneRow);
  }
}

void BookSearch::ShowHit(const StorySearch::Hit& hit) {
  const auto chapter = g_Project->ChapterByID(hit.chapterID);
  selectRows(*chapter, chapter->SceneIndex(hit.sceneID));
  RichTextBox& body = select(hit);
  body.setFocus();
  noteSelection();
  if (Find && Find->isVisible()) {
    Find->keepClearOf(body);
  }
  // What is typed meanwhile waits: a held key doesn't begin a search in the middle of this one.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// The text that is shown has objects and hidden words that the plain text hasn't.
RichTextBox& BookSearch::select(const StorySearch::Hit& hit) {
  RichTextBox& body = main_.panes().scenes().tabStrip1().showContent();
  const RichText shown = body.richText();
  const qsizetype from = shown.positionOfRead(hit.position);
  body.select(from, shown.positionOfRead(hit.position + hit.length - 1) + 1 - from);
  body.ensureCursorVisible();
  showSelectionAsActive(body);
  return body;
}
