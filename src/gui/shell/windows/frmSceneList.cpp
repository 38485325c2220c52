#include "gui/shell/windows/frmSceneList.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Twips.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"
#include "gui/views/RowColours.h"
#include "gui/views/SceneCells.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <array>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmSceneList";
const QString kBlock = u"SceneList"_s;
constexpr QSize kLettersAndLines(150, 32);
/// Under the list, in twips.
constexpr double kMargin = 150;

enum Column {
  kChapter,
  kStatus,
  kAction,
  kWords,
  kDay,
  kHour,
  kMinute,
  kViewpoint,
  kDescription,
  kLastsDays,
  kLastsHours,
  kLastsMinutes,
};

struct ColumnLook {
  QStringView title;
  /// Where the title is short for something.
  QStringView spoken;
  Qt::AlignmentFlag alignment;
  /// What it has room for at first.
  QStringView longest;
};

constexpr std::array kColumns{
    ColumnLook{u"Ch", u"Chapter", Qt::AlignLeft, u"88. A chapter's title"},
    ColumnLook{u"Status", {}, Qt::AlignLeft, u"2nd Edit"},
    ColumnLook{u"A", u"Action or reaction", Qt::AlignHCenter, u"A"},
    ColumnLook{u"Wds", u"Words", Qt::AlignRight, u"8,888"},
    ColumnLook{u"D", u"Day", Qt::AlignRight, u"8888"},
    ColumnLook{u"H", u"Hour", Qt::AlignRight, u"88"},
    ColumnLook{u"M", u"Minute", Qt::AlignRight, u"88"},
    ColumnLook{u"VP", u"Viewpoint", Qt::AlignLeft, u"Mrs. Bennet"},
    ColumnLook{u"Description", {}, Qt::AlignLeft, u"A scene in a few words"},
    ColumnLook{u"Days", u"Lasts: days", Qt::AlignRight, u"88"},
    ColumnLook{u"Hrs", u"Lasts: hours", Qt::AlignRight, u"88"},
    ColumnLook{u"Mins", u"Lasts: minutes", Qt::AlignRight, u"88"},
};

bool isLetter(const ColumnLook& column) {
  return column.title.size() == 1;
}

/// The letter that the word begins with; more of them where another such column begins in the same way.
QString shortTitle(const ColumnLook& wanted) {
  const QString word = translated(wanted.spoken.toString());
  qsizetype letters = 1;
  for (const ColumnLook& column : kColumns) {
    const QString other = isLetter(column) ? translated(column.spoken.toString()) : QString();
    while (other != word && letters < word.size() && other.startsWith(QStringView(word).first(letters))) {
      ++letters;
    }
  }
  return word.first(letters);
}

QStringList columnTitles() {
  QStringList titles;
  for (const ColumnLook& column : kColumns) {
    titles.append(isLetter(column) ? shortTitle(column) : column.title.toString());
  }
  return titles;
}

/// Of a scene that has left the book since the list was filled: an empty row, until the next look.
ListRow sceneRow(qint32 id) {
  const auto scene = g_Project->SceneByID(id);
  if (!scene->InScenes()) {
    return {};
  }
  const auto number = [](qint16 value) { return QString::number(value); };
  ListRow row{{g_Project->ChapterByID(scene->BelongsToChID)->Title, SceneCells::status(*scene),
               SceneCells::actionOrReaction(*scene), QLocale().toString(scene->Wordcount()), number(scene->Day),
               number(scene->Hour), number(scene->Minute), shownViewpoint(*scene), calledScene(scene->Title),
               number(scene->LastsDays), number(scene->LastsHours), number(scene->LastsMinutes)}};
  if (scene->Unused) {
    row.colours = {{kDescription, RowColours::kGrey}};
    row.states = QStringList(shownText(u"unused"_s));
  }
  row.spoken = SceneCells::spoken(*scene, kViewpoint, kAction);
  return row;
}

}  // namespace

frmSceneList::frmSceneList(QWidget* parent)
    : QDialog(parent), poller_("Timer1_Timer", kModule, ChangeArea::SceneList, this) {
  setObjectName(u"frmSceneList"_s);
  setWindowTitle(u"Scene List"_s);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  createControls();
  buildLayout();
  connectSignals();
  restoreLayout();
  UpdateItem();
  followChanges();
}

