#include "gui/shell/main/ChapterPane.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"
#include "gui/views/RowColours.h"
#include "gui/views/RowIcon.h"

#include <QEvent>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

enum Column { kTitle, kWords, kScenes, kCount };

/// The colour of a running total tells the section of the book. A section whose end isn't marked has none.
quint32 sectionColour(qint32 position, qint32 endOfBeginning, qint32 endOfMiddle) {
  if (endOfMiddle > 0 && position > endOfMiddle) {
    return RowColours::kRed;
  }
  return endOfBeginning > 0 && position > endOfBeginning ? RowColours::kOrange : RowColours::kGreen;
}

}  // namespace

ChapterPane::ChapterPane(QWidget* parent)
    : QWidget(parent),
      ListChapters(new ListView({u"Title"_s, u"Wds"_s, u"Scns"_s, u"Count"_s})),
      txtChapterDesc(makeReadOnlyText(u"txtChapterDesc"_s, u"Chapter description"_s)) {
  setObjectName(u"FrameChapters"_s);
  buildLayout();
  connectSignals();
}

void ChapterPane::buildLayout() {
  auto* titles = new QFormLayout;
  txtTitle = addLineEdit(*titles, u"txtTitle"_s, u"Title"_s);
  txtAuthor = addLineEdit(*titles, u"txtAuthor"_s, u"Author"_s);

  giveName(*ListChapters, u"ListChapters"_s, u"Chapters"_s);
  ListChapters->header()->setStretchLastSection(false);
  for (const auto& [column, longest] : {std::pair{kWords, u"88,888"}, {kScenes, u"88"}, {kCount, u"888,888"}}) {
    ListChapters->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    ListChapters->setColumnWidth(column, ListChapters->widthFor(column, longest));
  }
  ListChapters->setFillColumn(kTitle);

  txtChapterDesc->setToolTip(u"Chapter Description (Double click to edit)"_s);

  auto* lists = new QSplitter(Qt::Vertical);
  lists->setChildrenCollapsible(false);
  lists->addWidget(ListChapters);
  lists->addWidget(txtChapterDesc);
  lists->setStretchFactor(0, 4);
  lists->setStretchFactor(1, 1);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(titles);
  column->addWidget(lists, 1);
}

void ChapterPane::connectSignals() {
  connect(ListChapters, &ListView::paletteChanged, this,
          guarded("ListChapters_PaletteChange", kModule, this, &ChapterPane::recolourRows));
  connect(txtTitle, &QLineEdit::textChanged, this, guarded("txtTitle_Change", kModule, [this](const QString& text) {
            g_Project->Title = text;
            Q_EMIT titlesEdited();
          }));
  connect(txtAuthor, &QLineEdit::textChanged, this, guarded("txtAuthor_Change", kModule, [this](const QString& text) {
            g_Project->AuthorName = text;
            Q_EMIT titlesEdited();
          }));
  // A held arrow key runs down the list: the scenes follow when it goes up.
  connect(ListChapters, &QTreeWidget::itemSelectionChanged, this, [this] {
    if (!ListChapters->keyIsDown()) {
      Q_EMIT chapterSelected();
    }
  });
  connect(ListChapters, &ListView::keyUp, this, &ChapterPane::chapterKeyUp);
  connect(ListChapters, &ListView::rowOpened, this, &ChapterPane::chapterOpened);
  txtChapterDesc->viewport()->installEventFilter(this);
}

bool ChapterPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtChapterDesc->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    Q_EMIT chapterOpened();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ChapterPane::recolourRows() {
  for (int row = 0; row < ListChapters->topLevelItemCount(); ++row) {
    QTreeWidgetItem& item = *ListChapters->topLevelItem(row);
    UpdateChapterRow(item, ListView::tagOf(item));
  }
  RecalcProgressive();
}

void ChapterPane::showTitles() {
  const QSignalBlocker quietTitle(txtTitle);
  const QSignalBlocker quietAuthor(txtAuthor);
  txtTitle->setText(g_Project->Title);
  txtAuthor->setText(g_Project->AuthorName);
  txtTitle->setCursorPosition(0);
  txtAuthor->setCursorPosition(0);
}

void ChapterPane::setTitlesEnabled(bool enabled) {
  txtTitle->setEnabled(enabled);
  txtAuthor->setEnabled(enabled);
}

void ChapterPane::FillChapterList() {
  QList<QTreeWidgetItem*> rows;
  for (const auto& chapter : g_Project->Chapters) {
    auto* row = new QTreeWidgetItem;
    UpdateChapterRow(*row, chapter->ID());
    rows.append(row);
  }
  // Written before they stand in the list, which would hear of each cell.
  writeProgress(rows);
  clear();
  ListChapters->addTopLevelItems(rows);
}

void ChapterPane::UpdateChapterRow(QTreeWidgetItem& row, qint32 ChapterID) const {
  const auto chapter = g_Project->ChapterByID(ChapterID);
  const quint32 colour = chapter->Unused ? RowColours::kGrey : RowColours::kGreen;
  const QBrush text(RowColours::readable(colour, ListChapters->palette()));
  ListView::setTag(row, ChapterID);
  row.setIcon(kTitle, rowIcon(chapter->Unused ? "chapterunused" : "chapter"));
  row.setForeground(kTitle, text);
  row.setForeground(kWords, text);
  setCell(row, kTitle, chapter->Title);
  setCell(row, kWords, chapter->Wordcount(false));
  setCell(row, kScenes, chapter->SceneCount());
}

void ChapterPane::RecalcProgressive() {
  QList<QTreeWidgetItem*> rows;
  for (int i = 0; i < ListChapters->topLevelItemCount(); ++i) {
    rows.append(ListChapters->topLevelItem(i));
  }
  writeProgress(rows);
}

void ChapterPane::writeProgress(const QList<QTreeWidgetItem*>& rows) {
  const qint32 endOfBeginning = g_Project->Chapters.ChapterIndex(g_Project->EndBeginningChID);
  const qint32 endOfMiddle = g_Project->Chapters.ChapterIndex(g_Project->EndMiddleChID);
  progressiveTotal_ = 0;
  qint32 position = 0;
  for (QTreeWidgetItem* row : rows) {
    const auto chapter = g_Project->ChapterByID(ListView::tagOf(*row));
    progressiveTotal_ += chapter->Wordcount(false);
    setCell(*row, kCount, progressiveTotal_);
    setCell(*row, kScenes, chapter->SceneCount());
    const quint32 colour = sectionColour(++position, endOfBeginning, endOfMiddle);
    row->setForeground(kCount, RowColours::readable(colour, ListChapters->palette()));
  }
}

// Only selects: who calls this fills the scene list too.
void ChapterPane::SelectChapter(qint32 ChapterID) {
  const QSignalBlocker quiet(ListChapters);
  ListChapters->SelectTag(ChapterID);
}

qint32 ChapterPane::SelectedChapterID() const {
  return ListChapters->SelectedTag();
}

int ChapterPane::ChapterRowIndex(qint32 ChapterID) const {
  return ListChapters->rowOfTag(ChapterID);
}

void ChapterPane::showDescription(const clsChapter& chapter) {
  txtChapterDesc->setPlainText(chapter.Title + u" description: \n"_s + chapter.DescText);
}

void ChapterPane::clear() {
  const QSignalBlocker quiet(ListChapters);
  ListChapters->clear();
  txtChapterDesc->clear();
}
