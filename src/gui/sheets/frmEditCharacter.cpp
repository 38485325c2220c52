#include "gui/sheets/frmEditCharacter.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/sheets/PictureBox.h"
#include "gui/sheets/PictureFile.h"
#include "gui/sheets/SheetControls.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/MemoEdit.h"

#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditCharacter";

QString bookFolder() {
  return g_Project->FileWithPath.isEmpty() ? QString() : g_Project->Path();
}

/// A path that begins nowhere begins in the book's folder.
QString fullPath(const QString& path) {
  const QString own = Paths::native(path.trimmed());
  return own.isEmpty() || !QDir::isRelativePath(own) ? own : bookFolder() + own;
}

}  // namespace

frmEditCharacter::frmEditCharacter(const SubjectOf<CharacterDetails>& subject, QWidget* parent)
    : SheetOf(kModule, u"Character Sheet"_s, subject, parent), strip_(makeStrip(u"Character Sheet"_s, this)) {
  buildDetails(*addFrame(*strip_, u"&Details"_s));
  txtBio = addPageMemo(*addFrame(*strip_, u"&Biography"_s), u"txtBio"_s, u"Biography:"_s);
  txtGoals = addPageMemo(*addFrame(*strip_, u"&Goals"_s), u"txtGoals"_s, u"Goals:"_s);
  txtNotes = addPageMemo(*addFrame(*strip_, u"&Notes"_s), u"txtNotes"_s, u"Notes:"_s);
  buildImage(*addFrame(*strip_, u"&Image"_s));
  setFields(strip_, {96, 30});
  setNameField(*txtShortName, shownText(u"You must specify a name"_s));
  connectSignals();
}

void frmEditCharacter::buildDetails(QWidget& page) {
  QFormLayout& form = *makeFieldForm(page);
  txtShortName = addLine(form, u"txtShortName"_s, u"&Short Name:"_s);
  txtShortName->setToolTip(u"If you change a character's name the old character will remain until deleted."_s);
  txtFullname = addLine(form, u"txtFullname"_s, u"&Full Name:"_s);
  txtAlternate = addLine(form, u"txtAlternate"_s, u"&Alternates:"_s);
  txtAlternate->setToolTip(u"Case sensitive. Separate with ;"_s);
  txtDesc = addMemo(form, u"txtDesc"_s, u"D&escription:"_s);
  txtTags = addLine(form, u"txtTags"_s, u"&Tags:"_s);

  optMajor = new QRadioButton(u"&Major"_s);
  giveName(*optMajor, u"optMajor"_s);
  optMinor = new QRadioButton(u"Mino&r"_s);
  giveName(*optMinor, u"optMinor"_s);
  auto* roles = new QHBoxLayout;
  roles->addWidget(optMajor);
  roles->addWidget(optMinor);
  roles->addStretch();
  form.addRow(QString(), roles);
}

void frmEditCharacter::buildImage(QWidget& page) {
  const QString advice = shownText(
      u"I recommend a size no larger than 300-400 pixels wide. Huge images will be slow to load and should be "
      "resampled first."_s);
  auto* line = new QHBoxLayout;
  txtImageFile = makeLineEdit(u"txtImageFile"_s, u"Image file"_s);
  txtImageFile->setMaxLength(std::numeric_limits<int>::max());
  // For the fields, the picture and the tab alike.
  page.setToolTip(advice);
  strip_->setTabToolTip(strip_->count() - 1, advice);
  cmdSelectImage = makeButton(u"cmdSelectImage"_s, u"Se&lect..."_s);
  cmdSelectImage->setAccessibleName(u"Select image"_s);
  line->addWidget(txtImageFile, 1);
  line->addWidget(cmdSelectImage);

  picImage = new PictureBox;
  giveName(*picImage, u"picImage"_s, u"Picture of the character"_s);
  lblImage = makeLabel(u"lblImage"_s, {}, &page);
  auto* column = new QVBoxLayout(&page);
  column->addLayout(line);
  column->addWidget(picImage, 1);
  column->addWidget(lblImage);
}

void frmEditCharacter::connectSignals() {
  connect(cmdSelectImage, &QPushButton::clicked, this,
          guarded("cmdSelectImage_Click", kModule, this, &frmEditCharacter::cmdSelectImage_Click));
  connect(strip_, &QTabWidget::currentChanged, this, guarded("TabStrip1_Click", kModule, [this] { showImage(); }));
  // A path that is being typed leads somewhere else with each letter.
  typing_.setSingleShot(true);
  typing_.setInterval(300ms);
  connect(txtImageFile, &QLineEdit::textChanged, &typing_, qOverload<>(&QTimer::start));
  connect(&typing_, &QTimer::timeout, this, guarded("txtImageFile_Change", kModule, [this] { showImage(); }));
}

void frmEditCharacter::Edit(const CharacterDetails& details, qint32 tab) {
  SheetOf::Edit(details);
  strip_->setCurrentIndex(tab > 0 && tab < strip_->count() ? tab : 0);
}

void frmEditCharacter::DataToForm(const CharacterDetails& details) {
  txtShortName->setText(details.Title);
  txtFullname->setText(details.FullName);
  txtAlternate->setText(details.AlternateNames);
  txtDesc->setText(details.DescText);
  txtTags->setText(details.Tags);
  (details.major ? optMajor : optMinor)->setChecked(true);
  txtBio->setText(details.Bio);
  txtGoals->setText(details.Goals);
  txtNotes->setText(details.Notes);
  txtImageFile->setText(details.ImageFile);
  for (QLineEdit* const line : {txtFullname, txtAlternate, txtTags}) {
    line->setCursorPosition(0);
  }
}

void frmEditCharacter::writeTo(CharacterDetails& details) const {
  details.Title = txtShortName->text();
  details.FullName = txtFullname->text();
  details.AlternateNames = txtAlternate->text();
  details.DescText = txtDesc->Text();
  details.Tags = txtTags->text();
  details.major = optMajor->isChecked();
  details.Bio = txtBio->Text();
  details.Goals = txtGoals->Text();
  details.Notes = txtNotes->Text();
  details.ImageFile = txtImageFile->text();
}

void frmEditCharacter::cmdSelectImage_Click() {
  const QPointer<frmEditCharacter> alive(this);
  const QString path =
      toolkit().OpenFileDialog({u"Select Image"_s, u"*.jpg;*.gif;*.bmp;*.png;*.jpeg"_s, {}, bookFolder()});
  if (alive && !path.isEmpty()) {
    txtImageFile->setText(path);
    loadImage();
  }
}

/// Read when its tab is seen, once for each path.
void frmEditCharacter::showImage() {
  if (picImage->isVisibleTo(this) && shownPath_ != txtImageFile->text()) {
    loadImage();
  }
}

void frmEditCharacter::loadImage() {
  const BusyPointer pointer;
  typing_.stop();
  shownPath_ = txtImageFile->text();
  const QSize room = screen()->size() * devicePixelRatioF();
  const Picture picture = readPicture(fullPath(*shownPath_), std::max(room.width(), room.height()));
  picImage->setImage(picture.image);
  lblImage->setText(picture.whyNot);
}
