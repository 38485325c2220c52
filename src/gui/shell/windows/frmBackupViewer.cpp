#include "gui/shell/windows/frmBackupViewer.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/RestoredScene.h"
#include "core/text/Rtf.h"
#include "gui/shell/windows/BackupTree.h"
#include "gui/shell/windows/BackupVerdict.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"
#include "gui/views/TextObjects.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmBackupViewer";
constexpr double kListPart = 0.6;
constexpr double kTreePart = 0.34;
constexpr int kWidthInLetters = 160;
constexpr int kHeightInLines = 34;

enum Column { kScene, kSaved, kFile };

std::shared_ptr<clsScene> sceneOf(const BackupCopy& copy) {
  const auto scene = copy.sceneID == 0 ? nullptr : g_Project->SceneByID(copy.sceneID);
  return scene && scene->InScenes() ? scene : nullptr;
}

double fraction(const QString& key, double byDefault) {
  return Numbers::ToNumber(Settings().sGet(key)).value_or(byDefault);
}

}  // namespace

frmBackupViewer::frmBackupViewer(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmBackupViewer"_s);
  setWindowTitle(u"Autobackups"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  createControls();
  buildLayout();
  connectSignals();
  restoreLayout();
}

void frmBackupViewer::createControls() {
  TreeView1 = new BackupTree(this);
  ListView1 = new ListView({u"Scene"_s, u"Saved"_s, u"File"_s}, this);
  giveName(*ListView1, u"ListView1"_s, u"Copies of scenes"_s);
  ListView1->setFillRule({kScene, u"A title"_s, u"A title of some length"_s, {kFile}});
  ListView1->setColumnWidth(kScene, ListView1->widthFor(kScene, u"A title of some length"));
  ListView1->setColumnWidth(kSaved, ListView1->widthFor(kSaved, u"88/88/8888 88:88 PM"));
  ListView1->setColumnWidth(kFile, ListView1->widthFor(kFile, u"RTF_00000_Scene_88.rtf"));
  RichTextBox1 = new RichTextBox(this);
  giveName(*RichTextBox1, u"RichTextBox1"_s, u"Text of the copy"_s);
  makeReadOnly(*RichTextBox1);
  new TextObjects(*RichTextBox1);
  lblNothing = makeLabel(u"lblNothing"_s,
                         u"There are no backups of this book yet. One is made each time the book is opened, and the "
                         "editor keeps copies of scenes while they are written."_s,
                         this);
  lblNothing->setAlignment(Qt::AlignCenter);
  lblNothing->setWordWrap(true);
  lblHint = makeLabel(u"lblHint"_s,
                      u"Highlight text with the mouse and use Ctrl-C to copy. Then you can paste the text into any "
                      "scene."_s,
                      this);
  lblHint->setWordWrap(true);
  lblInfo = makeLabel(u"lblInfo"_s, {}, this);
  lblInfo->setWordWrap(true);
  cmdRestore = makeButton(u"cmdRestore"_s, u"&Restore as new scene"_s, this);
  cmdVerify = makeButton(u"cmdVerify"_s, u"&Verify archive"_s, this);
  cmdDelete = makeButton(u"cmdDelete"_s, u"&Delete"_s, this);
  cmdClose = makeButton(u"cmdClose"_s, u"&Close"_s, this);
  for (QPushButton* const button : {cmdRestore, cmdVerify, cmdDelete, cmdClose}) {
    button->setAutoDefault(false);
  }
}

void frmBackupViewer::buildLayout() {
  listSplitter_ = new ProportionalSplitter(Qt::Horizontal);
  listSplitter_->setChildrenCollapsible(false);
  listSplitter_->addWidget(TreeView1);
  listSplitter_->addWidget(ListView1);
  splitter_ = new ProportionalSplitter(Qt::Horizontal);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(listSplitter_);
  splitter_->addWidget(RichTextBox1);
  pages_ = new QStackedWidget;
  pages_->addWidget(splitter_);
  pages_->addWidget(lblNothing);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdRestore);
  buttons->addWidget(cmdVerify);
  buttons->addWidget(cmdDelete);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);

  auto* column = new QVBoxLayout(this);
  column->addWidget(pages_, 1);
  column->addWidget(lblHint);
  column->addWidget(lblInfo);
  column->addLayout(buttons);
}

