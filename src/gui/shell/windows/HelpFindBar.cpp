#include "gui/shell/windows/HelpFindBar.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmHelp";

}  // namespace

HelpFindBar::HelpFindBar(QTextBrowser& page, QWidget* parent)
    : QWidget(parent), page_(page), txtFind(makeLineEdit(u"txtFind"_s, u"Find What"_s, this)) {
  setObjectName(u"fraFind"_s);
  buildLayout();
  hide();
  connect(txtFind, &QLineEdit::textEdited, this, guarded("txtFind_Change", kModule, this, &HelpFindBar::findTyped));
}

void HelpFindBar::buildLayout() {
  lblNotFound = makeLabel(u"lblNotFound"_s, {});
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(makeLabelOf(u"Find &What:"_s, *txtFind));
  row->addWidget(txtFind, 1);
  for (const auto& [name, caption, backward] :
       {std::tuple{u"cmdFindNext"_s, u"&Next"_s, false}, {u"cmdFindPrev"_s, u"&Previous"_s, true}}) {
    QPushButton* const button = makeButton(name, caption);
    button->setAutoDefault(false);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this,
            guarded("cmdFind_Click", kModule, [this, backward = backward] { find(backward); }));
  }
  row->addWidget(lblNotFound);
}

void HelpFindBar::ask() {
  if (const QString selected = page_.textCursor().selectedText(); !selected.isEmpty()) {
    txtFind->setText(selected);
  }
  show();
  txtFind->setFocus();
  txtFind->selectAll();
}

void HelpFindBar::find(bool backward) {
  if (txtFind->text().isEmpty()) {
    ask();
    return;
  }
  lblNotFound->setText(search(backward) ? QString() : translated(u"No match"_s));
}

// From where the last place begins, so that the next letter narrows it down.
void HelpFindBar::findTyped() {
  QTextCursor from = page_.textCursor();
  from.setPosition(from.selectionStart());
  page_.setTextCursor(from);
  if (!txtFind->text().isEmpty()) {
    find(false);
  } else {
    lblNotFound->clear();
  }
}

bool HelpFindBar::search(bool backward) {
  const auto way = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (page_.find(txtFind->text(), way)) {
    return true;
  }
  const QTextCursor before = page_.textCursor();
  page_.moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  if (page_.find(txtFind->text(), way)) {
    return true;
  }
  page_.setTextCursor(before);
  return false;
}

void HelpFindBar::leave() {
  hide();
  page_.setFocus();
}
