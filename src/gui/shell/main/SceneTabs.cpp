#include "gui/shell/main/SceneTabs.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/SceneBody.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

enum Tab { kDescription, kContent, kCharacters, kLocations, kItems, kGoals, kNotes };

constexpr std::array kGoalNames{"txtGoal", "txtConflict", "txtOutcome"};

/// What one of the three is called, and what is said where there is none.
struct GoalWords {
  const char16_t* label;
  const char16_t* none;
};

constexpr std::array kActionWords{GoalWords{shownText(u"Goal"), shownText(u"No Goal specified")},
                                  GoalWords{shownText(u"Conflict"), shownText(u"No Conflict specified")},
                                  GoalWords{shownText(u"Outcome"), shownText(u"No Outcome specified")}};
constexpr std::array kReactionWords{GoalWords{shownText(u"Reaction"), shownText(u"No Reaction specified")},
                                    GoalWords{shownText(u"Dilemma"), shownText(u"No Dilemma specified")},
                                    GoalWords{shownText(u"Decision"), shownText(u"No Decision specified")}};

/// What stands in empty lists beside a scene.
void showHints(const SceneTabs::CastLists& lists, const QString& whenNone) {
  lists.inScene->setEmptyText(
      shownText(u"None in this scene yet.\nInsert in the list below adds what is selected there."_s));
  lists.all->setEmptyText(whenNone);
}

ListView* plainList(const QString& name, const QString& spokenName, const QStringList& columns) {
  auto* list = new ListView(columns);
  giveName(*list, name, spokenName);
  list->setHeaderHidden(columns.size() == 1);
  list->setColumnWidth(0, list->widthFor(0, u"Lady Catherine"));
  list->setFillRule({static_cast<int>(columns.size()) - 1});
  return list;
}

/// What stands there already stays where it is scrolled to.
void showText(QPlainTextEdit& field, const QString& text) {
  if (field.toPlainText() != QString(text).replace(u"\r\n"_s, u"\n"_s)) {
    field.setPlainText(text);
  }
}

}  // namespace

SceneTabs::SceneTabs(QWidget* parent) : QTabWidget(parent) {
  giveName(*this, u"TabStrip1"_s, u"What the selected scene holds"_s);
  setUsesScrollButtons(true);
  tabBar()->setExpanding(false);
  fitIcons();
  // The arrow keys walk through all tabs: the buttons that scroll them are for the mouse.
  for (QToolButton* scroll : tabBar()->findChildren<QToolButton*>()) {
    scroll->setFocusPolicy(Qt::NoFocus);
  }
  for (const QString& caption :
       {u"Description"_s, u"Content"_s, u"Characters"_s, u"Locations"_s, u"Items"_s, u"Goals"_s, u"Scene Notes"_s}) {
    addFrame(caption);
  }
  buildDescription();
  filling_.setInterval(0);
  connect(&filling_, &QTimer::timeout, this, guarded("TabStrip1_Fill", kModule, this, &SceneTabs::fillNext));
  connect(this, &QTabWidget::currentChanged, this, guarded("TabStrip1_Click", kModule, [this](int tab) {
            buildHiddenTabs();
            fillTab(tab);
          }));
}

void SceneTabs::addFrame(const QString& caption) {
  auto* frame = new QWidget;
  frame->setObjectName(u"Frame("_s + QString::number(count()) + u')');
  new QVBoxLayout(frame);
  setTabToolTip(addTab(frame, caption),
                u"ALL of the fields in this tab control are READ ONLY! Double-click a scene to change the data "
                "presented here."_s);
}

QVBoxLayout* SceneTabs::columnOf(int tab) const {
  return static_cast<QVBoxLayout*>(widget(tab)->layout());
}

void SceneTabs::paintEvent(QPaintEvent* event) {
  QTabWidget::paintEvent(event);
  if (txtBody == nullptr) {
    QTimer::singleShot(0, this, guarded("TabStrip1_Paint", kModule, this, &SceneTabs::buildHiddenTabs));
  }
}

void SceneTabs::changeEvent(QEvent* event) {
  QTabWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    fitIcons();
  }
}

// No higher than the text: the display below would move with each icon that comes or goes.
void SceneTabs::fitIcons() {
  const int size = std::min(style()->pixelMetric(QStyle::PM_TabBarIconSize, nullptr, this), fontMetrics().height());
  setIconSize({size, size});
}

