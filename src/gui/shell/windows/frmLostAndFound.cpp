#include "gui/shell/windows/frmLostAndFound.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "gui/shell/windows/SceneRemoval.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"
#include "gui/views/TextObjects.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmLostAndFound";
constexpr double kListPart = 0.6;
constexpr int kWidthInLetters = 150;
constexpr int kHeightInLines = 34;

enum Column { kTitle, kWords, kDate, kFirstWords };

QString keyOf(const LostText& lost) {
  return lost.kind == LostText::Kind::Scene
             ? u"scene "_s + QString::number(lost.sceneID)
             : u"file "_s + QString::number(lost.date.toMSecsSinceEpoch()) + u' ' + lost.fileName;
}

/// Many a writer numbers chapters in their titles.
QString numbered(qint32 number, const clsChapter& chapter) {
  const QString front = QString::number(number) + u'.';
  return chapter.Title.startsWith(front) ? chapter.Title : front + u' ' + chapter.Title;
}

qsizetype numberOf(const std::vector<LostText>& texts, LostText::Kind kind) {
  return std::count_if(texts.begin(), texts.end(), [kind](const LostText& text) { return text.kind == kind; });
}

QString summaryOf(const std::vector<LostText>& lost) {
  const qsizetype scenes = numberOf(lost, LostText::Kind::Scene);
  const qsizetype files = numberOf(lost, LostText::Kind::File);
  QStringList parts;
  if (scenes > 0) {
    parts.append(scenes == 1 ? translated(u"1 scene is in no chapter"_s)
                             : translated(u"%L1 scenes are in no chapter"_s).arg(scenes));
  }
  if (files > 0) {
    parts.append(files == 1 ? translated(u"1 file belongs to no scene"_s)
                            : translated(u"%L1 files belong to no scene"_s).arg(files));
  }
  return parts.isEmpty() ? QString() : parts.join(u", "_s) + u'.';
}

QString removalQuestion(const std::vector<LostText>& scenes) {
  if (scenes.size() > 1) {
    return translated(
               u"Remove %L1 scenes from the project? Their files stay on disk; their descriptions, notes and "
               "ratings go."_s)
        .arg(scenes.size());
  }
  const LostText& scene = scenes.front();
  if (scene.fileName.isEmpty()) {
    return translated(u"Remove \"%1\" from the project? Its description, notes and ratings go."_s).arg(scene.title);
  }
  return translated(
             u"Remove \"%1\" from the project? Its file %2 stays on disk. Its description, notes and ratings go."_s)
      .arg(scene.title, scene.fileName);
}

}  // namespace

frmLostAndFound::frmLostAndFound(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmLostAndFound"_s);
  setWindowTitle(u"Lost and Found"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  createControls();
  buildLayout();
  connectSignals();
  restoreLayout();
}

void frmLostAndFound::createControls() {
  ListLost = new ListView({u"Scene or file"_s, u"Words"_s, u"Date"_s, u"First words"_s}, this);
  giveName(*ListLost, u"ListLost"_s, u"Scenes in no chapter and files of no scene"_s);
  ListLost->rows().setAlignment(kWords, Qt::AlignRight);
  ListLost->setFillRule({kFirstWords, {}, {}, {}});
  for (const auto& [column, longest] : {std::pair{kTitle, u"A title of some length"},
                                        {kWords, u"888,888"},
                                        {kDate, u"88/88/8888"},
                                        {kFirstWords, u""}}) {
    ListLost->setColumnWidth(column, ListLost->widthFor(column, longest));
  }
  txtText = new RichTextBox(this);
  giveName(*txtText, u"txtText"_s, u"Text"_s);
  makeReadOnly(*txtText);
  new TextObjects(*txtText);
  lblNothing = makeLabel(u"lblNothing"_s, u"Every scene is in a chapter, and every file belongs to a scene."_s, this);
  lblNothing->setAlignment(Qt::AlignCenter);
  lblNothing->setWordWrap(true);
  lblInfo = makeLabel(u"lblInfo"_s, {}, this);
  lblInfo->setWordWrap(true);
  cmbChapter = new QComboBox(this);
  giveName(*cmbChapter, u"cmbChapter"_s, u"Chapter"_s);
  cmbChapter->view()->setAccessibleName(u"Chapter"_s);
  cmbChapter->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  lblChapter = makeLabelOf(u"C&hapter:"_s, *cmbChapter);
  cmdPutIntoChapter = makeButton(u"cmdPutIntoChapter"_s, u"&Put into chapter"_s, this);
  cmdRemove = makeButton(u"cmdRemove"_s, u"&Remove"_s, this);
  cmdClose = makeButton(u"cmdClose"_s, u"&Close"_s, this);
}

void frmLostAndFound::buildLayout() {
  splitter_ = new ProportionalSplitter(Qt::Horizontal);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(ListLost);
  splitter_->addWidget(txtText);
  pages_ = new QStackedWidget;
  pages_->addWidget(splitter_);
  pages_->addWidget(lblNothing);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblChapter);
  buttons->addWidget(cmbChapter, 1);
  buttons->addWidget(cmdPutIntoChapter);
  buttons->addWidget(cmdRemove);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);

  auto* column = new QVBoxLayout(this);
  column->addWidget(pages_, 1);
  column->addWidget(lblInfo);
  column->addLayout(buttons);
}

