#include "gui/shell/windows/frmGlobalReplace.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/windows/CompleteBackup.h"
#include "gui/shell/windows/UnplacedBook.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmGlobalReplace";
constexpr int kLetters = 64;

/// "1 scene was changed."
QString scenesChanged(qint32 count) {
  return count == 0   ? translated(u"No scene was changed."_s)
         : count == 1 ? translated(u"1 scene was changed."_s)
                      : translated(u"%1 scenes were changed."_s).arg(QLocale().toString(count));
}

QString changedBefore(qint32 count) {
  return count == 0   ? translated(u"No scene was changed before."_s)
         : count == 1 ? translated(u"1 scene was changed before."_s)
                      : translated(u"%1 scenes were changed before."_s).arg(QLocale().toString(count));
}

QString notSaved(const GlobalReplace::Outcome& outcome) {
  const QString what =
      outcome.cause.isEmpty()
          ? translated(u"Global search/replace stopped. The scene \"%1\" could not be saved"_s).arg(outcome.unsaved)
          : translated(u"Global search/replace stopped. The scene \"%1\" could not be saved: %2"_s)
                .arg(outcome.unsaved, translated(outcome.cause));
  return what + u"\n\n"_s + translated(u"It is as it was before."_s) + u' ' + changedBefore(outcome.scenes);
}

QString endOf(const GlobalReplace::Outcome& outcome) {
  const QString before = u"\n\n"_s + changedBefore(outcome.scenes);
  const QString occurrences = QLocale().toString(outcome.occurrences);
  switch (outcome.end) {
    case GlobalReplace::End::Locked:
      return translated(u"Global search/replace cancelled. One or more scenes are open in edit windows."_s) + before;
    case GlobalReplace::End::Stopped:
      return translated(u"Global search/replace stopped. Replaced %1 occurrences."_s).arg(occurrences) + before;
    case GlobalReplace::End::NotSaved:
      return notSaved(outcome);
    default:
      return translated(u"Replaced %1 occurrences"_s).arg(occurrences);
  }
}

}  // namespace

frmGlobalReplace::frmGlobalReplace(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmGlobalReplace"_s);
  setWindowTitle(u"Global Search and Replace"_s);
  createControls();
  buildLayout();
  connectSignals();
}

frmGlobalReplace* frmGlobalReplace::showOver(QWidget& window) {
  auto* form = new frmGlobalReplace(&window);
  connect(form, &QDialog::finished, form, &QObject::deleteLater);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmGlobalReplace::createControls() {
  txtLookfor = makeLineEdit(u"txtLookfor"_s, u"Find"_s, this);
  txtReplaceWith = makeLineEdit(u"txtReplaceWith"_s, u"Replace With"_s, this);
  chkCaseSensitive = new QCheckBox(u"&Case Sensitive"_s, this);
  giveName(*chkCaseSensitive, u"chkCaseSensitive"_s);
  chkCaseSensitive->setToolTip(u"Titles and descriptions of scenes are changed too, in exactly these letters."_s);
  chkWholeWordOnly = new QCheckBox(u"&Whole words only"_s, this);
  giveName(*chkWholeWordOnly, u"chkWholeWordOnly"_s);
  chkWholeWordOnly->setToolTip(u"This option has no effect: parts of words are replaced too."_s);
  cmdOK = makeButton(u"cmdOK"_s, u"Replace &All"_s, this);
  cmdOK->setDefault(true);
  cmdExit = makeButton(u"cmdExit"_s, u"E&xit"_s, this);
}

QGridLayout* frmGlobalReplace::buildFields() {
  auto* fields = new QGridLayout;
  fields->addWidget(makeLabelOf(u"&Find:"_s, *txtLookfor), 0, 0);
  fields->addWidget(txtLookfor, 0, 1);
  fields->addWidget(makeLabelOf(u"&Replace With:"_s, *txtReplaceWith), 1, 0);
  fields->addWidget(txtReplaceWith, 1, 1);
  auto* options = new QHBoxLayout;
  options->addWidget(chkCaseSensitive);
  options->addWidget(chkWholeWordOnly);
  options->addStretch();
  fields->addLayout(options, 2, 1);
  fields->setColumnStretch(1, 1);
  return fields;
}

QHBoxLayout* frmGlobalReplace::buildNote() {
  auto* sign = makeLabel(u"lblSign"_s, {}, this);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
  sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size));
  auto* note = new QHBoxLayout;
  note->addWidget(sign);
  note->addWidget(makeWrappedLabel(u"lblNote"_s, u"EXAMPLE: Replacing Cal with Bal will also turn Calf into Balf"_s,
                                   kLetters, this),
                  1);
  return note;
}

