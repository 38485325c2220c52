#include "gui/editor/frmEditor.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/SceneTitle.h"
#include "gui/editor/CharacterMarks.h"
#include "gui/editor/EditorFind.h"
#include "gui/editor/EditorPlacement.h"
#include "gui/editor/EditorSpelling.h"
#include "gui/editor/EditorStatusBar.h"
#include "gui/editor/EditorTabStrip.h"
#include "gui/editor/FieldClipboard.h"
#include "gui/editor/FontBar.h"
#include "gui/editor/SceneNavigator.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/editor/TextPage.h"
#include "gui/editor/ViewpointBox.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/Twips.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/toolkit/WindowTexts.h"
#include "gui/toolkit/WindowTitle.h"
#include "gui/views/TextKeys.h"
#include "gui/views/TextObjects.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// The window itself: its parts, its place on the screen, its life. What passes between it and the scene is in
// frmEditorBinding.cpp, what is kept between saves in frmEditorCopies.cpp, the way to other scenes in
// frmEditorMoves.cpp, its menus in frmEditorMenus.cpp.

namespace {

constexpr auto kModule = "frmEditor";

/// Twips.
constexpr double MinWidth = 10032;
constexpr double MinHeight = 7020;
constexpr QSize kFirstSize(920, 680);

}  // namespace

frmEditor::frmEditor() {
  setObjectName(u"frmEditor"_s);
  // Its title is the scene's.
  keepWords(*this);
  setWindowIcon(icon("quillane"));
  buildLayout();
  createMenus();
  connectUndo();
  connectSignals();
  connectMoves();
  connectCharacters();
  connectCopies();
  connectFormat();
  readSettings();
  TimerLoadFonts.start();
}

// The focus leaves the controls while they go one after the other.
frmEditor::~frmEditor() {
  disconnect(qApp, nullptr, this, nullptr);
}

void frmEditor::buildLayout() {
  txtMain = new RichTextBox(this);
  giveName(*txtMain, u"txtMain"_s, u"Scene text"_s);
  new TextPage(*txtMain);
  new TextKeys(*txtMain);
  objects_ = new TextObjects(*txtMain);
  marks_ = new TextMarkLayer(*txtMain);
  characters_ = new CharacterMarks(*txtMain, *marks_);
  find_ = new EditorFind(*txtMain, *this);
  auto* upper = new QWidget(this);
  auto* upperLayout = new QVBoxLayout(upper);
  upperLayout->setContentsMargins(0, 0, 0, 0);
  upperLayout->addWidget(buildBars());
  upperLayout->addWidget(txtMain, 1);

  auto* split = new QSplitter(Qt::Vertical, this);
  split->setChildrenCollapsible(false);
  split->addWidget(upper);
  split->addWidget(buildLowerPart());
  split->setStretchFactor(0, 1);
  split->setStretchFactor(1, 0);
  auto* whole = new QWidget(this);
  auto* layout = new QVBoxLayout(whole);
  layout->addWidget(split);
  setCentralWidget(whole);
  StatusBar1 = new EditorStatusBar(this);
  setStatusBar(StatusBar1);
  clipboard_ = new FieldClipboard(*txtMain);
  setTabOrder(cmdHide, txtMain);
  for (QPushButton* const button : findChildren<QPushButton*>()) {
    button->setAutoDefault(true);  // Return presses the one that has the keyboard
  }
  txtMain->setFocus();
}

QWidget* frmEditor::buildBars() {
  auto* bars = new QWidget(this);
  navigator_ = new SceneNavigator(bars);
  fontBar_ = new FontBar(*txtMain, bars);
  cmdHide = makeBarButton(u"cmdHide"_s, {}, {}, bars);
  auto* layout = new QGridLayout(bars);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(navigator_, 0, 0, 1, 2);
  layout->addWidget(fontBar_, 1, 0);
  layout->addWidget(cmdHide, 1, 1);
  return bars;
}

