#include "gui/shell/windows/frmEditProject.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/windows/DeadlinesTab.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/WindowSettings.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditProject";
const QString kBlock = u"EditProject"_s;
constexpr int kWidthInLetters = 88;
constexpr int kLettersBesideFields = 36;
constexpr int kHeightInLines = 24;

enum Tab { kProject, kAuthor, kRatings, kDeadlines };

MemoEdit* makeMemo(const QString& name, const QString& spokenName, QWidget* parent) {
  auto* memo = new MemoEdit(parent);
  giveName(*memo, name, spokenName);
  return memo;
}

void showText(QLineEdit& field, const QString& text) {
  field.setText(text);
  field.setCursorPosition(0);
}

/// A line over a text of several lines, both behind their captions.
QWidget* makeTextFrame(const QString& lineCaption, QLineEdit& line, const QString& memoCaption, MemoEdit& memo) {
  auto* frame = new QWidget;
  auto* column = new QVBoxLayout(frame);
  column->addWidget(makeLabelOf(lineCaption, line));
  column->addWidget(&line);
  column->addSpacing(frame->fontMetrics().lineSpacing() / 2);
  column->addWidget(makeLabelOf(memoCaption, memo));
  column->addWidget(&memo, 1);
  return frame;
}

}  // namespace

frmEditProject::frmEditProject(const ProjectSettings& settings, QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmEditProject"_s);
  setWindowTitle(u"Project Settings"_s);
  createControls();
  buildLayout();
  connectSignals();
  showSettings(settings);
  first_ = this->settings();
}

frmEditProject* frmEditProject::showOver(QWidget& window, const ProjectSettings& settings) {
  auto* form = new frmEditProject(settings, &window);
  // Not with its closing: what is saved behind that lets the message loop run, and the window is asked once more then.
  connect(form, &QDialog::finished, form, &QObject::deleteLater);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmEditProject::createControls() {
  TabStrip1 = new QTabWidget(this);
  giveName(*TabStrip1, u"TabStrip1"_s, u"Settings"_s);
  txtTitle = makeLineEdit(u"txtTitle"_s, u"Title"_s, this);
  txtDesc = makeMemo(u"txtDesc"_s, u"Description"_s, this);
  txtAuthor = makeLineEdit(u"txtAuthor"_s, u"Author"_s, this);
  txtBio = makeMemo(u"txtBio"_s, u"Biography"_s, this);
  for (size_t i = 0; i < txtField.size(); ++i) {
    const QString number = QString::number(i + 1);
    txtField[i] = makeLineEdit(u"txtField("_s + number + u')', u"Rating "_s + number, this);
  }
  lblNote = makeWrappedLabel(
      u"lblNote"_s,
      u"These fields will each have a setting of 1-5. E.g. You could use 'tension', allowing you to "
      "rate all the scenes in your novel for the amount of tension they contain. It's only subjective, "
      "but if you've written a thriller and you rate 3/4 of the scenes with low tension then you "
      "probably have work to do."_s,
      kLettersBesideFields, this);
  cmdDefault = makeButton(u"cmdDefault"_s, u"Reset to De&faults"_s, this);
  deadlines_ = new DeadlinesTab(this);
  cmdSave = makeButton(u"cmdSave"_s, u"&Save"_s, this);
  cmdSave->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
}

void frmEditProject::buildLayout() {
  addFrame(buildProjectTab(), u"&Project"_s);
  addFrame(buildAuthorTab(), u"&Author"_s);
  addFrame(buildRatingsTab(), u"&Ratings"_s);
  addFrame(deadlines_, u"&Deadlines"_s);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdSave);
  buttons->addWidget(cmdCancel);
  auto* column = new QVBoxLayout(this);
  column->addWidget(TabStrip1, 1);
  column->addLayout(buttons);

  const QSize wanted(fontMetrics().averageCharWidth() * kWidthInLetters, fontMetrics().lineSpacing() * kHeightInLines);
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(kBlock, *this);
  txtTitle->setFocus();
}

QWidget* frmEditProject::buildProjectTab() const {
  return makeTextFrame(u"&Title:"_s, *txtTitle, u"D&escription:"_s, *txtDesc);
}

