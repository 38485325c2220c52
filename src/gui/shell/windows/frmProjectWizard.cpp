#include "gui/shell/windows/frmProjectWizard.h"

#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmProjectWizard";
constexpr int kWidthInLetters = 100;
constexpr int kSummaryInLines = 7;

enum Page { kWelcome, kTitle, kAuthor, kPath, kSummary };

const QString kNext = shownText(u"&Next >>"_s);
const QString kFinish = shownText(u"&Finish"_s);

QLabel* makeHeading(const QString& text) {
  QLabel* label = makeLabel({}, text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setBold(true);
  label->setFont(font);
  return label;
}

QLabel* makeWrapped(const QString& name, const QString& text) {
  QLabel* label = makeLabel(name, text);
  label->setWordWrap(true);
  return label;
}

QHBoxLayout* makeRow(const QString& caption, QLineEdit& field) {
  auto* row = new QHBoxLayout;
  row->addWidget(makeLabelOf(caption, field));
  row->addWidget(&field, 1);
  return row;
}

/// What a page says, for those who hear it: a screen reader comes upon its focused control alone.
QString wordsOn(const QWidget& page) {
  QStringList words;
  for (const QLabel* label : page.findChildren<QLabel*>()) {
    if (label->buddy() == nullptr && !label->isHidden()) {
      words.append(translated(label->text()));
    }
  }
  return words.join(u' ');
}

}  // namespace

frmProjectWizard::frmProjectWizard(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmProjectWizard"_s);
  setWindowTitle(u"Welcome to the Quillane setup wizard"_s);
  createControls();
  buildLayout();
  connectSignals();
  txtProjectpath->setText(Paths::documentsFolder() + u"QuillaneProj"_s + Paths::separator());
  showPage(kWelcome);
}

frmProjectWizard* frmProjectWizard::showOver(QWidget& window) {
  auto* form = new frmProjectWizard(&window);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmProjectWizard::createControls() {
  txtProjTitle = makeLineEdit(u"txtProjTitle"_s, u"Project title"_s);
  txtAuthor = makeLineEdit(u"txtAuthor"_s, u"Author"_s);
  txtProjectpath = makeLineEdit(u"txtProjectpath"_s, u"Project folder"_s);
  cmdPickPath = makeButton(u"cmdPickPath"_s, u"B&rowse..."_s);
  // Enter goes on from wherever the path was chosen.
  cmdPickPath->setAutoDefault(false);
  txtSummary = makeReadOnlyText(u"txtSummary"_s, u"The new project"_s);
  txtSummary->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  txtSummary->setMinimumHeight(fontMetrics().lineSpacing() * kSummaryInLines);
  txtSummary->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lblFileName = makeWrapped(u"lblFileName"_s, u"The file's name can't hold all that stands in the title."_s);
  cmdBack = makeButton(u"cmdBack"_s, u"<< &Back"_s);
  cmdNext = makeButton(u"cmdNext"_s, kNext);
  cmdNext->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"Cancel"_s);
}

void frmProjectWizard::buildLayout() {
  constexpr int kPicture = 48;
  pages_ = new QStackedWidget;
  addPage(
      u"Welcome"_s,
      u"This wizard will help you set up a Quillane project. Fill in the required fields and click Next to progress "
      "through the wizard. At the end, click Finish."_s)
      ->addStretch();
  addFieldPage(u"Project title"_s, u"Please enter the project title"_s, makeRow(u"&Title:"_s, *txtProjTitle),
               u"E.g. 'My fantabulous novel'"_s);
  addFieldPage(u"Author"_s, u"Next, please enter the author's name"_s, makeRow(u"&Author:"_s, *txtAuthor),
               u"E.g. 'A. N. Emuse'"_s);
  addFieldPage(u"Project folder"_s, u"Now specify your project folder"_s, makePathRow(), {});
  QVBoxLayout* summary = addPage(u"All Done!"_s, {});
  summary->addWidget(txtSummary, 1);
  summary->addWidget(lblFileName);

  auto* picture = new QLabel;
  picture->setPixmap(icon("quillane").pixmap(kPicture));
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addWidget(pages_, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {cmdBack, cmdNext, cmdCancel}) {
    buttons->addWidget(button);
  }

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->setSpacing(20);
  column->addLayout(top, 1);
  column->addLayout(buttons);
  setMinimumWidth(
      std::min(fontMetrics().averageCharWidth() * kWidthInLetters, screen()->availableSize().width() * 9 / 10));
}

QVBoxLayout* frmProjectWizard::addPage(const QString& heading, const QString& text) {
  auto* frame = new QWidget;
  frame->setObjectName(u"Frame1("_s + QString::number(pages_->count()) + u')');
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  column->addWidget(makeHeading(heading));
  if (!text.isEmpty()) {
    column->addWidget(makeWrapped({}, text));
  }
  pages_->addWidget(frame);
  return column;
}

