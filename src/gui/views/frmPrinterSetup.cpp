#include "gui/views/frmPrinterSetup.h"

#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/cSharedText.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/toolkit/WindowTexts.h"
#include "gui/toolkit/cSharedPrinter.h"
#include "gui/views/FontLists.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmPrinterSetup";
const QString kBlock = u"PrinterSetup"_s;
const QString kNoPrinter = shownText(u"No Printer"_s);
constexpr qint16 kSmallestSize = 6;
constexpr qint16 kLargestSize = 72;
constexpr int kSampleLines = 5;
constexpr int kSampleLetters = 56;
constexpr int kSizeLetters = 6;
constexpr int kFontLetters = 37;

QLabel* makeSample(QWidget* parent) {
  QLabel* const sample = makeLabel(u"picPreview"_s, u"This is a preview of the selected font & size"_s, parent);
  sample->setWordWrap(true);
  sample->setAlignment(Qt::AlignCenter);
  sample->setMinimumWidth(sample->fontMetrics().averageCharWidth() * kSampleLetters);
  sample->setFixedHeight(sample->fontMetrics().lineSpacing() * kSampleLines);
  sample->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  sample->setBackgroundRole(QPalette::Base);
  sample->setForegroundRole(QPalette::Text);
  sample->setAutoFillBackground(true);
  return sample;
}

QRadioButton* makeOption(const QString& name, const QString& caption, QWidget* parent) {
  auto* const option = new QRadioButton(caption, parent);
  giveName(*option, name);
  return option;
}

}  // namespace

frmPrinterSetup::frmPrinterSetup(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmPrinterSetup"_s);
  setWindowTitle(u"Choose Your Printer..."_s);
  createControls();
  buildLayout();
  connectSignals();
}

void frmPrinterSetup::createControls() {
  lblTitle = makeLabel(u"lblTitle"_s, {}, this);
  lblTitle->setWordWrap(true);
  lblReportPrinterName = new QToolButton(this);
  giveName(*lblReportPrinterName, u"lblReportPrinterName"_s);
  lblReportPrinterName->setAutoRaise(true);
  lblReportPrinterName->setToolTip(translated(u"Choose another printer"_s));
  keepWords(*lblReportPrinterName);
  lblReportPrinterName->setFocusPolicy(Qt::StrongFocus);
  cmdSetup = makeButton(u"cmdSetup"_s, u"S&etup..."_s, this);
  cmdSetup->setToolTip(u"Choose another printer"_s);
  optSingleSpaced = makeOption(u"optSingleSpaced"_s, u"S&ingle"_s, this);
  optOneAndHalf = makeOption(u"optOneAndHalf"_s, shownText(u"1½ &lines"_s), this);
  optDoubleSpaced = makeOption(u"optDoubleSpaced"_s, u"&Double"_s, this);
  cmbFonts = new QComboBox(this);
  giveName(*cmbFonts, u"cmbFonts"_s, u"Font"_s);
  cmbFonts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cmbFonts->setMinimumContentsLength(kFontLetters);
  cmbFonts->view()->setAccessibleName(u"Font"_s);
  txtFontSize = makeLineEdit(u"txtFontSize"_s, u"Size in points"_s, this);
  txtFontSize->setMaximumWidth(txtFontSize->fontMetrics().averageCharWidth() * kSizeLetters * 2);
  picPreview = makeSample(this);
  chkDetails = new QCheckBox(u"Print the scenes with their de&tails, unused ones too"_s, this);
  giveName(*chkDetails, u"chkDetails"_s);
  chkDetails->hide();
  cmdPreview = makeButton(u"cmdPreview"_s, u"Pre&view..."_s, this);
  cmdPreview->setToolTip(u"Shows the pages as they will be printed"_s);
  cmdPreview->hide();
  cmdOk = makeButton(u"cmdOk"_s, u"&Print"_s, this);
  cmdOk->setToolTip(u"Prints the report"_s);
  cmdOk->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
  cmdCancel->setToolTip(u"Cancels the whole printing thing"_s);
}

