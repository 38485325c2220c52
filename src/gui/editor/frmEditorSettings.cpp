#include "gui/editor/frmEditorSettings.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditorSettings";
constexpr int kLettersOfMinutes = 6;

template <class Button>
Button* makeChoice(const QString& name, const QString& caption, QWidget* parent) {
  auto* const button = new Button(caption, parent);
  giveName(*button, name);
  return button;
}

}  // namespace

frmEditorSettings::frmEditorSettings(const EditorSettings& settings, QWidget* parent)
    : QDialog(parent),
      given_(settings),
      optSameFile(makeChoice<QRadioButton>(u"optSameFile"_s, u"Save backups to the &same file"_s, this)),
      optSequential(makeChoice<QRadioButton>(u"optSequential"_s, u"Save backups to sequential files &every"_s, this)),
      txtFreq(makeLineEdit(u"txtFreq"_s, u"Minutes between sequential files"_s, this)),
      chkCreateTextToo(
          makeChoice<QCheckBox>(u"chkCreateTextToo"_s, u"Create a &text file mirror when saving rtf scenes"_s, this)),
      chkFontBarFollowsText(
          makeChoice<QCheckBox>(u"chkFontBarFollowsText"_s, u"&Formatting bar shows the text's format"_s, this)) {
  setObjectName(u"frmEditorSettings"_s);
  setWindowTitle(u"Editor Settings"_s);
  buildLayout();
  connectSignals();
  (settings.AutoBackupSequential ? optSequential : optSameFile)->setChecked(true);
  txtFreq->setText(QString::number(settings.SequentialFrequency));
  txtFreq->setEnabled(settings.AutoBackupSequential);
  chkCreateTextToo->setChecked(settings.CreateTextToo);
  chkFontBarFollowsText->setChecked(settings.FontBarFollowsText);
}

void frmEditorSettings::edit(QWidget& window) {
  const QPointer<frmEditorSettings> form = new frmEditorSettings(EditorSettings::fromSettings(), &window);
  if (form->exec() == QDialog::Accepted && form) {
    form->settings().toSettings();
  }
  delete form.data();
}

void frmEditorSettings::buildLayout() {
  txtFreq->setFixedWidth(fontMetrics().averageCharWidth() * kLettersOfMinutes + fontMetrics().height());
  auto* intervals = new QHBoxLayout;
  intervals->addWidget(optSequential);
  intervals->addWidget(txtFreq);
  intervals->addWidget(makeLabel(u"lblMins"_s, u"mins"_s));
  intervals->addStretch();

  auto* const buttons = new QDialogButtonBox(this);
  auto* const cmdOK = makeButton(u"cmdOK"_s, u"&OK"_s);
  cmdOK->setDefault(true);
  buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
  buttons->addButton(makeButton(u"cmdCancel"_s, u"&Cancel"_s), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  const int gap = fontMetrics().lineSpacing() / 2;
  auto* column = new QVBoxLayout(this);
  column->addWidget(optSameFile);
  column->addLayout(intervals);
  column->addSpacing(gap);
  column->addWidget(chkCreateTextToo);
  column->addWidget(chkFontBarFollowsText);
  column->addStretch();
  column->addSpacing(gap);
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

void frmEditorSettings::connectSignals() {
  connect(optSequential, &QRadioButton::toggled, txtFreq, &QWidget::setEnabled);
  connect(optSequential, &QRadioButton::clicked, txtFreq, [this] {
    txtFreq->setFocus();
    txtFreq->selectAll();
  });
}

std::optional<int> frmEditorSettings::minutes() const {
  bool isNumber = false;
  const int minutes = txtFreq->text().trimmed().toInt(&isNumber);
  const bool isFit = isNumber && minutes >= 0 && minutes <= EditorSettings::kMostMinutes;
  return isFit ? std::optional(minutes) : std::nullopt;
}

bool frmEditorSettings::minutesAreFit() {
  if (!optSequential->isChecked() || minutes()) {
    return true;
  }
  toolkit().MsgBox(
      translated(
          u"Please enter the minutes between sequential files as a whole number from 0 to %1. With 0 each change "
          "gets a file, once a minute."_s)
          .arg(EditorSettings::kMostMinutes));
  txtFreq->setFocus();
  txtFreq->selectAll();
  return false;
}

void frmEditorSettings::accept() {
  Guard("cmdOK_Click", kModule)([this] {
    const QPointer<QDialog> alive(this);
    if (minutesAreFit() && alive) {
      QDialog::accept();
    }
  });
}

EditorSettings frmEditorSettings::settings() const {
  return {optSequential->isChecked(), minutes().value_or(given_.SequentialFrequency), chkCreateTextToo->isChecked(),
          chkFontBarFollowsText->isChecked()};
}
