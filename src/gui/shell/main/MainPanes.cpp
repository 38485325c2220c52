#include "gui/shell/main/MainPanes.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/NotesPane.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/views/ListView.h"

#include <QHBoxLayout>
#include <QTabWidget>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

}  // namespace

MainPanes::MainPanes(QWidget* parent)
    : QWidget(parent),
      FrameChapters(new ChapterPane),
      FrameScenes(new ScenePane),
      FrameNotes(new NotesPane),
      TabStrip2(new QTabWidget),
      splitter_(new ProportionalSplitter(Qt::Horizontal)) {
  buildLayout();
  connectSignals();
  switchOn(false);
}

void MainPanes::buildLayout() {
  giveName(*TabStrip2, u"TabStrip2"_s, u"Scenes or notes"_s);
  TabStrip2->setDocumentMode(true);
  TabStrip2->addTab(FrameScenes, u"Scenes"_s);
  TabStrip2->setTabToolTip(TabStrip2->addTab(FrameNotes, u"Notes"_s), NotesPane::hint());
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(FrameChapters);
  splitter_->addWidget(TabStrip2);
  auto* row = new QHBoxLayout(this);
  row->addWidget(splitter_);
}

void MainPanes::connectSignals() {
  connect(FrameChapters, &ChapterPane::chapterSelected, this,
          guarded("ListChapters_ItemClick", kModule, [this] { showSelectedChapter(1); }));
  connect(FrameChapters, &ChapterPane::chapterKeyUp, this, guarded("ListChapters_KeyUp", kModule, [this](int key) {
            showSelectedChapter(0);
            if (key == Qt::Key_Delete && FrameChapters->SelectedChapterID() != 0) {
              Q_EMIT removalWanted(u"mnuRemoveChapter"_s);
            }
          }));
  connect(&FrameScenes->listScenes(), &ListView::keyUp, this, guarded("ListScenes_KeyUp", kModule, [this](int key) {
    if (key == Qt::Key_Delete && FrameScenes->SelectedSceneID() != 0) {
      Q_EMIT removalWanted(u"mnuRemoveScene"_s);
    }
  }));
  connect(FrameChapters, &ChapterPane::chapterOpened, this, &MainPanes::chapterOpened);
  connect(FrameChapters, &ChapterPane::titlesEdited, this, &MainPanes::titlesEdited);
  connect(FrameNotes, &NotesPane::notesChanged, this, &MainPanes::notesChanged);
  connect(FrameNotes, &NotesPane::noteSaved, this, &MainPanes::noteSaved);
  connect(FrameNotes, &NotesPane::editingChanged, this, [this](bool editing) {
    TabStrip2->setTabText(TabStrip2->indexOf(FrameNotes),
                          translated(editing ? shownText(u"Notes *"_s) : shownText(u"Notes"_s)));
    if (!FrameNotes->isEnabled()) {
      FrameChapters->listChapters().setFocus();
    }
  });
  connect(FrameScenes, &ScenePane::sceneOpened, this,
          guarded("ListScenes_DblClick", kModule, this, &MainPanes::EditSelectedScene));
}

// A chapter whose scenes are shown already keeps its scene selection.
void MainPanes::showSelectedChapter(int SelectIndex) {
  if (FrameChapters->SelectedChapterID() != FrameScenes->shownChapterID()) {
    FillSceneList(SelectIndex);
  }
}

void MainPanes::refill() {
  const qint32 scene = FrameScenes->SelectedSceneID();
  FrameChapters->showTitles();
  FillChapterList();
  if (FrameChapters->SelectedChapterID() == 0) {
    FrameChapters->SelectChapter(0);
  }
  const qint32 chapter = FrameChapters->SelectedChapterID();
  const bool sameChapter = chapter == FrameScenes->shownChapterID();
  // A scene that has moved takes the selection along.
  FillSceneList(sameChapter ? 0 : std::max(1, g_Project->ChapterByID(chapter)->SceneIndex(scene)));
  if (chapter == 0) {
    FrameScenes->clear();
  }
  FrameNotes->FillNoteList();
}

void MainPanes::showInLanguage() {
  refill();
  FrameScenes->showInLanguage();
  FrameChapters->listChapters().widenToTitles();
}

void MainPanes::FillChapterList() {
  FrameChapters->FillChapterList();
}

void MainPanes::FillSceneList(int SelectIndex) {
  const qint32 id = FrameChapters->SelectedChapterID();
  if (id == 0) {
    return;
  }
  FrameChapters->showDescription(*g_Project->ChapterByID(id));
  FrameScenes->FillSceneList(id, SelectIndex);
}

void MainPanes::ClearLists() {
  FrameChapters->clear();
  FrameScenes->clear();
  FrameNotes->clear();
}

void MainPanes::showScenesTab() {
  TabStrip2->setCurrentWidget(FrameScenes);
}

void MainPanes::setProjectOpen(bool open) {
  FrameChapters->setEmptyText(
      open ? shownText(u"This book has no chapters yet.\nChapter \u2013 Create new chapter adds one."_s)
           : shownText(u"No project is open.\nProject \u2013 Open brings one up,\nNew Project "
                       "Wizard begins one."_s));
  switchOn(open);
}

// A control that is switched off drops the keyboard or gives it to the next one. Who types a note that its book has
// left behind goes on there.
void MainPanes::switchOn(bool open) {
  const QWidget* const held = window()->focusWidget();
  FrameChapters->setFieldsEnabled(open);
  FrameScenes->setEnabled(open);
  FrameNotes->setProjectOpen(open);
  if (held == nullptr || !held->isEnabled()) {
    FrameChapters->listChapters().setFocus();
  }
}

void MainPanes::showChanged(const QList<qint32>& sceneIDs) {
  for (const qint32 id : sceneIDs) {
    FrameScenes->UpdateSceneRow(id);
  }
  if (sceneIDs.contains(FrameScenes->SelectedSceneID())) {
    FrameScenes->DisplaySelectedScene();
  }
}

// What is asked about is seen.
bool MainPanes::mayLeaveNotes() {
  if (FrameNotes->holdsTyped()) {
    TabStrip2->setCurrentWidget(FrameNotes);
  }
  return FrameNotes->mayLeave();
}

void MainPanes::storeTypedNote() {
  FrameNotes->storeTyped();
}

void MainPanes::setNoteWritten() {
  FrameNotes->setWritten();
}

void MainPanes::EditSelectedScene() {
  const qint32 id = FrameScenes->SelectedSceneID();
  if (id != 0) {
    EditRow(id);
  }
}

void MainPanes::EditRow(qint32 SceneID) {
  g_Project->SceneByID(SceneID)->Edit();
  FrameScenes->UpdateSceneRow(SceneID);
  Q_EMIT sceneEdited();
}

// Widths that come before the window is on the screen are not yet those of its layout.
void MainPanes::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (std::exchange(fitTabs_, false)) {
    FrameScenes->splitter().setFraction(FrameScenes->splitForTabs());
  }
  for (ListView* list : std::exchange(toFill_, {})) {
    list->fillRoom();
  }
}
