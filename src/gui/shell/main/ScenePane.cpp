#include "gui/shell/main/ScenePane.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/PaneLayout.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/toolkit/Twips.h"
#include "gui/views/ListView.h"
#include "gui/views/RowColours.h"
#include "gui/views/SceneCells.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

enum Column { kViewpoint, kWords, kScene, kStatus, kActionReaction, kFilename, kLetters };

/// A list that is narrower tells of its scenes too little, whatever becomes of the tabs.
constexpr double kLeastForList = 0.38;

constexpr QStringView kStartOfTitle = u"A scene in";
constexpr QStringView kShortTitle = u"A scene in a few words";
constexpr QStringView kLongTitle = u"A scene that takes more words to tell";

/// The first that holds.
const char* sceneIcon(clsScene& scene) {
  if (scene.Unused) {
    return "sceneunused";
  }
  if (scene.Locked()) {
    return "edit";
  }
  return scene.HasNote() ? "note" : "scene";
}

/// What the icon and the colour of the status tell, and what they hide.
QStringList sceneStates(clsScene& scene) {
  QStringList states;
  if (scene.Unused) {
    states.append(shownText(u"unused"_s));
  }
  if (scene.Locked()) {
    states.append(shownText(u"open in an editor"_s));
  }
  if (scene.HasNote()) {
    states.append(shownText(u"has a note"_s));
  }
  return states;
}

ListRow sceneRow(qint32 id) {
  const auto scene = g_Project->SceneByID(id);
  const QLocale locale;
  return {
      {shownViewpoint(*scene), locale.toString(scene->Wordcount()), calledScene(scene->Title),
       SceneCells::status(*scene), SceneCells::actionOrReaction(*scene), scene->RTFFilename(),
       locale.toString(scene->Lettercount())},
      sceneIcon(*scene),
      scene->Unused ? QList<std::pair<int, quint32>>{{kStatus, RowColours::kGrey}} : QList<std::pair<int, quint32>>(),
      sceneStates(*scene),
      {},
      SceneCells::spoken(*scene, kViewpoint, kActionReaction)};
}

}  // namespace

ScenePane::ScenePane(QWidget* parent)
    : QWidget(parent),
      ListScenes(
          new ListView({u"Viewpoint"_s, u"Words"_s, u"Scene"_s, u"Status"_s, u"A/R"_s, u"Filename"_s, u"Letters"_s})),
      TabStrip1(new SceneTabs),
      splitter_(new ProportionalSplitter(Qt::Horizontal)) {
  setObjectName(u"FrameScenes"_s);
  buildLayout();
  connectSignals();
}

void ScenePane::buildLayout() {
  giveName(*ListScenes, u"ListScenes"_s, u"Scenes of the selected chapter"_s);
  ListModel& rows = ListScenes->rows();
  rows.setAlignment(kWords, Qt::AlignRight);
  rows.setAlignment(kLetters, Qt::AlignRight);
  rows.setAlignment(kActionReaction, Qt::AlignHCenter);
  rows.setSpokenTitle(kActionReaction, u"Action or reaction"_s);
  for (const auto& [column, longest] : {std::pair{kViewpoint, QStringView(u"Mrs. Bennet")},
                                        {kWords, u"8,888"},
                                        {kScene, kShortTitle},
                                        {kStatus, u"2nd Edit"},
                                        {kActionReaction, u"A"},
                                        {kFilename, u"RTF_00001.rtf"},
                                        {kLetters, u"88,888"}}) {
    ListScenes->setColumnWidth(column, ListScenes->widthFor(column, longest));
  }
  ListScenes->setFillRule({kScene, kStartOfTitle.toString(), kLongTitle.toString(), {kFilename, kLetters}});

  splitter_->setObjectName(u"SceneSplitter"_s);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(ListScenes);
  splitter_->addWidget(TabStrip1);
  splitter_->handle(1)->setObjectName(u"imgHorDivide"_s);
  ListScenes->setMinimumWidth(PaneLayout::pixelsAtLeast(PaneLayout::kSplitterLeft));
  TabStrip1->setMinimumWidth(PaneLayout::pixelsAtLeast(PaneLayout::kSplitterRight) - splitter_->handleWidth());

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(splitter_);
}