void SceneTabs::buildHiddenTabs() {
  if (txtBody != nullptr) {
    return;
  }
  buildContent();
  cast_ = {
      buildLists(kCharacters, {u"ListChar"_s,
                               shownText(u"Characters in this scene"_s),
                               shownText(u"All characters"_s),
                               {u"Name"_s, u"Full name"_s}}),
      buildLists(kLocations,
                 {u"ListLoc"_s, shownText(u"Locations in this scene"_s), shownText(u"All locations"_s), {u"Name"_s}}),
      buildLists(kItems,
                 {u"ListItems"_s, shownText(u"Items in this scene"_s), shownText(u"All items"_s), {u"Name"_s}})};
  buildGoals();
  buildNotes();
  Q_EMIT listsBuilt();
  if (sceneID_ != 0) {
    filling_.start();
  }
}

int SceneTabs::widthOfTabs() const {
  int width = 0;
  for (int tab = 0; tab < count(); ++tab) {
    // The goals and the notes get a picture where there are some.
    width += tabBar()->tabRect(tab).width() + (tab >= kGoals && tabIcon(tab).isNull() ? iconSize().width() + 4 : 0);
  }
  // The frame, and what a picture that comes makes the captions wider by.
  return width + fontMetrics().averageCharWidth() * 4;
}

void SceneTabs::buildDescription() {
  QVBoxLayout* column = columnOf(kDescription);
  txtSceneTitle = makeLineEdit(u"txtSceneTitle"_s, u"Scene title"_s);
  txtSceneTitle->setReadOnly(true);
  txtDesc = makeReadOnlyText(u"txtDesc"_s, u"Scene description"_s);
  txtDesc->viewport()->installEventFilter(this);
  column->addWidget(makeLabelOf(u"Title:"_s, *txtSceneTitle));
  column->addWidget(txtSceneTitle);
  column->addWidget(makeLabelOf(u"Description:"_s, *txtDesc));
  column->addWidget(txtDesc);
}

void SceneTabs::buildContent() {
  txtBody = new SceneBody;
  txtBody->viewport()->installEventFilter(this);
  lblEmpty_ = makeLabel({}, u"Press Enter on the scene, or double-click it, to write."_s);
  lblEmpty_->setWordWrap(true);
  lblEmpty_->hide();
  columnOf(kContent)->addWidget(txtBody, 1);
  columnOf(kContent)->addWidget(lblEmpty_);
}

SceneTabs::CastLists SceneTabs::buildLists(int tab, const CastNames& names) {
  const CastLists lists{plainList(names.array + u"(0)"_s, names.inScene, {u"Name"_s}),
                        plainList(names.array + u"(1)"_s, names.all, names.allColumns)};
  lists.inScene->setToolTip(u"Press Delete, or drag rows to the list of all, to take them out of this scene."_s);
  lists.all->setToolTip(u"Press Insert, or drag rows to the list above or to selected scenes, to add them."_s);
  QVBoxLayout* column = columnOf(tab);
  column->addWidget(makeLabelOf(u"In this scene:"_s, *lists.inScene));
  column->addWidget(lists.inScene, 1);
  column->addWidget(makeLabelOf(u"All:"_s, *lists.all));
  column->addWidget(lists.all, 1);
  return lists;
}

void SceneTabs::buildGoals() {
  QVBoxLayout* column = columnOf(kGoals);
  for (size_t i = 0; i < goals_.size(); ++i) {
    const QString label = QString::fromUtf16(kActionWords[i].label);
    goals_[i] = makeReadOnlyText(QString::fromLatin1(kGoalNames[i]), label);
    goalLabels_[i] = makeLabelOf(label, *goals_[i]);
    column->addWidget(goalLabels_[i]);
    column->addWidget(goals_[i], 1);
  }
}

void SceneTabs::buildNotes() {
  txtNotes = makeReadOnlyText(u"txtNotes"_s, u"Scene notes"_s);
  columnOf(kNotes)->addWidget(txtNotes);
}

bool SceneTabs::eventFilter(QObject* watched, QEvent* event) {
  // Only the text and the description are watched.
  if (event->type() == QEvent::MouseButtonDblClick) {
    Q_EMIT sceneOpened();
    return true;
  }
  return QTabWidget::eventFilter(watched, event);
}

// An icon that comes or goes lays out all tabs anew.
void SceneTabs::showTabIcon(int tab, const char* key, bool shown) {
  if (shown == tabIcon(tab).isNull()) {
    setTabIcon(tab, shown ? icon(key) : QIcon());
    tabBar()->setAccessibleTabName(tab, shown ? translated(u"%1, filled"_s).arg(tabText(tab)) : QString());
  }
}

