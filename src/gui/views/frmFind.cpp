#include "gui/views/frmFind.h"

#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/RichTextBox.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmFind";
constexpr int kLetters = 28;
constexpr int kMostTerms = 50;
/// A longer selection is no term.
constexpr qsizetype kLongestTerm = 500;
/// Between the dialog and what it leaves free.
constexpr int kGap = 8;

/// The terms of this run, whichever dialog they were typed in, the latest first.
struct Terms {
  QStringList sought;
  QStringList replacements;
};

Terms& terms() {
  static Terms ofThisRun;
  return ofThisRun;
}

void remember(QStringList& list, const QString& term) {
  if (term.isEmpty()) {
    return;
  }
  list.removeAll(term);
  list.prepend(term);
  if (list.size() > kMostTerms) {
    list.removeLast();
  }
}

QComboBox* makeTermBox(const QString& name, const QString& spokenName, QWidget* parent) {
  auto* box = new QComboBox(parent);
  giveName(*box, name, spokenName);
  box->setEditable(true);
  box->lineEdit()->setAccessibleName(spokenName);
  box->view()->setAccessibleName(spokenName);
  box->setInsertPolicy(QComboBox::NoInsert);
  // A term that completes itself is another one than was typed.
  box->setCompleter(nullptr);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(kLetters);
  return box;
}

void list(QComboBox& box, const QStringList& terms) {
  const QString shown = box.currentText();
  const QSignalBlocker quiet(box);
  box.clear();
  box.addItems(terms);
  box.setCurrentIndex(box.findText(shown, Qt::MatchFixedString | Qt::MatchCaseSensitive));
  box.setEditText(shown);
}

QRect moved(QRect dialog, const QRect& room) {
  dialog.moveRight(qMin(dialog.right(), room.right()));
  dialog.moveBottom(qMin(dialog.bottom(), room.bottom()));
  dialog.moveLeft(qMax(dialog.left(), room.left()));
  dialog.moveTop(qMax(dialog.top(), room.top()));
  return dialog;
}

}  // namespace

frmFind::frmFind(QWidget* owner)
    : QDialog(owner),
      cmbFind(makeTermBox(u"cmbFind"_s, u"Find What"_s, this)),
      cmbReplace(makeTermBox(u"cmbReplace"_s, u"Replace With"_s, this)),
      chkCaseSensitive(new QCheckBox(u"Case &Sensitive"_s, this)),
      cmdFind(makeButton(u"cmdFind"_s, u"&Find"_s, this)),
      cmdFindPrev(makeButton(u"cmdFindPrev"_s, u"&Previous"_s, this)),
      cmdReplace(makeButton(u"cmdReplace"_s, u"&Replace"_s, this)),
      cmdReplaceAll(makeButton(u"cmdReplaceAll"_s, u"Replace &All"_s, this)),
      cmdCancel(makeButton(u"cmdCancel"_s, u"&Cancel"_s, this)) {
  setObjectName(u"frmFind"_s);
  setWindowTitle(u"Find"_s);
  giveName(*chkCaseSensitive, u"chkCaseSensitive"_s);
  cmdFind->setToolTip(u"Finds the next one (Enter, F3)"_s);
  cmdFindPrev->setToolTip(u"Finds the one before (Shift+F3)"_s);
  cmdReplace->setToolTip(u"Replaces the next one behind the caret; what is selected is passed over"_s);
  cmdFind->setDefault(true);
  buildLayout();
  connectSignals();
  enableButtons();
}

void frmFind::buildLayout() {
  auto* column = new QVBoxLayout;
  for (QPushButton* const button : {cmdFind, cmdFindPrev, cmdReplace, cmdReplaceAll, cmdCancel}) {
    column->addWidget(button);
  }
  column->addStretch();
  auto* row = new QHBoxLayout(this);
  row->addLayout(buildFields(), 1);
  row->addLayout(column);
}

QGridLayout* frmFind::buildFields() {
  lblReplace = makeLabelOf(u"Replace Wi&th:"_s, *cmbReplace);
  auto* fields = new QGridLayout;
  fields->addWidget(makeLabelOf(u"Find &What:"_s, *cmbFind), 0, 0);
  fields->addWidget(cmbFind, 0, 1);
  fields->addWidget(lblReplace, 1, 0);
  fields->addWidget(cmbReplace, 1, 1);
  fields->addWidget(chkCaseSensitive, 2, 1);
  fields->setColumnStretch(1, 1);
  fields->setRowStretch(3, 1);
  return fields;
}