QWidget* frmEditor::buildLowerPart() {
  lower_ = new QWidget(this);
  TabStrip1 = new EditorTabStrip(lower_);
  viewpoint_ = new ViewpointBox(lower_);
  // Both are in the menu too, and there are more tabs and boxes than letters.
  cmdSave = makeButton(u"cmdSave"_s, u"Save"_s);
  cmdSaveAndExit = makeButton(u"cmdSaveAndExit"_s, u"Save && Exit"_s);
  cmdSave->setToolTip(u"Ctrl+S"_s);
  auto* side = new QVBoxLayout;
  side->addWidget(viewpoint_);
  side->addStretch();
  side->addWidget(cmdSave);
  side->addWidget(cmdSaveAndExit);
  auto* layout = new QHBoxLayout(lower_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(TabStrip1, 1);
  layout->addLayout(side);
  return lower_;
}

void frmEditor::connectSignals() {
  connect(txtMain, &RichTextBox::Changed, this, guarded("txtMain_Change", kModule, this, &frmEditor::textChanged));
  connect(find_, &EditorFind::told, this, &frmEditor::showHint);
  connect(TabStrip1, &EditorTabStrip::changed, this, &frmEditor::markDirty);
  connect(TabStrip1, &EditorTabStrip::titleChanged, navigator_, &SceneNavigator::showTitle);
  connect(TabStrip1, &EditorTabStrip::titleChanged, this, &frmEditor::setCaption);
  connect(TabStrip1, &QTabWidget::currentChanged, this, [this](int tab) { CurrentTab = static_cast<qint16>(tab); });
  connect(cmdHide, &QToolButton::clicked, this, guarded("cmdHide_Click", kModule, this, &frmEditor::cmdHide_Click));
  connect(cmdSave, &QPushButton::clicked, this, [this] {
    const Guard guard("cmdSave_Click", kModule);
    guard([this] { storeWindowSettings(); });
    guard([this] { saveWhole(true); });
  });
  connect(cmdSaveAndExit, &QPushButton::clicked, this,
          guarded("cmdSaveAndExit_Click", kModule, this, &frmEditor::saveAndExit));
  hintTime_.setSingleShot(true);
  connect(&hintTime_, &QTimer::timeout, this, &frmEditor::tellLosses);
  connect(&TimerWC, &QTimer::timeout, this, guarded("TimerWC_Timer", kModule, this, &frmEditor::ShowSceneWordCount));
}

void frmEditor::readSettings() {
  const QSize room = screen()->availableGeometry().size();
  setMinimumSize(QSize(Twips::toPixels(MinWidth), Twips::toPixels(MinHeight)).boundedTo(room));
  resize(kFirstSize.boundedTo(room));
  colours_ = EditorColours::fromSettings();
  colours_.applyTo(*txtMain);
  restoreWindow(u"Editor"_s, *this);
  applyEditorFont();
  const qint32 tab = Numbers::ToInt(Settings().sGet(u"EditorDefaultTab"_s, 0));
  CurrentTab = static_cast<qint16>(tab >= 0 && tab < TabStrip1->count() ? tab : 0);
  TabStrip1->setCurrentIndex(CurrentTab);
  ControlsHidden = Numbers::ToBool(Settings().sGet(u"EditorMaxed"_s, false));
  RedrawForm();
}

void frmEditor::RedrawForm() {
  lower_->setVisible(!ControlsHidden);
  cmdHide->setArrowType(ControlsHidden ? Qt::UpArrow : Qt::DownArrow);
  const QString what = ControlsHidden ? shownText(u"Show the planning data below the text"_s)
                                      : shownText(u"Let the text fill the window"_s);
  cmdHide->setToolTip(what);
  cmdHide->setAccessibleName(what);
}

void frmEditor::cmdHide_Click() {
  ControlsHidden = !ControlsHidden;
  Settings().sSet(u"EditorMaxed"_s, ControlsHidden);
  RedrawForm();
  txtMain->setFocus();
}

// Tab writes a tab into the text, so this is the way out of it.
void frmEditor::keyPressEvent(QKeyEvent* event) {
  const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
  if (!isTab || !event->modifiers().testFlag(Qt::ControlModifier) || !txtMain->hasFocus()) {
    QMainWindow::keyPressEvent(event);
  } else if (event->key() == Qt::Key_Backtab || ControlsHidden) {
    focusNextPrevChild(event->key() == Qt::Key_Tab);
  } else {
    TabStrip1->tabBar()->setFocus(Qt::TabFocusReason);
  }
}

void frmEditor::storeWindowSettings() {
  storeWindow(u"Editor"_s, *this);
  colours_.toSettings();
  Settings().sSet(u"EditorDefaultTab"_s, static_cast<qint32>(CurrentTab));
}

void frmEditor::DisableOrEnable(bool enabled) {
  if (!enabled) {
    focusBefore_ = focusWidget();
  }
  // The lists of chapters and scenes lead to other windows as the buttons beside them do.
  navigator_->setEnabled(enabled);
  for (QAbstractButton* const button : findChildren<QAbstractButton*>()) {
    if (button->window() == this && button->objectName().startsWith(u"cmd"_s)) {
      button->setEnabled(enabled);
    }
  }
  if (enabled && focusBefore_) {
    focusBefore_->setFocus();
    focusBefore_ = nullptr;
  }
}

void frmEditor::setCaption(const QString& title) {
  // Without a title the window would bear the name of the program's file.
  setWindowTitle(literalTitle(calledScene(title)) + u"[*]"_s);
}

void frmEditor::setDirty(bool dirty) {
  Dirty = dirty;
  typedSinceCopy_ = dirty;
  setWindowModified(dirty);
}

/// Where the other editors stand. One that is handing over to this one makes room for it.
QList<QPoint> frmEditor::placesOfOthers() const {
  QList<QPoint> places;
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    const auto* const other = qobject_cast<const frmEditor*>(window);
    const bool isInTheWay = other != nullptr && other != this && other->isVisible() && !other->isMinimized() &&
                            !other->isMaximized() && !other->handingOver_;
    if (isInTheWay) {
      places.append(other->pos());
    }
  }
  return places;
}

void frmEditor::Show() {
  if (!isMaximized()) {
    placeEditor(*this, placesOfOthers());
  }
  show();
  raise();
  activateWindow();
}

void frmEditor::Activate() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void frmEditor::ShowModal() {
  QEventLoop loop;
  modalLoop_ = &loop;
  setWindowModality(Qt::ApplicationModal);
  setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
  Show();
  // The window may have deleted itself when this returns, and an end of the program ends the loop by itself.
  const QPointer<frmEditor> alive(this);
  loop.exec();
  if (alive) {
    modalLoop_ = nullptr;
  }
}

void frmEditor::Unload() {
  leaving_ = true;
  TimerWC.stop();
  TimerBackup.stop();
  TimerLoadFonts.stop();
  TimerExit.stop();
  find_->close();
  spelling_->stop();
  hide();
  if (modalLoop_ != nullptr) {
    modalLoop_->quit();
    modalLoop_ = nullptr;
  }
  deleteLater();
}

void frmEditor::closeEvent(QCloseEvent* event) {
  if (!leaving_) {
    Guard("Form_QueryUnload", kModule)([this] { closeForm(); });
  }
  event->setAccepted(leaving_);
}
