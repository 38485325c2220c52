#include "gui/editor/SceneNavigator.h"

#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorCombo.h"
#include "gui/toolkit/Controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A title and its place, from 1.
QString entry(const QString& title, int place) {
  return title + u" - "_s + QString::number(place);
}

}  // namespace

SceneNavigator::SceneNavigator(QWidget* parent)
    : QWidget(parent),
      cmbChapter(new NavigationCombo(u"cmbChapter"_s, u"Chapter"_s, this)),
      cmbScene(new NavigationCombo(u"cmbScene"_s, u"Scene"_s, this)),
      cmdSaveAndPrev(makeButton(u"cmdSaveAndPrev"_s, u"Save && P&rev"_s, this)),
      cmdSaveAndNext(makeButton(u"cmdSaveAndNext"_s, u"Save && Ne&xt"_s, this)) {
  buildLayout();
  cmbChapter->setToolTip(u"Save and go to another chapter (F6: the next one)"_s);
  cmbScene->setToolTip(u"Save and go to another scene of the chapter"_s);
  cmdSaveAndPrev->setToolTip(u"Save and go to the scene before this one"_s);
  cmdSaveAndNext->setToolTip(u"Save and go to the next scene"_s);
  for (const NavigationCombo* const box : {cmbChapter, cmbScene}) {
    connect(box, &NavigationCombo::opening, this, &SceneNavigator::opening);
  }
  connect(cmbChapter, &NavigationCombo::activated, this, [this] { Q_EMIT chapterChosen(cmbChapter->selectedID()); });
  connect(cmbScene, &NavigationCombo::activated, this, [this] { Q_EMIT sceneChosen(cmbScene->selectedID()); });
  connect(cmdSaveAndPrev, &QPushButton::clicked, this, [this] { Q_EMIT neighbourWanted(-1); });
  connect(cmdSaveAndNext, &QPushButton::clicked, this, [this] { Q_EMIT neighbourWanted(1); });
}

void SceneNavigator::buildLayout() {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  for (const auto& [box, caption] : {std::pair{cmbChapter, u"C&hapter:"_s}, {cmbScene, u"S&cene:"_s}}) {
    box->setMinimumContentsLength(8);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(makeLabelOf(caption, *box));
    row->addWidget(box, 1);
  }
  row->addWidget(cmdSaveAndPrev);
  row->addWidget(cmdSaveAndNext);
}

void SceneNavigator::find(clsScene& scene, const QString& title) {
  FillChapterCombo();
  cmbChapter->selectID(scene.BelongsToChID);
  FillSceneCombo();
  cmbScene->selectID(scene.ID());
  showTitle(title);
}

void SceneNavigator::FillChapterCombo() {
  cmbChapter->clear();
  for (const auto& chapter : g_Project->Chapters) {
    cmbChapter->addID(entry(chapter->Title, cmbChapter->count() + 1), chapter->ID());
  }
}

void SceneNavigator::FillSceneCombo() {
  cmbScene->clear();
  if (cmbChapter->selectedID() == 0) {
    return;
  }
  const auto chapter = g_Project->ChapterByID(cmbChapter->selectedID());
  for (const qint32 id : chapter->SceneIDs()) {
    cmbScene->addID(entry(calledScene(g_Project->SceneByID(id)->Title), cmbScene->count() + 1), id);
  }
}

void SceneNavigator::showTitle(const QString& title) {
  if (const int row = cmbScene->currentIndex(); row >= 0) {
    cmbScene->setItemText(row, entry(calledScene(title), row + 1));
  }
}

SceneNavigator::Target SceneNavigator::neighbour(int step) const {
  const int row = cmbScene->currentIndex() + step;
  if (cmbScene->currentIndex() >= 0 && row >= 0 && row < cmbScene->count()) {
    return {cmbScene->itemData(row).toInt(), 0};
  }
  const int chapters = cmbChapter->count();
  if (chapters == 0) {
    return {};
  }
  // From no chapter at all the way leads to the first, or to the last.
  const int from = cmbChapter->currentIndex() < 0 && step < 0 ? 0 : cmbChapter->currentIndex();
  const qint32 chapterID = cmbChapter->itemData((from + step + chapters) % chapters).toInt();
  const IDList& scenes = g_Project->ChapterByID(chapterID)->SceneIDs();
  if (scenes.isEmpty()) {
    return {0, chapterID};
  }
  return {step > 0 ? scenes.at(1) : scenes.at(scenes.Count()), 0};
}

qint32 SceneNavigator::nextChapter() const {
  return cmbChapter->itemData(cmbChapter->currentIndex() + 1).toInt();
}
