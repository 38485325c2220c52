#include "gui/exchange/frmImportWIP.h"

#include "core/exchange/Manuscript.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/persist/NewBook.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmImportWIP";
constexpr int kWidthInLetters = 95;

enum Step { kManuscript, kProject, kConfirm };

const std::array kDetails{shownText(u"Select the file containing your existing work."_s),
                          shownText(u"Now specify your Quillane project file."_s), shownText(u"Confirm details"_s)};

const QString kFormats = shownText(
    u"DOC, PDF and other binary formats are not supported. (Use 'save as...' in your word processor and choose TEXT "
    "(txt), RTF or HTML format. RTF will preserve fonts and formatting.)"_s);
const QString kDelimiters = shownText(
    u"To ensure the import process works properly, your chapter headings should be 'Chapter NN' (where NN is the "
    "number) and all your scene breaks should be three asterisks, spaced out: * * *"_s);
const QString kProjectNote = shownText(
    u"The default is your current project. Whichever project you pick, bear in mind that all existing contents will "
    "be erased during the import process."_s);

/// What was typed, in full: what doesn't begin at a root stands in the documents folder.
QString fullName(const QString& typed) {
  const QString path = Paths::native(typed.trimmed());
  if (path.isEmpty()) {
    return path;
  }
  const QString folder = Files().ExtractPath(path);
  return NewBookFolder::named(folder.isEmpty() ? u"."_s : folder) + Files().FileOnly(path);
}

QString extensionOf(const QString& path) {
  const QString name = Files().FileOnly(path);
  return name.contains(u'.') ? Files().ExtOnly(name).trimmed().toLower() : QString();
}

QString countedWords(qint32 count) {
  return count == 1 ? translated(u"1 word"_s) : translated(u"%1 words"_s).arg(QLocale().toString(count));
}

QString countedChapters(qsizetype count) {
  return count == 1 ? translated(u"1 chapter"_s) : translated(u"%1 chapters"_s).arg(QLocale().toString(count));
}

QLabel* makeNote(const QString& name, const QString& text = {}) {
  QLabel* const label = makeLabel(name, text);
  label->setWordWrap(true);
  return label;
}

QHBoxLayout* makeFileRow(const QString& caption, QLineEdit& field, QPushButton& pick) {
  auto* const row = new QHBoxLayout;
  row->addWidget(makeLabelOf(caption, field));
  row->addWidget(&field, 1);
  row->addWidget(&pick);
  return row;
}

/// Enter goes on from wherever a file was chosen.
QPushButton* makePick(const QString& name, const QString& what) {
  QPushButton* const button = makeButton(name, u"B&rowse..."_s);
  button->setAutoDefault(false);
  button->setAccessibleName(what);
  return button;
}

}  // namespace

frmImportWIP::frmImportWIP(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmImportWIP"_s);
  setWindowTitle(u"Import Work In Progress"_s);
  createControls();
  buildLayout();
  connectSignals();
  txtProjFile->setText(g_Project->FileWithPath);
  showStep(kManuscript);
}

frmImportWIP* frmImportWIP::showOver(QWidget& window) {
  auto* form = new frmImportWIP(&window);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmImportWIP::createControls() {
  lblStepNum = makeLabel(u"lblStepNum"_s, {});
  QFont font = lblStepNum->font();
  font.setPointSizeF(font.pointSizeF() * 1.4);
  font.setBold(true);
  lblStepNum->setFont(font);
  lblStepDetails = makeNote(u"lblStepDetails"_s);
  txtWipFile = makeLineEdit(u"txtWipFile"_s, u"Import file"_s);
  cmdPickWIP = makePick(u"cmdPickWIP"_s, u"Browse for the import file"_s);
  txtProjFile = makeLineEdit(u"txtProjFile"_s, u"Project file"_s);
  cmdPickProj = makePick(u"cmdPickProj"_s, u"Browse for the project file"_s);
  lblImportFile = makeElidedLabel(u"lblImportFile"_s, this);
  lblProjFile = makeElidedLabel(u"lblProjFile"_s, this);
  lblFound = makeNote(u"lblFound"_s);
  lblErased = makeNote(u"lblErased"_s);
  cmdBack = makeButton(u"cmdBack"_s, {});
  cmdNext = makeButton(u"cmdNext"_s, {});
  cmdNext->setDefault(true);
}

void frmImportWIP::buildLayout() {
  steps_ = new QStackedWidget;
  auto* manuscript = new QVBoxLayout;
  manuscript->addLayout(makeFileRow(u"I&mport file:"_s, *txtWipFile, *cmdPickWIP));
  manuscript->addWidget(makeNote(u"lblFormats"_s, kFormats));
  manuscript->addWidget(makeNote(u"lblDelimiters"_s, kDelimiters));
  addStep(*manuscript);
  auto* project = new QVBoxLayout;
  project->addLayout(makeFileRow(u"&Project file:"_s, *txtProjFile, *cmdPickProj));
  project->addWidget(makeNote(u"lblProjectNote"_s, kProjectNote));
  addStep(*project);
  auto* confirm = new QVBoxLayout;
  confirm->addWidget(buildConfirmation());
  confirm->addWidget(lblFound);
  confirm->addWidget(lblErased);
  addStep(*confirm);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->setSpacing(12);
  column->addWidget(lblStepNum);
  column->addWidget(lblStepDetails);
  column->addWidget(steps_, 1);
  column->addLayout(buildButtons());
  setMinimumWidth(
      std::min(fontMetrics().averageCharWidth() * kWidthInLetters, screen()->availableSize().width() * 9 / 10));
}

void frmImportWIP::addStep(QVBoxLayout& column) {
  auto* const frame = new QWidget;
  frame->setObjectName(u"fraStep("_s + QString::number(steps_->count()) + u')');
  column.setContentsMargins(0, 0, 0, 0);
  column.setSpacing(12);
  column.addStretch();
  frame->setLayout(&column);
  steps_->addWidget(frame);
}

QWidget* frmImportWIP::buildConfirmation() {
  auto* const box = new QWidget;
  auto* const files = new QFormLayout(box);
  files->setContentsMargins(0, 0, 0, 0);
  files->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  files->addRow(makeLabel({}, u"Import file:"_s), lblImportFile);
  files->addRow(makeLabel({}, u"Project file:"_s), lblProjFile);
  return box;
}

QHBoxLayout* frmImportWIP::buildButtons() {
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdBack);
  buttons->addWidget(cmdNext);
  return buttons;
}