void frmSceneList::createControls() {
  ListView1 = new ListView(columnTitles(), this);
  giveName(*ListView1, u"ListView1"_s, u"All scenes"_s);
  setUpColumns();
  cmdChangeSelected = makeButton(u"cmdChangeSelected"_s, u"C&hange selected to:"_s, this);
  cmdChangeSelected->setToolTip(u"Changes the status of the selected scenes"_s);
  cmbStatus = new QComboBox(this);
  cmbStatus->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  giveName(*cmbStatus, u"cmbStatus"_s, u"Status"_s);
  cmbStatus->view()->setAccessibleName(u"Status"_s);
  fillStatuses();
  cmdExit = makeButton(u"cmdExit"_s, u"E&xit"_s, this);
  for (QPushButton* const button : {cmdChangeSelected, cmdExit}) {
    button->setAutoDefault(false);
  }
}

void frmSceneList::fillStatuses() {
  const int chosen = cmbStatus->currentIndex();
  cmbStatus->clear();
  cmbStatus->setPlaceholderText(translated(u"(choose one)"_s));
  cmbStatus->addItems(SceneCells::statuses());
  cmbStatus->setCurrentIndex(chosen);
}

void frmSceneList::setUpColumns() {
  for (int column = 0; column < static_cast<int>(kColumns.size()); ++column) {
    const ColumnLook& look = kColumns[static_cast<size_t>(column)];
    ListView1->rows().setAlignment(column, look.alignment);
    if (!look.spoken.isEmpty()) {
      ListView1->rows().setSpokenTitle(column, look.spoken.toString());
    }
    ListView1->setColumnWidth(column, ListView1->widthFor(column, look.longest));
  }
  ListView1->widen(kStatus, SceneCells::statuses());
  ListView1->setFillRule({kDescription,
                          u"A scene in"_s,
                          u"A scene that takes more words to tell"_s,
                          {kLastsDays, kLastsHours, kLastsMinutes}});
}

void frmSceneList::buildLayout() {
  auto* const row = new QHBoxLayout;
  row->addWidget(cmdChangeSelected);
  row->addWidget(cmbStatus);
  row->addStretch(1);
  row->addWidget(cmdExit);
  auto* const column = new QVBoxLayout(this);
  column->setSpacing(Twips::toPixels(kMargin));
  column->addWidget(ListView1, 1);
  column->addLayout(row);
}