void frmProjectWizard::addFieldPage(const QString& heading, const QString& text, QLayout* row, const QString& example) {
  QVBoxLayout* column = addPage(heading, text);
  column->addLayout(row);
  if (!example.isEmpty()) {
    column->addWidget(makeLabel({}, example));
  }
  column->addStretch();
}

QHBoxLayout* frmProjectWizard::makePathRow() {
  QHBoxLayout* row = makeRow(u"F&older:"_s, *txtProjectpath);
  row->addWidget(cmdPickPath);
  return row;
}

void frmProjectWizard::connectSignals() {
  connect(cmdNext, &QPushButton::clicked, this,
          guarded("cmdNext_Click", kModule, this, &frmProjectWizard::cmdNext_Click));
  connect(cmdBack, &QPushButton::clicked, this,
          guarded("cmdBack_Click", kModule, [this] { showPage(CurrentPage - 1); }));
  connect(cmdPickPath, &QPushButton::clicked, this,
          guarded("cmdPickPath_Click", kModule, this, &frmProjectWizard::cmdPickPath_Click));
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

NewBook frmProjectWizard::book() const {
  return {txtProjTitle->text().trimmed(), txtAuthor->text().trimmed(), NewBookFolder::named(txtProjectpath->text())};
}

void frmProjectWizard::reject() {
  Cancelled = true;
  QDialog::reject();
}

void frmProjectWizard::showPage(int page) {
  const std::array<QLineEdit*, 5> fields{nullptr, txtProjTitle, txtAuthor, txtProjectpath, nullptr};
  CurrentPage = static_cast<qint16>(page);
  if (page == kSummary) {
    showSummary();
  }
  pages_->setCurrentIndex(page);
  cmdBack->setVisible(page != kWelcome);
  cmdNext->setText(page == kSummary ? kFinish : kNext);
  QLineEdit* const field = fields[static_cast<size_t>(page)];
  if (field != nullptr) {
    field->selectAll();
  }
  QWidget* const focused = field != nullptr ? static_cast<QWidget*>(field) : cmdNext;
  focused->setAccessibleDescription(wordsOn(*pages_->currentWidget()));
  focused->setFocus();
}

void frmProjectWizard::showSummary() {
  const NewBook wanted = book();
  txtSummary->setPlainText(
      translated(u"Title: %1\nAuthor: %2\nProject file: %3"_s).arg(wanted.title, wanted.author, wanted.file()));
  lblFileName->setVisible(wanted.fileName() != wanted.title);
}

void frmProjectWizard::cmdNext_Click() {
  if (!mayLeavePage()) {
    return;
  }
  if (CurrentPage < kSummary) {
    showPage(CurrentPage + 1);
    return;
  }
  const NewBook wanted = book();
  hide();
  Q_EMIT bookWanted(wanted);
}

bool frmProjectWizard::mayLeavePage() {
  switch (CurrentPage) {
    case kTitle:
      return isFilled(*txtProjTitle, shownText(u"Please specify a project title"_s));
    case kAuthor:
      return isFilled(*txtAuthor, shownText(u"Please specify the author's name"_s));
    case kPath:
      return pathIsChosen();
    case kSummary:
      return !refused(NewBookFolder::make(book().folder));
    default:
      return true;
  }
}

bool frmProjectWizard::isFilled(QLineEdit& field, const QString& complaint) {
  if (!field.text().trimmed().isEmpty()) {
    return true;
  }
  toolkit().MsgBox(complaint);
  field.setFocus();
  return false;
}

bool frmProjectWizard::pathIsChosen() {
  if (!isFilled(*txtProjectpath, shownText(u"Please specify a path to store the project in"_s))) {
    return false;
  }
  const QString folder = NewBookFolder::named(txtProjectpath->text());
  if (!Files().FolderExists(folder) && folder != mayBeMade_) {
    if (toolkit().MsgBox(u"The project path does not exist. Do you want to create it?"_s, Buttons::YesNo) !=
        Answer::Yes) {
      txtProjectpath->setFocus();
      return false;
    }
    mayBeMade_ = folder;
  }
  txtProjectpath->setText(folder);
  return !refused(NewBookFolder::whyNot(folder));
}

bool frmProjectWizard::refused(const QString& whyNot) {
  if (!whyNot.isEmpty()) {
    showPage(kPath);
    toolkit().MsgBox(whyNot);
  }
  return !whyNot.isEmpty();
}

void frmProjectWizard::cmdPickPath_Click() {
  const QString current = NewBookFolder::named(txtProjectpath->text());
  const QString picked = toolkit().PickFolder(u"Project folder"_s, NewBookFolder::nearestThere(current));
  if (!picked.isEmpty()) {
    txtProjectpath->setText(NewBookFolder::named(picked));
  }
  txtProjectpath->setFocus();
}
