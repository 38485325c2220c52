#include "gui/shell/main/ChapterPane.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/views/ListView.h"
#include "gui/views/RowColours.h"

#include <QEvent>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

enum Column { kTitle, kWords, kScenes, kCount };

/// What of a title has to be seen in the narrowest list.
constexpr QStringView kStartOfTitle = u"Chapter 88";

/// A part of the book, which the colour of the running total tells.
struct Section {
  quint32 colour;
  QString name;
};

/// A section whose end isn't marked has none.
Section sectionAt(qint32 position, qint32 endOfBeginning, qint32 endOfMiddle) {
  if (endOfMiddle > 0 && position > endOfMiddle) {
    return {RowColours::kRed, shownText(u"end section"_s)};
  }
  if (endOfBeginning > 0 && position > endOfBeginning) {
    return {RowColours::kOrange, shownText(u"middle section"_s)};
  }
  return {RowColours::kGreen, endOfBeginning > 0 ? shownText(u"beginning section"_s) : QString()};
}

}  // namespace

ChapterPane::ChapterPane(QWidget* parent)
    : QWidget(parent),
      titles_(new QWidget),
      ListChapters(new ListView({u"Title"_s, u"Wds"_s, u"Scns"_s, u"Count"_s})),
      txtChapterDesc(makeReadOnlyText(u"txtChapterDesc"_s, u"Chapter description"_s)),
      splitter_(new ProportionalSplitter(Qt::Vertical)) {
  setObjectName(u"FrameChapters"_s);
  buildLayout();
  connectSignals();
}

void ChapterPane::buildLayout() {
  auto* titles = new QFormLayout(titles_);
  titles->setContentsMargins(0, 0, 0, 0);
  txtTitle = addLineEdit(*titles, u"txtTitle"_s, u"Title"_s);
  txtAuthor = addLineEdit(*titles, u"txtAuthor"_s, u"Author"_s);

  giveName(*ListChapters, u"ListChapters"_s, u"Chapters"_s);
  ListModel& rows = ListChapters->rows();
  rows.setSpokenTitle(kWords, u"Words"_s);
  rows.setSpokenTitle(kScenes, u"Scenes"_s);
  rows.setSpokenTitle(kCount, u"Words so far"_s);
  for (const auto& [column, longest] : {std::pair{kWords, u"88,888"}, {kScenes, u"88"}, {kCount, u"888,888"}}) {
    rows.setAlignment(column, Qt::AlignRight);
    ListChapters->setColumnWidth(column, ListChapters->widthFor(column, longest));
  }
  ListChapters->setFillRule({kTitle, kStartOfTitle.toString(), kStartOfTitle.toString(), {kCount}});

  txtChapterDesc->setToolTip(u"Chapter Description (Double click to edit)"_s);

  splitter_->setObjectName(u"ChapterSplitter"_s);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(ListChapters);
  splitter_->addWidget(txtChapterDesc);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(titles_);
  column->addWidget(splitter_, 1);
}

void ChapterPane::connectSignals() {
  connect(txtTitle, &QLineEdit::textChanged, this, guarded("txtTitle_Change", kModule, [this](const QString& text) {
            g_Project->Title = text;
            Q_EMIT titlesEdited();
          }));
  connect(txtAuthor, &QLineEdit::textChanged, this, guarded("txtAuthor_Change", kModule, [this](const QString& text) {
            g_Project->AuthorName = text;
            Q_EMIT titlesEdited();
          }));
  // A held arrow key runs down the list: the scenes follow when it goes up.
  connect(ListChapters, &ListView::rowsSelected, this, [this] {
    if (!ListChapters->keyIsDown()) {
      Q_EMIT chapterSelected();
    }
  });
  connect(ListChapters, &ListView::keyUp, this, &ChapterPane::chapterKeyUp);
  connect(ListChapters, &ListView::rowOpened, this, &ChapterPane::chapterOpened);
  connect(ListChapters, &ListView::enterPressed, this, &ChapterPane::chapterOpened);
  txtChapterDesc->viewport()->installEventFilter(this);
}

bool ChapterPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtChapterDesc->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    Q_EMIT chapterOpened();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void ChapterPane::showTitles() {
  for (const auto& [field, text] : {std::pair{txtTitle, &g_Project->Title}, {txtAuthor, &g_Project->AuthorName}}) {
    // Who is typing there goes on where he is.
    if (field->text() != *text) {
      const QSignalBlocker quiet(field);
      field->setText(*text);
      field->setCursorPosition(0);
    }
  }
}

void ChapterPane::setFieldsEnabled(bool enabled) {
  titles_->setEnabled(enabled);
  txtChapterDesc->setEnabled(enabled);
}

void ChapterPane::FillChapterList() {
  QList<qint32> tags;
  tags.reserve(g_Project->ChapterCount());
  for (const auto& chapter : g_Project->Chapters) {
    tags.append(chapter->ID());
  }
  countOn(tags);
  ListChapters->setRows(tags, [this](qint32 id, int row) { return chapterRow(id, row); });
  if (tags.isEmpty()) {
    txtChapterDesc->clear();
  }
}

ListRow ChapterPane::chapterRow(qint32 id, int row) const {
  const auto chapter = g_Project->ChapterByID(id);
  const quint32 colour = chapter->Unused ? RowColours::kGrey : RowColours::kGreen;
  const QLocale locale;
  const auto place = static_cast<size_t>(row);
  const Section section = sectionAt(row + 1, endOfBeginning_, endOfMiddle_);
  QStringList states;
  if (chapter->Unused) {
    states.append(shownText(u"unused"_s));
  }
  if (!section.name.isEmpty()) {
    states.append(section.name);
  }
  return {{chapter->Title, locale.toString(chapter->Wordcount(false)), locale.toString(chapter->SceneCount()),
           locale.toString(place < counts_.size() ? counts_[place] : progressiveTotal_)},
          chapter->Unused ? "chapterunused" : "chapter",
          {{kTitle, colour}, {kWords, colour}, {kCount, section.colour}},
          states};
}

void ChapterPane::RecalcProgressive() {
  countOn(ListChapters->rows().tags());
  ListChapters->rows().updateAllRows();
}

void ChapterPane::countOn(const QList<qint32>& chapters) {
  endOfBeginning_ = g_Project->Chapters.ChapterIndex(g_Project->EndBeginningChID);
  endOfMiddle_ = g_Project->Chapters.ChapterIndex(g_Project->EndMiddleChID);
  progressiveTotal_ = 0;
  counts_.clear();
  counts_.reserve(static_cast<size_t>(chapters.size()));
  for (const qint32 id : chapters) {
    const qint64 total = qint64{progressiveTotal_} + g_Project->ChapterByID(id)->Wordcount(false);
    progressiveTotal_ = static_cast<qint32>(qMin<qint64>(total, std::numeric_limits<qint32>::max()));
    counts_.push_back(progressiveTotal_);
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

void ChapterPane::showDescription(const clsChapter& chapter) {
  const QString text = translated(u"%1 description:"_s).arg(chapter.Title) + u" \n"_s +
                       QString(chapter.DescText).replace(u"\r\n"_s, u"\n"_s);
  if (txtChapterDesc->toPlainText() != text) {
    txtChapterDesc->setPlainText(text);
  }
}

void ChapterPane::setEmptyText(const QString& text) {
  ListChapters->setEmptyText(text);
}

void ChapterPane::clear() {
  ListChapters->clear();
  txtChapterDesc->clear();
  counts_.clear();
}
