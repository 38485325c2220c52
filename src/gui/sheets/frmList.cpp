#include "gui/sheets/frmList.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"
#include "core/model/StoryCast.h"
#include "gui/sheets/ListKind.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"
#include "gui/views/PrintRun.h"
#include "gui/views/modFillList.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmList";
const QString kBlock = u"frmList"_s;
constexpr QSize kLettersAndLines(90, 28);
constexpr int kShareOfTint = 45;

constexpr int kFullName = 1;

const std::array<ListKind, 3>& kinds() {
  static const std::array<ListKind, 3> all{
      {{kListCharacters, CastKind::Character, shownText(u"Characters"_s), "character", u"cmdChar"_s, u"C&haracters"_s,
        shownText(u"Select one character, or several with Ctrl or Shift."_s),
        shownText(u"Makes a new character (Insert)"_s), shownText(u"Opens the sheet of the selected character (F2)"_s),
        shownText(u"You can only delete a character when they are not viewpoint in any scenes"_s),
        shownText(u"None yet.\nAdd New makes the first character."_s)},
       {kListLocations, CastKind::Location, shownText(u"Locations"_s), "location", u"cmdLoc"_s, u"&Locations"_s,
        shownText(u"Select one location, or several with Ctrl or Shift."_s),
        shownText(u"Makes a new location (Insert)"_s), shownText(u"Opens the sheet of the selected location (F2)"_s),
        shownText(u"Takes the selected location out of the book (Delete)"_s),
        shownText(u"None yet.\nAdd New makes the first location."_s)},
       {kListItems, CastKind::Item, shownText(u"Items"_s), "item", u"cmdItems"_s, u"&Items"_s,
        shownText(u"Select one item, or several with Ctrl or Shift."_s), shownText(u"Makes a new item (Insert)"_s),
        shownText(u"Opens the sheet of the selected item (F2)"_s),
        shownText(u"Takes the selected item out of the book (Delete)"_s),
        shownText(u"None yet.\nAdd New makes the first item."_s)}}};
  return all;
}

const ListKind* kindOf(int type) {
  const auto found =
      std::find_if(kinds().begin(), kinds().end(), [type](const auto& kind) { return kind.type == type; });
  return found == kinds().end() ? nullptr : &*found;
}

}  // namespace

frmList::frmList(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmList"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  createControls();
  buildLayout();
  connectSignals();
}

void frmList::createControls() {
  FrameChooser = new QFrame(this);
  FrameChooser->setObjectName(u"FrameChooser"_s);
  lblChoose = makeLabel(u"lblChoose"_s, {}, this);
  ListItems = new ListView({u"Name"_s}, this);
  cmdAdd = makeButton(u"cmdAdd"_s, u"&Add New"_s, this);
  cmdEdit = makeButton(u"cmdEdit"_s, u"&Edit Selected"_s, this);
  cmdDel = makeButton(u"cmdDel"_s, u"&Delete Selected"_s, this);
  cmdPrintList = makeButton(u"cmdPrintList"_s, u"&Print List"_s, this);
  chkOnlyMajor = new QCheckBox(u"Only &Major"_s, this);
  giveName(*chkOnlyMajor, u"chkOnlyMajor"_s, u"Only Major"_s);
  chkOnlyMajor->setToolTip(u"Lists the major characters alone"_s);
  cmdOK = makeButton(u"cmdOK"_s, u"&OK"_s, this);
  cmdOK->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"&Cancel"_s, this);

  mnuMove = new QMenu(this);
  mnuMove->setObjectName(u"mnuMove"_s);
  mnuMoveUp = mnuMove->addAction(u"Move Up"_s);
  mnuMoveUp->setObjectName(u"mnuMoveUp"_s);
  mnuMoveUp->setShortcut(Qt::ALT | Qt::Key_Up);
  mnuMoveDown = mnuMove->addAction(u"Move Down"_s);
  mnuMoveDown->setObjectName(u"mnuMoveDown"_s);
  mnuMoveDown->setShortcut(Qt::ALT | Qt::Key_Down);
  assignMnemonics(mnuMove->actions());
}

QPushButton* frmList::makeKindButton(const ListKind& kind) {
  QPushButton* const button = makeButton(kind.button, kind.buttonCaption, this);
  button->setIcon(icon(kind.icon));
  button->setCheckable(true);
  button->setAutoExclusive(true);
  return button;
}

