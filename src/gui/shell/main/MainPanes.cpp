#include "gui/shell/main/MainPanes.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/NotesPane.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/views/ListView.h"

#include <QHBoxLayout>
#include <QTabWidget>

#include <utility>

using namespace Qt::StringLiterals;

MainPanes::MainPanes(QWidget* parent)
    : QWidget(parent),
      frameChapters_(new ChapterPane),
      frameScenes_(new ScenePane),
      frameNotes_(new NotesPane),
      tabStrip2_(new QTabWidget),
      splitter_(new ProportionalSplitter(Qt::Horizontal)) {
  buildLayout();
  connectSignals();
}

void MainPanes::buildLayout() {
  giveName(*tabStrip2_, u"TabStrip2"_s, u"Scenes or notes"_s);
  tabStrip2_->setDocumentMode(true);
  tabStrip2_->addTab(frameScenes_, u"Scenes"_s);
  tabStrip2_->addTab(frameNotes_, u"Notes"_s);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(frameChapters_);
  splitter_->addWidget(tabStrip2_);
  auto* row = new QHBoxLayout(this);
  row->addWidget(splitter_);
}

void MainPanes::connectSignals() {
  connect(frameChapters_, &ChapterPane::chapterSelected, this, [this] { showSelectedChapter(1); });
  connect(frameChapters_, &ChapterPane::chapterKeyUp, this, [this] { showSelectedChapter(0); });
  connect(frameChapters_, &ChapterPane::chapterOpened, this, &MainPanes::chapterOpened);
  connect(frameChapters_, &ChapterPane::titlesEdited, this, &MainPanes::titlesEdited);
  connect(frameScenes_, &ScenePane::sceneOpened, this, &MainPanes::EditSelectedScene);
}

// A chapter whose scenes are shown already keeps its scene selection.
void MainPanes::showSelectedChapter(int SelectIndex) {
  if (frameChapters_->SelectedChapterID() != frameScenes_->shownChapterID()) {
    FillSceneList(SelectIndex);
  }
}

void MainPanes::refill() {
  const qint32 chapter = frameChapters_->SelectedChapterID();
  const qint32 scene = frameScenes_->SelectedSceneID();
  frameChapters_->showTitles();
  FillChapterList();
  frameChapters_->SelectChapter(chapter);
  FillSceneList(g_Project->ChapterByID(frameChapters_->SelectedChapterID())->SceneIndex(scene));
  frameNotes_->FillNoteList();
}

void MainPanes::FillChapterList() {
  frameScenes_->clear();
  frameChapters_->FillChapterList();
}

void MainPanes::FillSceneList(int SelectIndex) {
  const qint32 id = frameChapters_->SelectedChapterID();
  if (id == 0) {
    return;
  }
  frameChapters_->showDescription(*g_Project->ChapterByID(id));
  frameScenes_->FillSceneList(id, SelectIndex);
}

void MainPanes::ClearLists() {
  frameChapters_->clear();
  frameScenes_->clear();
}

void MainPanes::showScenesTab() {
  tabStrip2_->setCurrentWidget(frameScenes_);
}

void MainPanes::EditSelectedScene() {
  const qint32 id = frameScenes_->SelectedSceneID();
  if (id != 0) {
    EditRow(id);
  }
}

void MainPanes::EditRow(qint32 SceneID) {
  g_Project->SceneByID(SceneID)->Edit();
  // The row may have gone while the editor came up.
  ListView& list = frameScenes_->listScenes();
  if (QTreeWidgetItem* row = list.topLevelItem(list.rowOfTag(SceneID))) {
    frameScenes_->UpdateSceneRow(*row, SceneID);
  }
  Q_EMIT sceneEdited();
}

double MainPanes::chapterSplit() const {
  return splitter_->fraction();
}

double MainPanes::sceneSplit() const {
  return frameScenes_->splitter().fraction();
}

void MainPanes::placeSplitters(double chapterSplit, double sceneSplit) {
  splitter_->setFraction(chapterSplit);
  frameScenes_->splitter().setFraction(sceneSplit);
}

// Widths that come before the window is on the screen are not yet those of its layout.
void MainPanes::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (std::exchange(fitTitles_, false)) {
    frameChapters_->listChapters().fillRoom();
    frameScenes_->fitSceneTitles();
  }
}