void frmSceneList::connectSignals() {
  const auto open = guarded("ListView1_DblClick", kModule, this, &frmSceneList::ListView1_DblClick);
  connect(ListView1, &ListView::rowOpened, this, open);
  connect(ListView1, &ListView::enterPressed, this, open);
  connect(ListView1, &ListView::rowsSelected, this, &frmSceneList::enableButtons);
  connect(cmbStatus, &QComboBox::currentIndexChanged, this, &frmSceneList::enableButtons);
  connect(cmdChangeSelected, &QPushButton::clicked, this,
          guarded("cmdChangeSelected_Click", kModule, this, &frmSceneList::cmdChangeSelected_Click));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSceneList::restoreLayout() {
  const QSize wanted(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
                     fontMetrics().lineSpacing() * kLettersAndLines.height());
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(kBlock, *this);
  restoreColumns(kBlock, *ListView1);
  // Widths of the user's own stay; others follow the window.
  if (Numbers::ToBool(Settings().sGet(kBlock + u"Filled"_s, true))) {
    ListView1->fillRoom();
  }
}

void frmSceneList::storeLayout() {
  storeWindow(kBlock, *this);
  storePlace(kBlock, *this);
  storeColumns(kBlock, *ListView1);
  Settings().sSet(kBlock + u"Filled"_s, ListView1->isFilled());
}

void frmSceneList::followChanges() {
  poller_.follow(g_SceneChanges, [this](qint32 id) { sceneChanged(id); });
  poller_.follow(g_CharChanges, [this](qint32 id) { renamed_.insert(id); });
  poller_.setAfterPoll([this](bool) {
    showRenamed();
    if (Story story = Story::ofBook(); story != shown_) {
      fillRows(std::move(story));
    }
  });
  // The rows show what has changed till now.
  g_SceneChanges.ResetChangedByArea(static_cast<int>(ChangeArea::SceneList));
  g_CharChanges.ResetChangedByArea(static_cast<int>(ChangeArea::SceneList));
  poller_.start(1000ms);
}

frmSceneList::Story frmSceneList::Story::ofBook() {
  Story story;
  story.scenes.reserve(g_Project->SceneCount());
  story.chapters.reserve(g_Project->ChapterCount());
  for (const auto& chapter : g_Project->Chapters) {
    story.chapters.append(chapter->Title);
    for (const qint32 id : chapter->SceneIDs()) {
      story.scenes.append(id);
    }
  }
  return story;
}

void frmSceneList::UpdateItem() {
  refresh();
  if (const int row = ListView1->SelectedRow(); row >= 0) {
    ListView1->scrollTo(ListView1->model()->index(row, 0));
  }
}

void frmSceneList::refresh() {
  fillRows(Story::ofBook());
}

void frmSceneList::SelectScene(qint32 id) {
  ListView1->SelectTag(id);
  ListView1->scrollTo(ListView1->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void frmSceneList::clear() {
  fillRows({});
  ListView1->setEmptyText({});
}

void frmSceneList::fillRows(Story story) {
  shown_ = std::move(story);
  rowOf_.clear();
  rowOf_.reserve(shown_.scenes.size());
  for (const qint32 id : shown_.scenes) {
    rowOf_.insert(id, static_cast<int>(rowOf_.size()));
  }
  ListView1->setEmptyText(SceneCells::whyNone());
  ListView1->setRows(shown_.scenes, [](qint32 id, int) { return sceneRow(id); });
  enableButtons();
}

void frmSceneList::sceneChanged(qint32 id) {
  ListView1->updateRow(rowOf_.value(id, -1));
}

// The scenes that somebody narrates who has another name now.
void frmSceneList::showRenamed() {
  const QSet<qint32> renamed = std::exchange(renamed_, {});
  if (renamed.isEmpty()) {
    return;
  }
  for (int row = 0; row < shown_.scenes.size(); ++row) {
    if (renamed.contains(g_Project->SceneByID(shown_.scenes.at(row))->ViewPointID())) {
      ListView1->updateRow(row);
    }
  }
}

void frmSceneList::enableButtons() {
  cmdChangeSelected->setEnabled(cmbStatus->currentIndex() >= 0 && ListView1->SelectedRow() >= 0);
}

void frmSceneList::ListView1_DblClick() {
  const qint32 id = ListView1->SelectedTag();
  if (id < 1 || g_Project->IsBusy()) {
    return;
  }
  const auto scene = g_Project->SceneByID(id);
  if (scene->InScenes()) {
    scene->Edit();
    Q_EMIT sceneOpened();
  }
}

// Entry 0 is the status 1.
void frmSceneList::cmdChangeSelected_Click() {
  Q_EMIT statusWanted(ListView1->SelectedTags(), static_cast<qint16>(cmbStatus->currentIndex() + 1));
}

void frmSceneList::bringForward() {
  if (!isVisible()) {
    restorePlace(kBlock, *this);
  }
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void frmSceneList::reject() {
  QDialog::reject();
  Q_EMIT ClosedForm();
}

// Whoever else closes the window lets it go by himself.
void frmSceneList::closeEvent(QCloseEvent* event) {
  event->spontaneous() ? QDialog::closeEvent(event) : event->accept();
}

void frmSceneList::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) {
    Guard("Form_Localise", kModule)([this] { showInLanguage(); });
  }
}

void frmSceneList::showInLanguage() {
  const QStringList titles = columnTitles();
  for (int column = 0; column < titles.size(); ++column) {
    ListView1->rows().setTitle(column, titles.at(column));
  }
  fillStatuses();
  ListView1->widenToTitles({{kStatus, SceneCells::statuses()}});
  refresh();
}

void frmSceneList::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) {
    storeLayout();
  }
}