QWidget* frmEditProject::buildAuthorTab() const {
  return makeTextFrame(u"&Name:"_s, *txtAuthor, u"&Biography:"_s, *txtBio);
}

QWidget* frmEditProject::buildRatingsTab() const {
  auto* frame = new QWidget;
  frame->setAccessibleDescription(lblNote->text());
  auto* fields = new QFormLayout;
  for (QLineEdit* const field : txtField) {
    fields->addRow(makeLabelOf(QString(field->accessibleName()).replace(u' ', u" &"_s) + u':', *field), field);
  }
  fields->addRow(QString(), cmdDefault);
  fields->setAlignment(cmdDefault, Qt::AlignLeft);
  auto* column = new QVBoxLayout;
  column->addLayout(fields);
  column->addStretch();
  auto* row = new QHBoxLayout(frame);
  row->addLayout(column, 1);
  row->addSpacing(frame->fontMetrics().averageCharWidth() * 2);
  row->addWidget(lblNote, 1, Qt::AlignTop);
  return frame;
}

void frmEditProject::addFrame(QWidget* frame, const QString& caption) {
  frame->setObjectName(u"Frame("_s + QString::number(TabStrip1->count()) + u')');
  TabStrip1->addTab(frame, caption);
}

void frmEditProject::connectSignals() {
  connect(cmdDefault, &QPushButton::clicked, this,
          guarded("cmdDefault_Click", kModule, this, &frmEditProject::cmdDefault_Click));
  connect(cmdSave, &QPushButton::clicked, this,
          guarded("cmdSave_Click", kModule, this, &frmEditProject::cmdSave_Click));
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmEditProject::showSettings(const ProjectSettings& settings) {
  showText(*txtTitle, settings.Title);
  txtDesc->setText(settings.DescText);
  showText(*txtAuthor, settings.AuthorName);
  txtBio->setText(settings.AuthorBio);
  for (size_t i = 0; i < txtField.size(); ++i) {
    const QString& name = settings.FieldTitles[i];
    showText(*txtField[i], name.isEmpty() ? name : shownRating(static_cast<int>(i) + 1, name));
  }
  deadlines_->showDeadlines(settings.deadlines);
}

ProjectSettings frmEditProject::settings() const {
  ProjectSettings settings{txtTitle->text(),       txtDesc->Text(), txtAuthor->text(), txtBio->Text(), {},
                           deadlines_->deadlines()};
  for (size_t i = 0; i < txtField.size(); ++i) {
    settings.FieldTitles[i] = keptRating(txtField[i]->text());
  }
  return settings;
}

void frmEditProject::cmdDefault_Click() {
  for (size_t i = 0; i < txtField.size(); ++i) {
    txtField[i]->setText(translated(g_RatingNames.value(static_cast<qsizetype>(i) + 1)));
  }
}

void frmEditProject::cmdSave_Click() {
  if (namesAreFit() && deadlinesMayStay()) {
    accept();
  }
}

bool frmEditProject::namesAreFit() {
  for (QLineEdit* const field : txtField) {
    const QString refusal =
        Guard("cmdSave_Click", kModule).causeOf([field] { clsProject::checkFieldTitle(field->text()); });
    if (!refusal.isEmpty()) {
      TabStrip1->setCurrentIndex(kRatings);
      field->setFocus();
      field->selectAll();
      toolkit().MsgBox(refusal);
      return false;
    }
  }
  return true;
}

// Closing the box without a choice saves nothing.
bool frmEditProject::deadlinesMayStay() {
  const QString question = shownText(u"You have invalid dates in your settings. Do you want to edit them?"_s);
  if (!deadlines_->BadValues() || toolkit().MsgBox(question, Buttons::YesNoOrBack) == Answer::No) {
    return true;
  }
  TabStrip1->setCurrentIndex(kDeadlines);
  deadlines_->focusBadDate();
  return false;
}

// A biography that took an hour isn't lost to one press of Escape.
bool frmEditProject::mayDiscard() const {
  return settings() == first_ || toolkit().MsgBox(u"Discard the changes?"_s, Buttons::NoUnlessYes) == Answer::Yes;
}

void frmEditProject::reject() {
  Guard("cmdCancel_Click", kModule)([this] {
    if (mayDiscard()) {
      QDialog::reject();
    }
  });
}

void frmEditProject::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
