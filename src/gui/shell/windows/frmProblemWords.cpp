#include "gui/shell/windows/frmProblemWords.h"

#include "core/infra/Toolkit.h"
#include "core/spell/ProblemWords.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowSettings.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmProblemWords";
const QString kBlock = u"ProblemWords"_s;
constexpr QSize kLettersAndLines(48, 18);

QPushButton* makeCommand(const QString& name, const QString& caption, const QString& tip, QWidget* parent) {
  QPushButton* const button = makeButton(name, caption, parent);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

frmProblemWords::frmProblemWords(QWidget* parent) : QDialog(parent), first_(ProblemWords::load()) {
  setObjectName(u"frmProblemWords"_s);
  setWindowTitle(u"Problem Words"_s);
  createControls();
  buildLayout();
  connectSignals();
  lstWords->addItems(first_);
  lstWords->setCurrentRow(0);
  enableButtons();
}

frmProblemWords* frmProblemWords::showOver(QWidget& window) {
  auto* form = new frmProblemWords(&window);
  connect(form, &QDialog::finished, form, &QObject::deleteLater);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmProblemWords::createControls() {
  lstWords = new QListWidget(this);
  giveName(*lstWords, u"lstWords"_s, u"Problem words"_s);
  cmdAdd = makeCommand(u"cmdAdd"_s, u"&Add..."_s, u"Adds a word to the list (Insert)"_s, this);
  cmdEdit = makeCommand(u"cmdEdit"_s, u"&Edit..."_s, u"Changes the selected word (F2)"_s, this);
  cmdDelete = makeCommand(u"cmdDelete"_s, u"&Delete"_s, u"Takes the selected word off the list (Delete)"_s, this);
  cmdOK = makeButton(u"cmdOK"_s, u"&OK"_s, this);
  cmdOK->setDefault(true);
  cmdExit = makeButton(u"cmdExit"_s, u"&Cancel"_s, this);
}

void frmProblemWords::buildLayout() {
  auto* side = new QVBoxLayout;
  for (QPushButton* const button : {cmdAdd, cmdEdit, cmdDelete}) {
    side->addWidget(button);
  }
  side->addStretch();
  auto* middle = new QHBoxLayout;
  middle->addWidget(lstWords, 1);
  middle->addLayout(side);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdExit);
  auto* column = new QVBoxLayout(this);
  column->addWidget(makeLabelOf(u"&Words to look for in the project:"_s, *lstWords));
  column->addLayout(middle, 1);
  column->addLayout(buttons);
  resize(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
         fontMetrics().lineSpacing() * kLettersAndLines.height());
  restoreWindow(kBlock, *this);
  lstWords->setFocus();
}

void frmProblemWords::connectSignals() {
  const auto add = guarded("cmdAdd_Click", kModule, this, &frmProblemWords::cmdAdd_Click);
  const auto edit = guarded("cmdEdit_Click", kModule, this, &frmProblemWords::cmdEdit_Click);
  const auto remove = guarded("cmdDelete_Click", kModule, this, &frmProblemWords::cmdDelete_Click);
  connect(cmdAdd, &QPushButton::clicked, this, add);
  connect(cmdEdit, &QPushButton::clicked, this, edit);
  connect(cmdDelete, &QPushButton::clicked, this, remove);
  lstWords->installEventFilter(this);
  connect(lstWords, &QListWidget::itemDoubleClicked, this, edit);
  connect(lstWords, &QListWidget::itemSelectionChanged, this, &frmProblemWords::enableButtons);
  connect(cmdOK, &QPushButton::clicked, this, guarded("cmdOK_Click", kModule, this, &frmProblemWords::cmdOK_Click));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmProblemWords::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    for (const auto& [key, button] :
         {std::pair{Qt::Key_Insert, cmdAdd}, {Qt::Key_F2, cmdEdit}, {Qt::Key_Delete, cmdDelete}}) {
      if (static_cast<QKeyEvent*>(event)->key() == key) {
        button->click();
        return true;
      }
    }
  }
  return QDialog::eventFilter(watched, event);
}

void frmProblemWords::enableButtons() {
  const bool anySelected = !lstWords->selectedItems().isEmpty();
  for (QPushButton* const button : {cmdEdit, cmdDelete}) {
    button->setEnabled(anySelected);
  }
}

QStringList frmProblemWords::words() const {
  QStringList words;
  for (int row = 0; row < lstWords->count(); ++row) {
    words.append(lstWords->item(row)->text());
  }
  return words;
}

QString frmProblemWords::askForWord(const QString& word) {
  return toolkit().InputBox(u"Enter your problem word"_s, u"Case sensitive"_s, word);
}

void frmProblemWords::cmdAdd_Click() {
  if (lstWords->count() >= ProblemWords::kMost) {
    toolkit().MsgBox(u"Only 30 words allowed."_s);
    return;
  }
  const QString word = askForWord({});
  if (!word.isEmpty()) {
    lstWords->addItem(word);
    lstWords->setCurrentRow(lstWords->count() - 1);
  }
}

void frmProblemWords::cmdEdit_Click() {
  if (lstWords->selectedItems().isEmpty()) {
    return;
  }
  QListWidgetItem* const item = lstWords->currentItem();
  const QString word = askForWord(item->text());
  if (!word.isEmpty()) {
    item->setText(word);
  }
}

void frmProblemWords::cmdDelete_Click() {
  if (!lstWords->selectedItems().isEmpty()) {
    delete lstWords->takeItem(lstWords->currentRow());
  }
}

void frmProblemWords::cmdOK_Click() {
  ProblemWords::store(words());
  accept();
}

void frmProblemWords::reject() {
  Guard("cmdExit_Click", kModule)([this] {
    if (words() == first_ || toolkit().MsgBox(u"Discard the changes?"_s, Buttons::NoUnlessYes) == Answer::Yes) {
      QDialog::reject();
    }
  });
}

void frmProblemWords::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