void frmLostAndFound::connectSignals() {
  connect(ListLost, &ListView::rowsSelected, this,
          guarded("ListLost_ItemClick", kModule, this, &frmLostAndFound::showSelection));
  connect(cmdPutIntoChapter, &QPushButton::clicked, this,
          guarded("cmdPutIntoChapter_Click", kModule, this, &frmLostAndFound::cmdPutIntoChapter_Click));
  connect(cmdRemove, &QPushButton::clicked, this,
          guarded("cmdRemove_Click", kModule, this, &frmLostAndFound::cmdRemove_Click));
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  glancing_.setInterval(0);
  connect(&glancing_, &QTimer::timeout, this,
          guarded("TimerGlance_Timer", kModule, this, &frmLostAndFound::glanceAtNext));
}

void frmLostAndFound::restoreLayout() {
  const QSize wanted(fontMetrics().averageCharWidth() * kWidthInLetters, fontMetrics().lineSpacing() * kHeightInLines);
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(u"LostAndFound"_s, *this);
  restoreColumns(u"LostAndFound"_s, *ListLost);
  splitter_->setFraction(kListPart);
  splitter_->setFraction(Numbers::ToNumber(Settings().sGet(u"LostAndFoundSplit"_s)).value_or(kListPart));
}

void frmLostAndFound::done(int result) {
  glancing_.stop();
  storeWindow(u"LostAndFound"_s, *this);
  storeColumns(u"LostAndFound"_s, *ListLost);
  Settings().sSet(u"LostAndFoundSplit"_s, splitter_->fraction());
  QDialog::done(result);
}

frmLostAndFound* frmLostAndFound::showOver(QWidget& window, qint32 chapterID) {
  auto* form = new frmLostAndFound(&window);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowModality(Qt::ApplicationModal);
  form->FillForm(chapterID);
  form->show();
  return form;
}

void frmLostAndFound::FillForm(qint32 chapterID) {
  fillChapters(chapterID);
  refresh();
}

void frmLostAndFound::fillChapters(qint32 chapterID) {
  cmbChapter->clear();
  for (const auto& chapter : g_Project->Chapters) {
    cmbChapter->addItem(numbered(cmbChapter->count() + 1, *chapter), chapter->ID());
  }
  cmbChapter->setCurrentIndex(std::max(cmbChapter->findData(chapterID), std::min(0, cmbChapter->count() - 1)));
}

void frmLostAndFound::refresh() {
  const int row = ListLost->SelectedRow();
  glancing_.stop();
  std::vector<LostText> found;
  {
    const LongWork work(*g_Project, shownText(u"Looking for lost texts"_s), false);
    found = LostAndFound::find();
  }
  // Not before the work has yielded for the last time: the rows are those of the old ones till then.
  lost_ = std::move(found);
  {
    const QSignalBlocker quiet(ListLost);
    showRows();
    ListLost->SelectRow(std::clamp(row, 0, std::max(ListLost->rowCount() - 1, 0)));
  }
  pages_->setCurrentIndex(lost_.empty() ? 1 : 0);
  showSelection();
  lost_.empty() ? cmdClose->setFocus() : ListLost->setFocus();
  next_ = 0;
  glancing_.start();
}

void frmLostAndFound::showRows() {
  QList<qint32> tags(static_cast<qsizetype>(lost_.size()));
  std::iota(tags.begin(), tags.end(), 1);
  // Other texts stand under the same numbers now.
  ListLost->clear();
  ListLost->setRows(tags, [this](qint32 tag, int) { return rowOf(lost_[static_cast<size_t>(tag) - 1]); });
}

ListRow frmLostAndFound::rowOf(const LostText& lost) const {
  const bool known = glances_.contains(keyOf(lost));
  const std::optional<TextGlance> glance = glances_.value(keyOf(lost));
  return {{lost.title, glance ? QLocale().toString(glance->words) : QString(),
           lost.date.isValid() ? Dates().ShortFormatDate(lost.date.date()) : QString(),
           glance ? glance->firstWords : (known ? translated(u"(can't be read)"_s) : QString())},
          lost.kind == LostText::Kind::Scene ? "scene" : "file"};
}

// One text a turn: a folder may hold thousands, and keys and clicks come in between.
void frmLostAndFound::glanceAtNext() {
  while (next_ < lost_.size() && glances_.contains(keyOf(lost_[next_]))) {
    ++next_;
  }
  if (next_ == lost_.size()) {
    glancing_.stop();
    return;
  }
  const LostText& lost = lost_[next_];
  glances_.insert(keyOf(lost), LostAndFound::glanceAt(lost));
  ListLost->updateRow(static_cast<int>(next_));
}

