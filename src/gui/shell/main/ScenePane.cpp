#include "gui/shell/main/ScenePane.h"

#include "core/model/Globals.h"
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
#include "gui/views/RowIcon.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

enum Column { kViewpoint, kWords, kScene, kStatus, kActionReaction, kFilename, kLetters };

constexpr QStringView kStartOfTitle = u"A scene in";
constexpr QStringView kShortTitle = u"A scene in a few words";
constexpr QStringView kLongTitle = u"A scene that takes more words to tell what is in it";

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

/// A scene whose status was never set has none to show.
QString statusName(qint16 status) {
  return status > 0 ? g_StatusNames.value(status) : QString();
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
  QHeaderView& header = *ListScenes->header();
  header.setSectionsMovable(true);
  header.setFirstSectionMovable(true);
  header.setStretchLastSection(false);
  ListScenes->headerItem()->setTextAlignment(kWords, Qt::AlignRight | Qt::AlignVCenter);
  ListScenes->headerItem()->setTextAlignment(kActionReaction, Qt::AlignCenter);
  for (const auto& [column, longest] : {std::pair{kViewpoint, QStringView(u"Elizabeth")},
                                        {kWords, u"8,888"},
                                        {kScene, kShortTitle},
                                        {kStatus, u"2nd Edit"},
                                        {kActionReaction, u"A"},
                                        {kFilename, u"RTF_00001.rtf"},
                                        {kLetters, u"88,888"}}) {
    ListScenes->setColumnWidth(column, ListScenes->widthFor(column, longest));
  }

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

void ScenePane::connectSignals() {
  connect(ListScenes, &ListView::paletteChanged, this,
          guarded("ListScenes_PaletteChange", kModule, this, &ScenePane::recolourRows));
  connect(ListScenes, &QTreeWidget::itemSelectionChanged, this, guarded("ListScenes_ItemClick", kModule, [this] {
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
  const auto chapter = g_Project->ChapterByID(ChapterID);
  const QTreeWidgetItem* selected = ListScenes->SelectedItem();
  const int kept = selected == nullptr ? 0 : ListScenes->indexFromItem(selected).row();
  const int wanted = SelectIndex < 1 ? kept : SelectIndex - 1;
  QList<QTreeWidgetItem*> rows;
  for (const qint32 id : chapter->SceneIDs()) {
    auto* row = new QTreeWidgetItem;
    UpdateSceneRow(*row, id);
    rows.append(row);
  }
  {
    const QScopedValueRollback filling(filling_, true);
    ListScenes->clear();
    ListScenes->addTopLevelItems(rows);
    ListScenes->SelectRow(wanted < rows.size() ? wanted : 0);
  }
  shownChapterID_ = ChapterID;
  rows.isEmpty() ? ClearSceneDisplay() : DisplaySelectedScene();
}

void ScenePane::clear() {
  {
    const QScopedValueRollback filling(filling_, true);
    ListScenes->clear();
  }
  shownChapterID_ = 0;
  ClearSceneDisplay();
}

void ScenePane::UpdateSceneRow(QTreeWidgetItem& row, qint32 SceneID) const {
  const auto scene = g_Project->SceneByID(SceneID);
  ListView::setTag(row, SceneID);
  row.setIcon(kViewpoint, rowIcon(sceneIcon(*scene)));
  setCell(row, kViewpoint, scene->ViewPointChar()->Title());
  setCell(row, kWords, scene->Wordcount());
  setCell(row, kScene, scene->Title);
  setCell(row, kStatus, statusName(scene->Status));
  setCell(row, kActionReaction, scene->ReactionScene ? u"R"_s : u"A"_s);
  setCell(row, kFilename, scene->RTFFilename());
  setCell(row, kLetters, scene->Lettercount());
  const QVariant grey = QBrush(RowColours::readable(RowColours::kGrey, ListScenes->palette()));
  row.setData(kStatus, Qt::ForegroundRole, scene->Unused ? grey : QVariant());
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

double ScenePane::splitterLeft() const {
  return Twips::fromPixels(splitter_->handle(1)->x());
}

double ScenePane::frameWidth() const {
  return Twips::fromPixels(width());
}

void ScenePane::fitSceneTitles() {
  const auto widthOf = [this](QStringView title) { return ListScenes->widthFor(kScene, title); };
  const int others = ListScenes->header()->length() - ListScenes->columnWidth(kScene);
  int shown = ListScenes->roomForColumns() - others;
  if (shown < widthOf(kShortTitle)) {
    const int behind = ListScenes->columnWidth(kFilename) + ListScenes->columnWidth(kLetters);
    shown = ListScenes->maximumViewportSize().width() - (others - behind);
  }
  ListScenes->setColumnWidth(kScene, qBound(widthOf(kStartOfTitle), shown, widthOf(kLongTitle)));
}

void ScenePane::recolourRows() {
  for (int i = 0; i < ListScenes->topLevelItemCount(); ++i) {
    QTreeWidgetItem& row = *ListScenes->topLevelItem(i);
    UpdateSceneRow(row, ListView::tagOf(row));
  }
}