void ScenePane::showInLanguage() {
  ListScenes->rows().setTitle(kActionReaction, SceneCells::letters());
  ListScenes->widenToTitles({{kStatus, SceneCells::statuses()}});
}

void ScenePane::connectSignals() {
  connect(ListScenes, &ListView::rowsSelected, this, guarded("ListScenes_ItemClick", kModule, [this] {
            const bool gathering = (QApplication::mouseButtons() & Qt::LeftButton) != 0 &&
                                   (QApplication::keyboardModifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
            if (!filling_ && !gathering && !ListScenes->keyIsDown()) {
              displayIfOther();
            }
          }));
  connect(ListScenes, &ListView::buttonUp, this,
          guarded("ListScenes_MouseUp", kModule, this, &ScenePane::displayIfOther));
  connect(ListScenes, &ListView::keyUp, this, guarded("ListScenes_KeyUp", kModule, [this] { displayIfOther(); }));
  connect(ListScenes, &ListView::rowOpened, this, &ScenePane::sceneOpened);
  connect(ListScenes, &ListView::enterPressed, this, &ScenePane::sceneOpened);
  connect(TabStrip1, &SceneTabs::sceneOpened, this, &ScenePane::sceneOpened);
}

void ScenePane::displayIfOther() {
  if (SelectedSceneID() != displayedSceneID_) {
    DisplaySelectedScene();
  }
}

void ScenePane::FillSceneList(qint32 ChapterID, int SelectIndex) {
  if (ChapterID == 0) {
    return;
  }
  const int wanted = SelectIndex < 1 ? ListScenes->SelectedRow() : SelectIndex - 1;
  const auto chapter = g_Project->ChapterByID(ChapterID);
  const IDList& ids = chapter->SceneIDs();
  {
    const QScopedValueRollback filling(filling_, true);
    ListScenes->setRows({ids.begin(), ids.end()}, [](qint32 id, int) { return sceneRow(id); });
    // Scenes that are still there stay selected.
    if (SelectIndex > 0 || ListScenes->SelectedRow() < 0) {
      ListScenes->SelectRow(wanted >= 0 && wanted < ListScenes->rowCount() ? wanted : 0);
    }
  }
  shownChapterID_ = ChapterID;
  ListScenes->setEmptyText(shownText(u"This chapter has no scenes yet.\nScene \u2013 Add scene adds one."_s));
  ListScenes->rowCount() == 0 ? ClearSceneDisplay() : DisplaySelectedScene();
}

void ScenePane::clear() {
  {
    const QScopedValueRollback filling(filling_, true);
    ListScenes->clear();
  }
  shownChapterID_ = 0;
  ListScenes->setEmptyText({});
  ClearSceneDisplay();
}

void ScenePane::UpdateSceneRow(qint32 SceneID) {
  ListScenes->updateRow(ListScenes->rowOfTag(SceneID));
}

void ScenePane::DisplaySelectedScene() {
  const qint32 id = SelectedSceneID();
  if (id == 0) {
    return;
  }
  displayedSceneID_ = id;
  TabStrip1->display(*g_Project->SceneByID(id));
}

void ScenePane::ClearSceneDisplay() {
  if (displayedSceneID_ != 0) {
    displayedSceneID_ = 0;
    TabStrip1->clearDisplay();
  }
}

void ScenePane::SelectScene(qint32 SceneID) {
  {
    const QScopedValueRollback filling(filling_, true);
    ListScenes->SelectTag(SceneID);
  }
  displayIfOther();
}

qint32 ScenePane::SelectedSceneID() const {
  return ListScenes->SelectedTag();
}

double ScenePane::splitForTabs() const {
  const double wanted = 1.0 - static_cast<double>(TabStrip1->widthOfTabs() + splitter_->handleWidth()) / width();
  return qBound(kLeastForList, wanted, PaneLayout::kDefaultSplit);
}

double ScenePane::splitterLeft() const {
  return Twips::fromPixels(splitter_->handle(1)->x());
}

double ScenePane::frameWidth() const {
  return Twips::fromPixels(width());
}
