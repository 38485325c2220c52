#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/StoryCast.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/sheets/ListKind.h"
#include "gui/sheets/frmList.h"
#include "gui/views/ListView.h"

#include <QCheckBox>
#include <QFrame>
#include <QMenu>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

// What is done with the listed entities.

void frmList::cmdAdd_Click() {
  const QList<qint32> before = ListItems->rows().tags();
  if (!StoryCast::enterNew(kind().kind)) {
    return;
  }
  changed_ = true;
  FillList();
  const QList<qint32>& now = ListItems->rows().tags();
  const auto added = std::find_if(now.begin(), now.end(), [&](qint32 id) { return !before.contains(id); });
  if (added != now.end()) {
    // An OK in a chooser means the one that was just made.
    const int row = static_cast<int>(added - now.begin());
    ListItems->SelectRow(row);
    ListItems->scrollTo(ListItems->rows().index(row, kName));
  } else {
    // A new one that doesn't show would be entered again.
    chkOnlyMajor->setChecked(false);
  }
}

void frmList::cmdDel_Click() {
  const int row = ListItems->SelectedRow();
  const qint32 id = ListItems->SelectedTag();
  if (id == 0) {
    return;
  }
  if (isCast() && g_Project->IsViewpointSomewhere(id)) {
    toolkit().MsgBox(
        u"You can't delete viewpoint characters. First change the viewpoint character for the scenes in question, then "
        "delete the character."_s);
    return;
  }
  if (toolkit().MsgBox(translated(u"Are you sure you want to delete %1"_s).arg(ListItems->text(row, kName)),
                       Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  const bool alone = selectedIDs().size() == 1;
  StoryCast::remove(kind().kind, id);
  changed_ = true;
  FillList();
  if (alone) {
    ListItems->SelectRow(std::min(row, ListItems->rowCount() - 1));
  }
}

void frmList::cmdEdit_Click() {
  const qint32 id = ListItems->SelectedTag();
  if (id != 0 && StoryCast::edit(kind().kind, id)) {
    changed_ = true;
    FillList();
  }
}

void frmList::chkOnlyMajor_Click() {
  OnlyMajor = chkOnlyMajor->isChecked();
  FillList();
}

void frmList::ListItems_KeyUp(int key) {
  for (const auto& [wanted, button] : {std::pair{Qt::Key_Delete, cmdDel}, {Qt::Key_F2, cmdEdit}}) {
    if (key == wanted) {
      button->click();
    }
  }
}

// Who chooses has chosen.
void frmList::ListItems_Enter() {
  FrameChooser->isHidden() ? accept() : cmdEdit_Click();
}

void frmList::popUpMoves(const QPoint& place) {
  const QModelIndex at = ListItems->indexAt(ListItems->viewport()->mapFromGlobal(place));
  const int row = ListItems->SelectedRow();
  if (row < 0 || !ListItems->selectionModel()->isSelected(at)) {
    return;
  }
  mnuMoveUp->setEnabled(row > 0);
  mnuMoveDown->setEnabled(row < ListItems->rowCount() - 1);
  mnuMove->popup(place);
}

void frmList::moveSelected(int step) {
  const int row = ListItems->SelectedRow();
  const qint32 id = ListItems->SelectedTag();
  const qint32 past = ListItems->tagAt(row + step);
  if (id == 0 || past == 0 || !mayMove(id, past, step)) {
    return;
  }
  StoryCast::swapPlaces(kind().kind, id, past);
  changed_ = true;
  FillList();
}

bool frmList::mayMove(qint32 id, qint32 past, int step) const {
  if (!isCast() || g_Project->CharByID(id)->major == g_Project->CharByID(past)->major) {
    return true;
  }
  toolkit().MsgBox(step < 0 ? shownText(u"You can't move Minor characters above Major ones."_s)
                            : shownText(u"You can't move Major characters below Minor ones."_s));
  return false;
}