const LostText* frmLostAndFound::shown() const {
  const qint32 tag = ListLost->SelectedTag();
  return tag > 0 ? &lost_[static_cast<size_t>(tag) - 1] : nullptr;
}

std::vector<LostText> frmLostAndFound::selected() const {
  std::vector<LostText> texts;
  for (const qint32 tag : ListLost->SelectedTags()) {
    texts.push_back(lost_[static_cast<size_t>(tag) - 1]);
  }
  return texts;
}

void frmLostAndFound::showSelection() {
  const std::vector<LostText> texts = selected();
  const bool anyScene = numberOf(texts, LostText::Kind::Scene) > 0;
  const QString whyNot =
      texts.empty() || anyScene ? QString() : translated(u"Files stay on disk: only scenes can be removed."_s);
  cmbChapter->setEnabled(!lost_.empty() && cmbChapter->count() > 0);
  cmdPutIntoChapter->setEnabled(!texts.empty() && cmbChapter->count() > 0);
  cmdPutIntoChapter->setToolTip(cmbChapter->count() > 0 ? QString() : shownText(u"There is no chapter yet."_s));
  cmdRemove->setEnabled(anyScene);
  cmdRemove->setToolTip(anyScene ? shownText(u"Takes scenes out of the project. Their files stay on disk."_s) : whyNot);
  lblInfo->setText((summaryOf(lost_) + u' ' + whyNot).trimmed());
  showText(shown());
}

void frmLostAndFound::showText(const LostText* lost) {
  if (lost == nullptr) {
    txtText->setRichText({});
    return;
  }
  const std::optional<QByteArray> rtf = LostAndFound::textOf(*lost);
  RichText text = rtf ? readRtf(*rtf) : RichText::fromPlain(translated(u"This file can't be read"_s));
  if (text.text().trimmed().isEmpty()) {
    text = RichText::fromPlain(lost->kind == LostText::Kind::Scene ? translated(u"This scene has no content"_s)
                                                                   : translated(u"This file has no content"_s));
  }
  // Black letters would sink into a dark window.
  text.formatCharacters(0, -1, [](CharFormat& format) { format.colour.reset(); });
  txtText->setRichText(text);
}

void frmLostAndFound::cmdPutIntoChapter_Click() {
  const auto chapter = g_Project->ChapterByID(cmbChapter->currentData().toInt());
  std::vector<LostText> put;
  QStringList unread;
  {
    const BusyPointer pointer;
    for (const LostText& lost : selected()) {
      if (LostAndFound::putIntoChapter(lost, *chapter)) {
        put.push_back(lost);
      } else {
        unread.append(lost.title);
      }
    }
  }
  if (!put.empty()) {
    const QString into = cmbChapter->currentText();
    changed(put.size() == 1 ? translated(u"1 text was put at the end of \"%1\"."_s).arg(into)
                            : translated(u"%1 texts were put at the end of \"%2\"."_s)
                                  .arg(QLocale().toString(static_cast<qsizetype>(put.size())), into));
    sayWhatStays(put);
  }
  if (!unread.isEmpty()) {
    toolkit().MsgBox(translated(u"These files could not be read:\n%1"_s).arg(unread.join(u'\n')));
  }
}

void frmLostAndFound::sayWhatStays(const std::vector<LostText>& put) {
  QSet<QString> listed;
  for (const LostText& lost : lost_) {
    listed.insert(keyOf(lost));
  }
  const bool stays =
      std::any_of(put.begin(), put.end(), [&](const LostText& lost) { return listed.contains(keyOf(lost)); });
  if (stays) {
    lblInfo->setText(lblInfo->text() + u' ' +
                     translated(u"A project file can't hold the names of all these files: their scenes get files of "
                                "their own when the project is saved, and the old ones stay."_s));
  }
}

void frmLostAndFound::cmdRemove_Click() {
  std::vector<LostText> scenes = selected();
  std::erase_if(scenes, [](const LostText& lost) { return lost.kind != LostText::Kind::Scene; });
  if (scenes.empty() || !mayRemove(scenes) ||
      toolkit().MsgBox(removalQuestion(scenes), Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  for (const LostText& scene : scenes) {
    g_Project->RemoveSceneByID(scene.sceneID);
  }
  changed(scenes.size() == 1
              ? translated(u"1 scene was removed from the project. Files stay on disk."_s)
              : translated(u"%L1 scenes were removed from the project. Files stay on disk."_s).arg(scenes.size()));
}

bool frmLostAndFound::mayRemove(const std::vector<LostText>& scenes) const {
  for (const LostText& lost : scenes) {
    const auto scene = g_Project->SceneByID(lost.sceneID);
    if (scene->Locked()) {
      toolkit().MsgBox(u"Please close all editor windows first"_s);
      return false;
    }
    if (!mayLeaveBook(*scene)) {
      return false;
    }
  }
  return true;
}

void frmLostAndFound::changed(const QString& what) {
  refresh();
  lblInfo->setText(what);
  Q_EMIT bookChanged();
}