void frmBackupViewer::connectSignals() {
  connect(TreeView1, &QTreeWidget::currentItemChanged, this,
          guarded("TreeView1_NodeClick", kModule, [this] { showFolder(); }));
  connect(ListView1, &ListView::rowsSelected, this,
          guarded("ListView1_ItemClick", kModule, this, &frmBackupViewer::showSelection));
  ListView1->installEventFilter(this);
  connect(ListView1, &ListView::enterPressed, RichTextBox1, [this] { RichTextBox1->setFocus(); });
  auto* const remove = new QShortcut(QKeySequence(Qt::Key_Delete), ListView1);
  remove->setContext(Qt::WidgetShortcut);
  connect(remove, &QShortcut::activated, cmdDelete, &QPushButton::click);
  connect(cmdRestore, &QPushButton::clicked, this,
          guarded("cmdRestore_Click", kModule, this, &frmBackupViewer::cmdRestore_Click));
  connect(cmdVerify, &QPushButton::clicked, this,
          guarded("cmdVerify_Click", kModule, this, &frmBackupViewer::cmdVerify_Click));
  connect(cmdDelete, &QPushButton::clicked, this,
          guarded("cmdDelete_Click", kModule, this, &frmBackupViewer::cmdDelete_Click));
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

// Whoever comes to the list by key is on its first row, and shall see what that is.
bool frmBackupViewer::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ListView1 && event->type() == QEvent::FocusIn && ListView1->SelectedRow() < 0 &&
      static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
    Guard("ListView1_GotFocus", kModule)([this] { ListView1->SelectRow(0); });
  }
  return QDialog::eventFilter(watched, event);
}

void frmBackupViewer::restoreLayout() {
  const QSize wanted(fontMetrics().averageCharWidth() * kWidthInLetters, fontMetrics().lineSpacing() * kHeightInLines);
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(u"BackupViewer"_s, *this);
  restoreColumns(u"BackupViewer"_s, *ListView1);
  // Widths of the user's own stay; others follow the window.
  if (Numbers::ToBool(Settings().sGet(u"BackupViewerFilled"_s, true))) {
    ListView1->fillRoom();
  }
  for (const auto& [splitter, key, byDefault] :
       {std::tuple{splitter_, u"BackupViewerSplit"_s, kListPart}, {listSplitter_, u"BackupViewerTree"_s, kTreePart}}) {
    splitter->setFraction(byDefault);
    splitter->setFraction(fraction(key, byDefault));
  }
}

void frmBackupViewer::done(int result) {
  storeWindow(u"BackupViewer"_s, *this);
  storeColumns(u"BackupViewer"_s, *ListView1);
  Settings().sSet(u"BackupViewerFilled"_s, ListView1->isFilled());
  Settings().sSet(u"BackupViewerSplit"_s, splitter_->fraction());
  Settings().sSet(u"BackupViewerTree"_s, listSplitter_->fraction());
  QDialog::done(result);
}

void frmBackupViewer::FillForm() {
  {
    const BusyPointer pointer;
    TreeView1->fill();
  }
  pages_->setCurrentIndex(TreeView1->isEmpty() ? 1 : 0);
  lblHint->setVisible(!TreeView1->isEmpty());
  showFolder();
  TreeView1->isEmpty() ? cmdClose->setFocus() : TreeView1->setFocus();
}

void frmBackupViewer::ShowCopy(const QString& path) {
  FillForm();
  if (!TreeView1->choose(Files().LastFolder(Files().PathOnly(path)))) {
    return;
  }
  const auto found =
      std::find_if(copies_.begin(), copies_.end(), [&](const BackupCopy& copy) { return copy.path == path; });
  if (found != copies_.end()) {
    ListView1->SelectRow(static_cast<int>(found - copies_.begin()));
    ListView1->setFocus();
  }
}

void frmBackupViewer::showFolder() {
  BackupCopies found;
  if (const QString archive = TreeView1->archive(); !archive.isEmpty()) {
    const BusyPointer pointer;
    found = BackupCopies::inArchive(archive);
  } else if (const QString folder = TreeView1->folder(); !folder.isEmpty()) {
    found = BackupCopies::inFolder(folder);
  } else {
    found.whyNone = shownText(u"Choose a day to see its copies."_s);
  }
  {
    const QSignalBlocker quiet(ListView1);
    // The old rows first: others stand under the same numbers.
    ListView1->clear();
    copies_ = std::move(found.copies);
    ListView1->setEmptyText(found.whyNone);
    QList<qint32> tags(static_cast<qsizetype>(copies_.size()));
    std::iota(tags.begin(), tags.end(), 1);
    ListView1->setRows(tags, [this](qint32 tag, int) { return rowOf(copies_[static_cast<size_t>(tag) - 1]); });
  }
  showSelection();
}

ListRow frmBackupViewer::rowOf(const BackupCopy& copy) const {
  return {{copy.title(), Dates().ShortFormatDateTime(copy.date), copy.name.section(u'/', -1)},
          sceneOf(copy) ? "scene" : "file"};
}

const BackupCopy* frmBackupViewer::chosen() const {
  const QList<qint32> tags = ListView1->SelectedTags();
  return tags.size() == 1 ? &copies_[static_cast<size_t>(tags.first()) - 1] : nullptr;
}