void frmGlobalReplace::buildLayout() {
  lblResult = makeWrappedLabel(u"lblResult"_s,
                               u"The texts of all scenes are searched. A complete backup of the book is made before."_s,
                               kLetters, this);
  lblResult->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdExit);
  auto* column = new QVBoxLayout(this);
  column->addLayout(buildFields());
  column->addLayout(buildNote());
  column->addWidget(lblResult, 1);
  column->addLayout(buttons);
}

void frmGlobalReplace::connectSignals() {
  connect(chkCaseSensitive, &QCheckBox::clicked, this,
          guarded("chkCaseSensitive_Click", kModule, this, &frmGlobalReplace::chkCaseSensitive_Click));
  connect(cmdOK, &QPushButton::clicked, this, guarded("cmdOK_Click", kModule, this, &frmGlobalReplace::cmdOK_Click));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmGlobalReplace::chkCaseSensitive_Click() {
  caseSensitive_ = chkCaseSensitive->isChecked();
}

void frmGlobalReplace::cmdOK_Click() {
  chkCaseSensitive_Click();
  if (!mayReplace()) {
    txtLookfor->setFocus();
    return;
  }
  const GlobalReplace replacement(txtLookfor->text(), txtReplaceWith->text(), caseSensitive_);
  archive_.clear();
  const bool wouldChange = [&] {
    const BusyPointer pointer;
    return replacement.wouldChange();
  }();
  if (wouldChange && !backUp()) {
    lblResult->setText(scenesChanged(0));
    return;
  }
  const GlobalReplace::Outcome outcome = replacement.run();
  // Also behind a text that could not be saved: titles of others stand in the project file.
  if (outcome.scenes > 0) {
    Q_EMIT bookChanged();
  }
  tell(outcome);
  txtLookfor->setFocus();
  txtLookfor->selectAll();
}

/// There is something to look for, and something else to put in its place.
bool frmGlobalReplace::mayReplace() {
  if (txtLookfor->text().isEmpty()) {
    toolkit().MsgBox(u"Please type the text that is to be replaced."_s);
    return false;
  }
  if (caseSensitive_ && txtLookfor->text() == txtReplaceWith->text()) {
    toolkit().MsgBox(u"Both texts are the same: there is nothing to replace."_s);
    return false;
  }
  return true;
}

/// False when there is none and the user doesn't go on without.
bool frmGlobalReplace::backUp() {
  SaveBook();
  const CompleteBackup backup = CompleteBackup::makeOrAsk(shownText(u"the former texts could not be brought back"_s),
                                                          shownText(u"Replace all the same?"_s));
  archive_ = backup.archive;
  if (!archive_.isEmpty()) {
    Q_EMIT backedUp();
  }
  return backup.mayGoOn;
}

void frmGlobalReplace::tell(const GlobalReplace::Outcome& outcome) {
  QString result = scenesChanged(outcome.scenes);
  if (outcome.titles > 0) {
    result +=
        u' ' +
        translated(u"Titles or descriptions have changed in %1 of them."_s).arg(QLocale().toString(outcome.titles));
  }
  if (!archive_.isEmpty()) {
    result += u'\n' + translated(u"The book as it was before is in %1"_s).arg(archive_);
  }
  const QString toKeep = outcome.scenes > 0 ? howToKeepChanges() : QString();
  if (!toKeep.isEmpty()) {
    result += u'\n' + toKeep;
  }
  lblResult->setText(result);
  QStringList told(endOf(outcome));
  for (const QString& remark : {toKeep, outcome.reduced.remark()}) {
    if (!remark.isEmpty()) {
      told.append(remark);
    }
  }
  toolkit().MsgBox(told.join(u"\n\n"_s));
}