void frmPrinterSetup::buildLayout() {
  auto* const printer = new QHBoxLayout;
  printer->addWidget(makeLabelOf(u"P&rinter:"_s, *lblReportPrinterName));
  printer->addWidget(lblReportPrinterName);
  printer->addStretch(1);
  printer->addWidget(cmdSetup);
  auto* const spacing = new QGroupBox(u"Line spacing"_s);
  auto* const options = new QHBoxLayout(spacing);
  for (QRadioButton* const option : {optSingleSpaced, optOneAndHalf, optDoubleSpaced}) {
    options->addWidget(option);
  }
  options->addStretch(1);
  auto* const font = new QHBoxLayout;
  font->addWidget(makeLabelOf(u"&Font:"_s, *cmbFonts));
  font->addWidget(cmbFonts, 1);
  font->addWidget(makeLabelOf(u"&Size:"_s, *txtFontSize));
  font->addWidget(txtFontSize);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(cmdPreview);
  buttons->addStretch(1);
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(lblTitle);
  column->addLayout(printer);
  column->addWidget(spacing);
  column->addLayout(font);
  column->addWidget(picPreview);
  column->addWidget(chkDetails);
  column->addStretch(1);
  column->addLayout(buttons);
}

void frmPrinterSetup::connectSignals() {
  connect(cmdSetup, &QPushButton::clicked, this,
          guarded("cmdSetup_Click", kModule, this, &frmPrinterSetup::cmdSetup_Click));
  connect(lblReportPrinterName, &QToolButton::clicked, this,
          guarded("lblReportPrinterName_Click", kModule, this, &frmPrinterSetup::cmdSetup_Click));
  connect(cmbFonts, &QComboBox::currentIndexChanged, this,
          guarded("cmbFonts_Click", kModule, this, &frmPrinterSetup::showSample));
  connect(txtFontSize, &QLineEdit::textChanged, this,
          guarded("txtFontSize_Change", kModule, this, &frmPrinterSetup::showSample));
  connect(cmdPreview, &QPushButton::clicked, this,
          guarded("cmdPreview_Click", kModule, this, &frmPrinterSetup::cmdPreview_Click));
  connect(cmdOk, &QPushButton::clicked, this, guarded("cmdOk_Click", kModule, this, &frmPrinterSetup::cmdOk_Click));
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPrinterSetup::OfferDetails() {
  chkDetails->show();
}

void frmPrinterSetup::OfferPreview(Preview preview) {
  preview_ = std::move(preview);
  cmdPreview->show();
}

void frmPrinterSetup::ShowForm(const QString& reportKey, const QString& prompt) {
  Cancelled = true;
  reportKey_ = reportKey;
  lblTitle->setText(prompt);
  if (Printers().PrinterNames().isEmpty()) {
    toolkit().MsgBox(u"No printers installed"_s);
    return;
  }
  const QString last = Settings().sGet(reportKey, kNoPrinter).toString();
  showPrinter(Printers().Exists(last) ? last : Printers().DefaultPrinter());
  const PrintState state = PrintState::current();
  QRadioButton* const option = state.PrintDoubleSpaced ? optDoubleSpaced
                               : state.PrintOneAndHalf ? optOneAndHalf
                                                       : optSingleSpaced;
  option->setChecked(true);
  fillFonts();
  txtFontSize->setText(QString::number(state.PrintFontSize));
  showSample();
  adjustSize();
  restoreWindow(kBlock, *this);
  cmdOk->setFocus();
  exec();
}

/// The current font stands in the list in any case: one that isn't there with what is printed in its place.
void frmPrinterSetup::fillFonts() {
  const QString current = PrintState::current().PrintFontName;
  const QStringList there = fontFamilies();
  int chosen = -1;
  for (const QString& family : distinctFamilies(there + QStringList(current))) {
    const bool isThere = there.contains(family, Qt::CaseInsensitive);
    cmbFonts->addItem(isThere ? family : translated(u"%1 (replaced by %2)"_s).arg(family, standInFor(family)), family);
    if (chosen < 0 && TextTools().StringsEqual(family, current)) {
      chosen = cmbFonts->count() - 1;
    }
  }
  cmbFonts->setCurrentIndex(qMax(0, chosen));
}

void frmPrinterSetup::showPrinter(const QString& name) {
  printerName_ = name;
  const QString shown = name.isEmpty()                      ? translated(kNoPrinter)
                        : name == cSharedPrinter::pdfFile() ? translated(u"PDF file"_s)
                                                            : name;
  lblReportPrinterName->setText(QString(shown).replace(u'&', u"&&"_s));
  lblReportPrinterName->setAccessibleName(translated(u"Printer: %1"_s).arg(shown));
}

void frmPrinterSetup::showSample() {
  QFont font(cmbFonts->currentData().toString());
  font.setPointSize(qMax<int>(1, chosenState().PrintFontSize));
  picPreview->setFont(font);
}

PrintState frmPrinterSetup::chosenState() const {
  const double points = qBound(0.0, Numbers::Val(QStringView(txtFontSize->text())), double{kLargestSize});
  return {optDoubleSpaced->isChecked(), optOneAndHalf->isChecked(), static_cast<qint16>(points),
          cmbFonts->currentData().toString()};
}

bool frmPrinterSetup::isSizeTaken() {
  const double points = Numbers::Val(QStringView(txtFontSize->text()));
  if (points >= kSmallestSize && points <= kLargestSize) {
    return true;
  }
  txtFontSize->setFocus();
  txtFontSize->selectAll();
  toolkit().MsgBox(points < kSmallestSize ? shownText(u"Font size must be at least 6 points"_s)
                                          : shownText(u"Font size must be at most 72 points"_s));
  return false;
}

void frmPrinterSetup::cmdSetup_Click() {
  const QPointer<frmPrinterSetup> alive(this);
  const QString chosen = Printers().Choose(printerName_);
  if (alive && !chosen.isEmpty()) {
    showPrinter(chosen);
  }
}

void frmPrinterSetup::cmdPreview_Click() {
  const QPointer<frmPrinterSetup> alive(this);
  if (isSizeTaken() && preview_(chosenState(), chkDetails->isChecked()) && alive) {
    cmdOk_Click();
  }
}

/// A file of another kind, such as the book itself, is never written over.
bool frmPrinterSetup::askPdfPath() {
  const QString ending = u".pdf"_s;
  QString path = toolkit().SaveFileDialog({u"Print to a PDF file"_s, u"*.pdf"_s, suggestedName_ + ending,
                                           g_Project->FileWithPath.isEmpty() ? QString() : g_Project->Path()});
  if (path.isEmpty()) {
    return false;
  }
  if (!path.endsWith(ending, Qt::CaseInsensitive)) {
    path += ending;
    if (Files().FileExists(path) && toolkit().MsgBox(translated(u"%1 is there already. Replace it?"_s).arg(path),
                                                     Buttons::NoUnlessYes) != Answer::Yes) {
      return false;
    }
  }
  Printers().PdfPath = path;
  return true;
}

void frmPrinterSetup::cmdOk_Click() {
  if (!Printers().Exists(printerName_)) {
    toolkit().MsgBox(u"Please choose a printer"_s);
    return;
  }
  const QPointer<frmPrinterSetup> alive(this);
  if (!isSizeTaken() || (printerName_ == cSharedPrinter::pdfFile() && !askPdfPath()) || !alive) {
    return;
  }
  Printers().SelectPrinter(printerName_);
  Settings().sSet(reportKey_, printerName_);
  chosenState().makeCurrent();
  Details = chkDetails->isChecked();
  Cancelled = false;
  accept();
}

void frmPrinterSetup::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