void frmFind::connectSignals() {
  const auto onClick = [this](QPushButton* button, const char* handler, auto run) {
    connect(button, &QPushButton::clicked, this, guarded(handler, kModule, run));
  };
  const auto next = [this] { find(&frmFind::DoFind); };
  const auto previous = [this] { find(&frmFind::DoPrevious); };
  onClick(cmdFind, "cmdFind_Click", next);
  onClick(cmdFindPrev, "cmdFindPrev_Click", previous);
  onClick(cmdReplace, "cmdReplace_Click", [this] { replace(&frmFind::DoReplace); });
  onClick(cmdReplaceAll, "cmdReplaceAll_Click", [this] { replace(&frmFind::DoReplaceAll); });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this,
          guarded("cmdFind_Click", kModule, next));
  connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, this,
          guarded("cmdFindPrev_Click", kModule, previous));
  connect(cmbFind, &QComboBox::editTextChanged, this, &frmFind::enableButtons);
}

void frmFind::enableButtons() {
  for (QPushButton* const button : {cmdFind, cmdFindPrev, cmdReplace, cmdReplaceAll}) {
    button->setEnabled(!cmbFind->currentText().isEmpty());
  }
}

void frmFind::offerReplace(bool offered) {
  for (QWidget* const control : std::initializer_list<QWidget*>{lblReplace, cmbReplace, cmdReplace, cmdReplaceAll}) {
    control->setVisible(offered);
  }
  layout()->activate();
  adjustSize();
}

void frmFind::setText(const QString& text) {
  if (!text.isEmpty()) {
    cmbFind->setEditText(text);
  }
}

void frmFind::setCase(bool sensitive) {
  chkCaseSensitive->setChecked(sensitive);
}

void frmFind::find(Asked what) {
  const QString text = cmbFind->currentText();
  if (text.isEmpty()) {
    return;
  }
  remember(terms().sought, text);
  listTerms();
  Q_EMIT(this->*what)(text, chkCaseSensitive->isChecked());
}

void frmFind::replace(AskedToReplace what) {
  const QString text = cmbFind->currentText();
  const QString with = cmbReplace->currentText();
  if (text.isEmpty()) {
    return;
  }
  remember(terms().sought, text);
  remember(terms().replacements, with);
  listTerms();
  Q_EMIT(this->*what)(text, with, chkCaseSensitive->isChecked());
}

void frmFind::listTerms() {
  list(*cmbFind, terms().sought);
  list(*cmbReplace, terms().replacements);
}

void frmFind::ask(bool inReplace) {
  listTerms();
  if (!placed_) {
    placeBesideOwner();
    placed_ = true;
  }
  show();
  raise();
  activateWindow();
  QComboBox* const field = inReplace ? cmbReplace : cmbFind;
  field->setFocus();
  field->lineEdit()->selectAll();
}

void frmFind::placeBesideOwner() {
  const QWidget& window = *parentWidget()->window();
  const QRect around = window.frameGeometry();
  const QSize frame = around.size() - window.size();
  adjustSize();
  move(FindPlace::beside(around, size() + frame, window.screen()->availableGeometry()));
}

void frmFind::keepClearOf(const QRect& part) {
  const QPoint there = FindPlace::clearOf(part, frameGeometry(), screen()->availableGeometry());
  if (isVisible() && there != frameGeometry().topLeft()) {
    move(there);
  }
}

void frmFind::keepClearOf(const RichTextBox& text) {
  QTextCursor begin = text.textCursor();
  begin.setPosition(begin.selectionStart());
  const QRect part = text.cursorRect(begin).united(text.cursorRect());
  keepClearOf(QRect(text.viewport()->mapToGlobal(part.topLeft()), part.size()));
}

QString frmFind::termIn(const RichTextBox& text) {
  const QString selected = text.SelText();
  const bool isTerm = selected.size() <= kLongestTerm && !selected.contains(u'\r') &&
                      !selected.contains(QChar(QChar::ObjectReplacementCharacter));
  return isTerm ? selected : QString();
}

QPoint FindPlace::beside(const QRect& window, QSize dialog, const QRect& room) {
  const QRect right(QPoint(window.right() + 1 + kGap, window.top()), dialog);
  if (right.right() <= room.right()) {
    return moved(right, room).topLeft();
  }
  const QRect left(QPoint(window.left() - kGap - dialog.width(), window.top()), dialog);
  if (left.left() >= room.left()) {
    return moved(left, room).topLeft();
  }
  return moved(QRect(QPoint(window.right() + 1 - kGap - dialog.width(), window.top() + kGap), dialog), room).topLeft();
}

QPoint FindPlace::clearOf(const QRect& part, const QRect& dialog, const QRect& room) {
  if (!dialog.intersects(part)) {
    return dialog.topLeft();
  }
  for (const int top : {part.bottom() + 1 + kGap, part.top() - kGap - dialog.height()}) {
    const QRect there(QPoint(dialog.left(), top), dialog.size());
    if (there.top() >= room.top() && there.bottom() <= room.bottom()) {
      return there.topLeft();
    }
  }
  return dialog.topLeft();
}