void frmImportWIP::connectSignals() {
  connect(cmdBack, &QPushButton::clicked, this, guarded("cmdBack_Click", kModule, this, &frmImportWIP::cmdBack_Click));
  connect(cmdNext, &QPushButton::clicked, this, guarded("cmdNext_Click", kModule, this, &frmImportWIP::cmdNext_Click));
  connect(cmdPickWIP, &QPushButton::clicked, this,
          guarded("cmdPickWIP_Click", kModule, this, &frmImportWIP::cmdPickWIP_Click));
  connect(cmdPickProj, &QPushButton::clicked, this,
          guarded("cmdPickProj_Click", kModule, this, &frmImportWIP::cmdPickProj_Click));
}

QString frmImportWIP::ImportFile() const {
  return fullName(txtWipFile->text());
}

QString frmImportWIP::ProjectFile() const {
  return fullName(txtProjFile->text());
}

void frmImportWIP::showStep(int step) {
  const std::array<QLineEdit*, 3> fields{txtWipFile, txtProjFile, nullptr};
  step_ = step;
  if (step == kConfirm) {
    showConfirmation();
  }
  lblStepNum->setText(translated(u"Step %1"_s).arg(step + 1));
  lblStepDetails->setText(kDetails[static_cast<size_t>(step)]);
  steps_->setCurrentIndex(step);
  cmdBack->setText(step == kManuscript ? shownText(u"E&xit"_s) : shownText(u"<<   &Back"_s));
  cmdBack->setAccessibleName(step == kManuscript ? shownText(u"Exit"_s) : shownText(u"Back"_s));
  cmdNext->setText(step == kConfirm ? shownText(u"&Finish"_s) : shownText(u"&Next   >>"_s));
  cmdNext->setAccessibleName(step == kConfirm ? shownText(u"Finish"_s) : shownText(u"Next"_s));
  QLineEdit* const field = fields[static_cast<size_t>(step)];
  if (field != nullptr) {
    field->selectAll();
  }
  // Enter doesn't erase a book for one without chapters.
  QPushButton* const usual = step == kConfirm && work_.chapters.empty() ? cmdBack : cmdNext;
  usual->setDefault(true);
  QWidget* const focused = field != nullptr ? static_cast<QWidget*>(field) : usual;
  // A screen reader comes upon the focused control alone.
  QStringList words{lblStepNum->text(), translated(lblStepDetails->text())};
  for (const QLabel* label : steps_->currentWidget()->findChildren<QLabel*>()) {
    if (label->buddy() == nullptr) {
      words.append(translated(label->text()));
    }
  }
  focused->setAccessibleDescription(words.join(u' '));
  focused->setFocus();
}

void frmImportWIP::showConfirmation() {
  lblImportFile->setText(ImportFile());
  lblProjFile->setText(ProjectFile());
  lblFound->setText(whatComes());
  lblErased->setText(whatGoes());
}

QString frmImportWIP::whatComes() const {
  const QString inFront = countedWords(work_.wordsInFront);
  if (work_.chapters.empty() && work_.wordsInFront == 0) {
    return translated(u"No chapter heading was found in the file. The project would have no chapters."_s);
  }
  if (work_.chapters.empty()) {
    return translated(
               u"No chapter heading was found in the file. The project would have no chapters, and the %1 of the "
               "file would not be in it."_s)
        .arg(inFront);
  }
  QString text = translated(u"Found: %1, %2, %3."_s)
                     .arg(countedChapters(static_cast<qsizetype>(work_.chapters.size())), countedScenes(work_.scenes),
                          countedWords(work_.words));
  if (work_.wordsInFront > 0) {
    text += u'\n' + translated(u"In front of the first chapter heading: %1. They are in no chapter and will be lost."_s)
                        .arg(inFront);
  }
  if (losses_ != RtfLosses()) {
    text += u'\n' + translated(u"A scene has no place for some things in the file, so these will be lost: %1."_s)
                        .arg(namesOf(losses_).join(u", "_s));
  }
  return text;
}

