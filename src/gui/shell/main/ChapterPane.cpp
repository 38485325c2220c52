#include "gui/shell/main/ChapterPane.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/ReadOnlyText.h"
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

enum Column { kTitle, kWords, kScenes, kCount };

QLineEdit* addField(QFormLayout& form, const QString& caption, const QString& name) {
  auto* field = new QLineEdit;
  field->setObjectName(name);
  field->setAccessibleName(caption);
  form.addRow(caption + u':', field);
  return field;
}

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
      listChapters_(new ListView({u"Title"_s, u"Wds"_s, u"Scns"_s, u"Count"_s})),
      txtChapterDesc_(new QPlainTextEdit) {
  setObjectName(u"FrameChapters"_s);
  buildLayout();
  connectSignals();
}

void ChapterPane::buildLayout() {
  auto* titles = new QFormLayout;
  txtTitle_ = addField(*titles, u"Title"_s, u"txtTitle"_s);
  txtAuthor_ = addField(*titles, u"Author"_s, u"txtAuthor"_s);

  listChapters_->setObjectName(u"ListChapters"_s);
  listChapters_->setAccessibleName(u"Chapters"_s);
  listChapters_->header()->setStretchLastSection(false);
  for (const auto& [column, longest] : {std::pair{kWords, u"88888"}, {kScenes, u"88"}, {kCount, u"888888"}}) {
    listChapters_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    listChapters_->setColumnWidth(column, listChapters_->widthFor(column, longest));
  }
  listChapters_->setFillColumn(kTitle);

  txtChapterDesc_->setObjectName(u"txtChapterDesc"_s);
  txtChapterDesc_->setAccessibleName(u"Chapter description"_s);
  txtChapterDesc_->setToolTip(u"Chapter Description (Double click to edit)"_s);
  makeReadOnly(*txtChapterDesc_);

  auto* lists = new QSplitter(Qt::Vertical);
  lists->setChildrenCollapsible(false);
  lists->addWidget(listChapters_);
  lists->addWidget(txtChapterDesc_);
  lists->setStretchFactor(0, 4);
  lists->setStretchFactor(1, 1);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(titles);
  column->addWidget(lists, 1);
}

void ChapterPane::connectSignals() {
  connect(txtTitle_, &QLineEdit::textChanged, this, [this](const QString& text) {
    g_Project->Title = text;
    Q_EMIT titlesEdited();
  });
  connect(txtAuthor_, &QLineEdit::textChanged, this, [this](const QString& text) {
    g_Project->AuthorName = text;
    Q_EMIT titlesEdited();
  });
  // A held arrow key runs down the list: the scenes follow when it goes up.
  connect(listChapters_, &QTreeWidget::itemSelectionChanged, this, [this] {
    if (!listChapters_->keyIsDown()) {
      Q_EMIT chapterSelected();
    }
  });
  connect(listChapters_, &ListView::keyUp, this, &ChapterPane::chapterKeyUp);
  connect(listChapters_, &ListView::rowOpened, this, &ChapterPane::chapterOpened);
  txtChapterDesc_->viewport()->installEventFilter(this);
}

bool ChapterPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtChapterDesc_->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    Q_EMIT chapterOpened();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ChapterPane::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) {
    return;
  }
  for (int row = 0; row < listChapters_->topLevelItemCount(); ++row) {
    QTreeWidgetItem& item = *listChapters_->topLevelItem(row);
    UpdateChapterRow(item, ListView::tagOf(item));
  }
  RecalcProgressive();
}

void ChapterPane::showTitles() {
  const QSignalBlocker quietTitle(txtTitle_);
  const QSignalBlocker quietAuthor(txtAuthor_);
  txtTitle_->setText(g_Project->Title);
  txtAuthor_->setText(g_Project->AuthorName);
  txtTitle_->setCursorPosition(0);
  txtAuthor_->setCursorPosition(0);
}

void ChapterPane::setTitlesEnabled(bool enabled) {
  txtTitle_->setEnabled(enabled);
  txtAuthor_->setEnabled(enabled);
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
  listChapters_->addTopLevelItems(rows);
}

void ChapterPane::UpdateChapterRow(QTreeWidgetItem& row, qint32 ChapterID) const {
  const auto chapter = g_Project->ChapterByID(ChapterID);
  const quint32 colour = chapter->Unused ? RowColours::kGrey : RowColours::kGreen;
  const QBrush text(RowColours::readable(colour, listChapters_->palette()));
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
  for (int i = 0; i < listChapters_->topLevelItemCount(); ++i) {
    rows.append(listChapters_->topLevelItem(i));
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
    row->setForeground(kCount, RowColours::readable(colour, listChapters_->palette()));
  }
}

// Only selects: who calls this fills the scene list too.
void ChapterPane::SelectChapter(qint32 ChapterID) {
  const QSignalBlocker quiet(listChapters_);
  listChapters_->SelectTag(ChapterID);
}

qint32 ChapterPane::SelectedChapterID() const {
  return listChapters_->SelectedTag();
}

int ChapterPane::ChapterRowIndex(qint32 ChapterID) const {
  return listChapters_->rowOfTag(ChapterID);
}

void ChapterPane::showDescription(const clsChapter& chapter) {
  txtChapterDesc_->setPlainText(chapter.Title + u" description: \n"_s + chapter.DescText);
}

void ChapterPane::clear() {
  const QSignalBlocker quiet(listChapters_);
  listChapters_->clear();
  txtChapterDesc_->clear();
}