void SceneTabs::display(clsScene& scene) {
  sceneID_ = scene.ID();
  showTabIcon(kNotes, "note", scene.HasNote());
  showTabIcon(kGoals, "goal", !(scene.Goal.isEmpty() && scene.Conflict.isEmpty() && scene.Outcome.isEmpty()));
  stale_.fill(true);
  fillTab(currentIndex());
  if (txtBody != nullptr) {
    filling_.start();
  }
}

RichTextBox& SceneTabs::showContent() {
  buildHiddenTabs();
  setCurrentIndex(kContent);
  stale_[kContent] = true;
  fillTab(kContent);
  return *txtBody;
}

RichTextBox* SceneTabs::content() const {
  return txtBody;
}

// One tab a turn: keys and clicks come in between.
void SceneTabs::fillNext() {
  const auto next = std::find(stale_.begin(), stale_.end(), true);
  if (next == stale_.end()) {
    filling_.stop();
  } else {
    fillTab(static_cast<int>(next - stale_.begin()));
  }
}

void SceneTabs::completeDisplay() {
  buildHiddenTabs();
  while (filling_.isActive()) {
    fillNext();
  }
}

void SceneTabs::fillTab(int tab) {
  bool& stale = stale_.at(static_cast<size_t>(tab));
  if (!stale || sceneID_ == 0 || (tab != kDescription && txtBody == nullptr)) {
    return;
  }
  stale = false;
  // A scene that has gone shows as a blank one, which nothing else holds.
  const auto shown = g_Project->SceneByID(sceneID_);
  clsScene& scene = *shown;
  switch (tab) {
    case kDescription:
      if (txtSceneTitle->text() != scene.Title) {
        txtSceneTitle->setText(scene.Title);
        txtSceneTitle->setCursorPosition(0);
      }
      txtSceneTitle->setPlaceholderText(translated(calledScene({})));
      txtDesc->setPlaceholderText(translated(u"No description yet"_s));
      showText(*txtDesc, scene.DescText);
      break;
    case kContent:
      lblEmpty_->setVisible(!txtBody->showText(scene));
      break;
    case kCharacters:
      showHints(cast_[0], shownText(u"None yet.\nCharacters \u2013 View/Edit makes the first."_s));
      modFillList::FillCharInScene(*cast_[0].inScene, sceneID_, false, false);
      modFillList::FillAllCharList(*cast_[0].all, true, false);
      break;
    case kLocations:
      showHints(cast_[1], shownText(u"None yet.\nLocations \u2013 View/Edit makes the first."_s));
      modFillList::FillLocationsInScene(*cast_[1].inScene, sceneID_);
      modFillList::FillAllLocations(*cast_[1].all);
      break;
    case kItems:
      showHints(cast_[2], shownText(u"None yet.\nItems \u2013 View/Edit makes the first."_s));
      modFillList::FillItemsInScene(*cast_[2].inScene, sceneID_);
      modFillList::FillAllItems(*cast_[2].all);
      break;
    case kGoals:
      displayGoals(scene);
      break;
    default:
      txtNotes->setPlaceholderText(translated(u"No notes yet"_s));
      showText(*txtNotes, scene.Notes);
  }
}

void SceneTabs::displayGoals(const clsScene& scene) {
  const auto& words = scene.ReactionScene ? kReactionWords : kActionWords;
  const std::array texts{&scene.Goal, &scene.Conflict, &scene.Outcome};
  for (size_t i = 0; i < goals_.size(); ++i) {
    const QString label = translated(QString::fromUtf16(words[i].label));
    const QString& text = *texts[i];
    goalLabels_[i]->setText(label);
    goals_[i]->setAccessibleName(label);
    showText(*goals_[i], text.isEmpty() ? translated(QString::fromUtf16(words[i].none)) : text);
  }
}

void SceneTabs::clearDisplay() {
  sceneID_ = 0;
  filling_.stop();
  stale_.fill(false);
  txtSceneTitle->clear();
  txtSceneTitle->setPlaceholderText({});
  txtDesc->clear();
  txtDesc->setPlaceholderText({});
  showTabIcon(kNotes, "note", false);
  showTabIcon(kGoals, "goal", false);
  if (txtBody == nullptr) {
    return;
  }
  txtBody->clearText();
  lblEmpty_->hide();
  for (QPlainTextEdit* field : {txtNotes, goals_[0], goals_[1], goals_[2]}) {
    field->clear();
  }
  txtNotes->setPlaceholderText({});
  for (const CastLists& lists : cast_) {
    for (ListView* list : {lists.inScene, lists.all}) {
      modFillList::clear(*list);
      list->setEmptyText({});
    }
  }
}