void frmBackupViewer::showSelection() {
  const qint32 tag = ListView1->SelectedTag();
  showText(tag > 0 ? &copies_[static_cast<size_t>(tag) - 1] : nullptr);
  showButtons();
  const qsizetype count = std::ssize(copies_);
  lblInfo->setText(count == 0   ? QString()
                   : count == 1 ? translated(u"1 copy"_s)
                                : translated(u"%L1 copies"_s).arg(count));
}

void frmBackupViewer::showText(const BackupCopy* copy) {
  if (copy == nullptr) {
    text_ = {};
    RichTextBox1->setRichText({});
    return;
  }
  text_ = copy->read();
  RichText text =
      text_.failure.isEmpty()
          ? readRtf(text_.content)
          : RichText::fromPlain(translated(u"This copy can't be read: %1"_s).arg(translated(text_.failure)));
  if (text.text().trimmed().isEmpty()) {
    text = RichText::fromPlain(translated(u"This copy has no content"_s));
  }
  // Black letters would sink into a dark window.
  text.formatCharacters(0, -1, [](CharFormat& format) { format.colour.reset(); });
  RichTextBox1->setRichText(text);
}

std::shared_ptr<clsChapter> frmBackupViewer::chapterFor(const BackupCopy& copy) const {
  const auto scene = sceneOf(copy);
  for (const qint32 id : {scene ? scene->BelongsToChID : 0, SelectedChapter()}) {
    if (g_Project->Chapters.ChapterIndex(id) > 0) {
      return g_Project->ChapterByID(id);
    }
  }
  return g_Project->ChapterCount() > 0 ? g_Project->ChapterByIndex(1) : nullptr;
}

void frmBackupViewer::showButtons() {
  const auto set = [](QPushButton& button, const QString& does, const QString& whyNot) {
    button.setEnabled(whyNot.isEmpty());
    button.setToolTip(whyNot.isEmpty() ? does : whyNot);
  };
  const BackupCopy* const copy = chosen();
  const bool isArchive = !TreeView1->archive().isEmpty();
  set(*cmdRestore, shownText(u"Puts the text into the book as a new scene. Nothing is replaced."_s),
      copy == nullptr                ? shownText(u"Choose one copy first."_s)
      : !text_.failure.isEmpty()     ? shownText(u"This copy can't be read."_s)
      : chapterFor(*copy) == nullptr ? shownText(u"There is no chapter yet."_s)
                                     : QString());
  set(*cmdVerify, shownText(u"Reads every file of the archive back and compares its checksum."_s),
      isArchive ? QString() : shownText(u"Choose an archive below a day first."_s));
  set(*cmdDelete, shownText(u"Deletes the selected files from the disk."_s),
      ListView1->SelectedRow() < 0 ? shownText(u"Choose a copy first."_s)
      : isArchive                  ? shownText(u"What is in an archive stays there."_s)
      : g_Project->ReadOnly()      ? shownText(u"The book was opened read-only."_s)
                                   : QString());
}

void frmBackupViewer::cmdRestore_Click() {
  const BackupCopy* const copy = chosen();
  if (copy == nullptr || !text_.failure.isEmpty() || g_Project->IsBusy()) {
    return;
  }
  const auto chapter = chapterFor(*copy);
  if (!chapter) {
    return;
  }
  const auto source = sceneOf(*copy);
  const QString title =
      titleOfRestored(source.get(), copy->name.section(u'/', -1), Dates().ShortFormatDateTime(copy->date));
  const auto restored = restoreAsNewScene(text_.content, title, source.get(), *chapter);
  const auto into = g_Project->ChapterByID(restored->BelongsToChID);
  Q_EMIT bookChanged();
  lblInfo->setText(translated(u"\"%1\" is scene %2 of \"%3\" now."_s)
                       .arg(title, QString::number(into->SceneIndex(restored->ID())), into->Title));
}

void frmBackupViewer::cmdVerify_Click() {
  const QString archive = TreeView1->archive();
  if (!archive.isEmpty() && !g_Project->IsBusy()) {
    verifyAndTell(archive);
  }
}

void frmBackupViewer::cmdDelete_Click() {
  if (ListView1->SelectedRow() < 0 ||
      toolkit().MsgBox(u"Are you sure you want to delete the selected files?"_s, Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  const QList<qint32> tags = ListView1->SelectedTags();
  QStringList stay;
  for (const qint32 tag : tags) {
    const BackupCopy& copy = copies_[static_cast<size_t>(tag) - 1];
    if (!deleteBackup(*g_Project, copy.path)) {
      stay.append(copy.name);
    }
  }
  showFolder();
  ListView1->SelectRow(std::min(tags.first() - 1, ListView1->rowCount() - 1));
  if (!stay.isEmpty()) {
    toolkit().MsgBox(translated(u"These files could not be deleted:\n%1"_s).arg(firstOf(stay).join(u'\n')));
  }
}