void frmList::buildLayout() {
  auto* choices = new QHBoxLayout(FrameChooser);
  choices->setContentsMargins(0, 0, 0, 0);
  for (const ListKind& kind : kinds()) {
    choices->addWidget(makeKindButton(kind));
  }
  choices->addStretch();
  auto* side = new QVBoxLayout;
  for (QPushButton* const button : {cmdAdd, cmdEdit, cmdDel, cmdPrintList}) {
    side->addWidget(button);
  }
  side->addStretch();
  auto* middle = new QHBoxLayout;
  middle->addWidget(ListItems, 1);
  middle->addLayout(side);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(chkOnlyMajor);
  bottom->addStretch();
  bottom->addWidget(cmdOK);
  bottom->addWidget(cmdCancel);
  auto* column = new QVBoxLayout(this);
  column->addWidget(FrameChooser);
  column->addWidget(lblChoose);
  column->addLayout(middle, 1);
  column->addLayout(bottom);
  const QSize wanted(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
                     fontMetrics().lineSpacing() * kLettersAndLines.height());
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(kBlock, *this);
}

void frmList::connectSignals() {
  for (const ListKind& kind : kinds()) {
    connect(findChild<QPushButton*>(kind.button), &QPushButton::clicked, this,
            guarded("FrameChooser_Click", kModule, [this, type = kind.type] {
              SaveSortOrder();
              SetupFor(type, true);
            }));
  }
  connect(cmdAdd, &QPushButton::clicked, this, guarded("cmdAdd_Click", kModule, this, &frmList::cmdAdd_Click));
  connect(cmdDel, &QPushButton::clicked, this, guarded("cmdDel_Click", kModule, this, &frmList::cmdDel_Click));
  connect(cmdEdit, &QPushButton::clicked, this, guarded("cmdEdit_Click", kModule, this, &frmList::cmdEdit_Click));
  connect(cmdPrintList, &QPushButton::clicked, this,
          guarded("cmdPrintList_Click", kModule, [this] { printCast(kind().kind); }));
  connect(chkOnlyMajor, &QCheckBox::toggled, this,
          guarded("chkOnlyMajor_Click", kModule, this, &frmList::chkOnlyMajor_Click));
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(mnuMoveUp, &QAction::triggered, this, guarded("mnuMoveUp_Click", kModule, [this] { moveSelected(-1); }));
  connect(mnuMoveDown, &QAction::triggered, this, guarded("mnuMoveDown_Click", kModule, [this] { moveSelected(1); }));
}

// Each kind has columns of its own.
void frmList::makeList() {
  const ListView* const former = ListItems;
  ListItems = new ListView(isCast() ? QStringList{u"Name"_s, u"Full name"_s} : QStringList{u"Name"_s}, this);
  giveName(*ListItems, u"ListItems"_s, kind().caption);
  ListItems->setHeaderHidden(!isCast());
  ListItems->setFillRule({isCast() ? kFullName : kName});
  if (isCast()) {
    ListItems->setColumnWidth(kName, ListItems->widthFor(kName, u"Somebody's name of length"));
    restoreColumns(kBlock, *ListItems);
    ListItems->fillRoom();
  }
  delete layout()->replaceWidget(const_cast<ListView*>(former), ListItems);
  delete former;
  setTabOrder(FrameChooser->findChildren<QPushButton*>().constLast(), ListItems);
  setTabOrder(ListItems, cmdAdd);
  joinList();
}

void frmList::joinList() {
  connect(ListItems, &ListView::rowsSelected, this,
          guarded("ListItems_ItemClick", kModule, this, &frmList::showWhatMayBeDone));
  connect(ListItems, &ListView::rowOpened, this, guarded("ListItems_DblClick", kModule, this, &frmList::cmdEdit_Click));
  connect(ListItems, &ListView::enterPressed, this,
          guarded("ListItems_KeyPress", kModule, this, &frmList::ListItems_Enter));
  connect(ListItems, &ListView::keyUp, this, guarded("ListItems_KeyUp", kModule, this, &frmList::ListItems_KeyUp));
  connect(ListItems, &ListView::menuWanted, this, guarded("ListItems_MouseUp", kModule, this, &frmList::popUpMoves));
  connect(ListItems, &ListView::moveWanted, this, guarded("ListItems_KeyDown", kModule, this, &frmList::moveSelected));
}