QString frmImportWIP::whatGoes() const {
  return Files().FileExists(ProjectFile())
             ? shownText(u"All that the project holds now will be erased. A complete backup of it is made before."_s)
             : shownText(u"The project file isn't there yet: a new project is made."_s);
}

void frmImportWIP::cmdBack_Click() {
  if (step_ == kManuscript) {
    reject();
    return;
  }
  showStep(step_ - 1);
}

void frmImportWIP::cmdNext_Click() {
  if (!mayLeaveStep()) {
    return;
  }
  if (step_ < kConfirm) {
    showStep(step_ + 1);
    return;
  }
  hide();
  Q_EMIT importWanted();
}

void frmImportWIP::cmdPickWIP_Click() {
  const QString picked =
      toolkit().OpenFileDialog({u"Import file"_s, u"*.txt;*.rtf;*.htm;*.html"_s, {}, Paths::documentsFolder()});
  if (!picked.isEmpty()) {
    txtWipFile->setText(picked);
  }
  txtWipFile->setFocus();
}

void frmImportWIP::cmdPickProj_Click() {
  const QString current = ProjectFile();
  const QString folder = current.isEmpty() ? Paths::documentsFolder() : Files().PathOnly(current);
  const QString picked = toolkit().OpenFileDialog({u"Project file"_s, u"*.QN4"_s, {}, folder});
  if (!picked.isEmpty()) {
    txtProjFile->setText(picked);
  }
  txtProjFile->setFocus();
}

bool frmImportWIP::mayLeaveStep() {
  switch (step_) {
    case kManuscript:
      return importFileIsGood() && readManuscript();
    case kProject:
      return projectFileIsGood();
    default:
      return true;
  }
}

bool frmImportWIP::refused(const QString& complaint, QLineEdit& field) {
  if (!complaint.isEmpty()) {
    toolkit().MsgBox(complaint);
    field.setFocus();
  }
  return !complaint.isEmpty();
}

bool frmImportWIP::importFileIsGood() {
  const QString file = ImportFile();
  QString complaint;
  if (file.isEmpty()) {
    complaint = shownText(u"You must select an import file"_s);
  } else if (!Manuscript::kindOf(file)) {
    complaint = shownText(u"Unsupported format. Please choose a txt, rtf or html file."_s);
  } else if (!Files().FileExists(file)) {
    complaint = shownText(u"Your import file does not exist."_s);
  }
  return !refused(complaint, *txtWipFile);
}

bool frmImportWIP::projectFileIsGood() {
  const QString file = ProjectFile();
  QString complaint;
  if (file.isEmpty()) {
    complaint = shownText(u"You must select a project file"_s);
  } else if (extensionOf(file) != u"qn4" && !Paths::areSame(file, g_Project->FileWithPath)) {
    // What is open is saved as a QN4 file in any case.
    complaint = shownText(u"Unsupported format. Please specify a QN4 file."_s);
  } else if (!Files().FileExists(file)) {
    complaint = NewBookFolder::whyNot(Files().PathOnly(file));
  }
  return !refused(complaint, *txtProjFile);
}

/// Read now, so that the last step can say what will come of it. False when it can't be read, or was stopped.
bool frmImportWIP::readManuscript() {
  const QString file = ImportFile();
  std::optional<WorkImport> read;
  RtfLosses losses;
  const QString cause = Guard("cmdNext_Click", kModule).causeOf([&] {
    LongWork work(*g_Project, translated(u"Reading %1"_s).arg(Files().FileOnly(file)), Manuscript::takesLong(file),
                  LongWork::Stop::Offered);
    const QByteArray bytes = Manuscript::bytesOf(file);
    work.setCaption(translated(u"Reading %1"_s).arg(Files().FileOnly(file)));
    if (work.stopWanted()) {
      return;
    }
    const RichText text = Manuscript::read(bytes, *Manuscript::kindOf(file), &losses);
    work.showIfLong();
    work.setCaption(shownText(u"Looking for chapters"_s));
    if (work.stopWanted()) {
      return;
    }
    qint32 scenes = 0;
    read = WorkImport::cut(text, [&] {
      work.showIfLong();
      work.setCaption(shownText(u"Scenes found: %1"_s), ++scenes);
      return !work.stopWanted();
    });
  });
  if (refused(
          cause.isEmpty() ? cause : translated(u"Your import file can't be read."_s) + u"\n\n"_s + translated(cause),
          *txtWipFile) ||
      !read) {
    return false;
  }
  work_ = *std::move(read);
  losses_ = losses;
  return true;
}