void frmList::SetupFor(int type, bool ShowChooser) {
  const ListKind* const wanted = kindOf(type);
  if (wanted == nullptr) {
    toolkit().MsgBox(u"Fatal Error: No type specified"_s);
    return;
  }
  storeList();
  ListType = wanted->type;
  makeList();
  showKind(ShowChooser);
  FillList();
  ListItems->isEnabled() ? ListItems->setFocus() : cmdAdd->setFocus();
}

void frmList::showKind(bool ShowChooser) {
  setWindowTitle(kind().caption);
  setWindowIcon(icon(kind().icon));
  FrameChooser->setVisible(ShowChooser);
  findChild<QPushButton*>(kind().button)->setChecked(true);
  tintChooser();
  lblChoose->setVisible(!ShowChooser);
  lblChoose->setText(kind().choose);
  chkOnlyMajor->setVisible(isCast());
  cmdAdd->setToolTip(kind().addTip);
  cmdEdit->setToolTip(kind().editTip);
  cmdDel->setToolTip(kind().deleteTip);
}

// Which one is down has to be seen on a dark desktop too.
void frmList::tintChooser() {
  for (QPushButton* const button : FrameChooser->findChildren<QPushButton*>()) {
    QPalette tinted;
    if (button->isChecked()) {
      tinted.setColor(QPalette::Button, Colours::mixed(palette().color(QPalette::Highlight),
                                                       palette().color(QPalette::Button), kShareOfTint));
    }
    button->setPalette(tinted);
  }
}

void frmList::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    tintChooser();
  }
}

// Comes from every control, the list among them: an empty one doesn't take keys.
void frmList::keyPressEvent(QKeyEvent* event) {
  event->key() == Qt::Key_Insert ? cmdAdd->click() : QDialog::keyPressEvent(event);
}

bool frmList::isCast() const {
  return ListType == kListCharacters;
}

const ListKind& frmList::kind() const {
  return *kindOf(ListType);
}

bool frmList::isSetUp() {
  if (ListType == 0) {
    toolkit().MsgBox(u"Fatal error: You can't display the fill/pick list without calling showform first."_s);
  }
  return ListType != 0;
}

int frmList::exec() {
  return isSetUp() ? QDialog::exec() : Rejected;
}

void frmList::setVisible(bool visible) {
  if (!visible || isSetUp()) {
    QDialog::setVisible(visible);
  }
}

void frmList::done(int result) {
  Cancelled = result != Accepted;
  SaveSortOrder();
  storeList();
  storeWindow(kBlock, *this);
  QDialog::done(result);
}

void frmList::storeList() {
  if (isCast()) {
    storeColumns(kBlock, *ListItems);
  }
}

QList<qint32> frmList::selectedIDs() const {
  return ListItems->SelectedTags();
}

void frmList::selectID(qint32 id) {
  ListItems->SelectRow(ListItems->rowOfTag(id));
}

void frmList::fillRows() {
  switch (kind().kind) {
    case CastKind::Character:
      modFillList::FillAllCharList(*ListItems, true, OnlyMajor);
      break;
    case CastKind::Location:
      modFillList::FillAllLocations(*ListItems);
      break;
    case CastKind::Item:
      modFillList::FillAllItems(*ListItems);
  }
}

// What was selected stays so by itself.
void frmList::FillList() {
  ListItems->setEmptyText(OnlyMajor && isCast() ? shownText(u"No major characters."_s) : kind().emptyText);
  fillRows();
  if (ListItems->SelectedRow() < 0) {
    ListItems->SelectRow(0);
  }
  ListItems->scrollTo(ListItems->rows().index(ListItems->SelectedRow(), kName));
  const bool anyRows = ListItems->rowCount() > 0;
  if (!anyRows && (ListItems->hasFocus() || cmdDel->hasFocus() || cmdEdit->hasFocus())) {
    cmdAdd->setFocus();
  }
  ListItems->setEnabled(anyRows);
  showWhatMayBeDone();
  SaveSortOrder();
  // What is typed meanwhile waits, so that no move begins in the middle of another.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// With several selected a deletion of one alone would surprise.
void frmList::showWhatMayBeDone() {
  cmdEdit->setEnabled(ListItems->rowCount() > 0);
  cmdDel->setEnabled(ListItems->rowCount() > 0 && selectedIDs().size() < 2);
}

void frmList::SaveSortOrder() {
  if (ListType != 0) {
    StoryCast::number(kind().kind, ListItems->rows().tags());
  }
}
