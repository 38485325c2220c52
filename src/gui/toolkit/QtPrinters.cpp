#include "gui/toolkit/QtPrinters.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/PaperPrint.h"
#include "gui/toolkit/QtTexts.h"
#include "gui/toolkit/WindowTexts.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

RuntimeError doesNotAnswer(const QString& printer) {
  return {RuntimeError::DeviceError, toldText(u"The printer %1 does not answer."_s, {printer})};
}

/// A print on one of the system's printers.
class SystemPrint : public PaperPrint {
 public:
  using PaperPrint::PaperPrint;

  /// The print system takes a job for a printer that is gone without a word; so it is looked for before and after.
  void print(const PrintDocument& document, PrintProgress& progress) override {
    requirePrinter();
    PaperPrint::print(document, progress);
    requirePrinter();
  }

 private:
  void requirePrinter() const {
    if (QPrinterInfo::printerInfo(printer().printerName()).isNull()) {
      throw doesNotAnswer(printer().printerName());
    }
  }
};

/// A4 where the printer has it, and where it doesn't say; else its own, since it would cut an A4 page off.
QPageSize sheetOf(const QPrinterInfo& printer) {
  const QPageSize a4(QPageSize::A4);
  const QList<QPageSize> sheets = printer.supportedPageSizes();
  const bool hasA4 =
      std::any_of(sheets.begin(), sheets.end(), [&](const QPageSize& one) { return one.isEquivalentTo(a4); });
  return sheets.isEmpty() || hasA4 || !printer.defaultPageSize().isValid() ? a4 : printer.defaultPageSize();
}

/// A file that isn't there: the dialog asks nothing about it, and the name that counts is asked for later.
QString noFile() {
  return QDir::temp().filePath(u"quillane-%1.pdf"_s.arg(quintptr(qApp), 0, 16));
}

std::shared_ptr<QPrinter> printerFor(const QString& name) {
  auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  if (name == cSharedPrinter::pdfFile()) {
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(noFile());
  } else if (!name.isEmpty()) {
    printer->setPrinterName(name);
  }
  return printer;
}

/// It chooses and sets up a printer; printing is begun where it was opened.
void makeChooser(QPrintDialog& dialog) {
  dialog.setWindowTitle(u"Choose Your Printer"_s);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintCollateCopies);
  // The dialog shows these by itself whenever the PDF file is chosen.
  for (const QString& name : {u"filename"_s, u"fileBrowser"_s, u"lOutput"_s}) {
    if (auto* const part = dialog.findChild<QWidget*>(name)) {
      part->setMaximumSize(0, 0);
      part->setFocusPolicy(Qt::NoFocus);
    }
  }
  // A printer is called, stands and is what its own system says.
  for (const QString& name : {u"label_2"_s, u"location"_s, u"type"_s}) {
    for (QLabel* const label : dialog.findChildren<QLabel*>(name)) {
      keepWords(*label);
    }
  }
  if (auto* const box = dialog.findChild<QDialogButtonBox*>()) {
    for (QAbstractButton* const button : box->buttons()) {
      if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
        button->setText(u"&OK"_s);
      }
    }
  }
}

}  // namespace

QtPrinters::QtPrinters() = default;
QtPrinters::~QtPrinters() = default;

QStringList QtPrinters::names() const {
  return QPrinterInfo::availablePrinterNames();
}

QString QtPrinters::defaultName() const {
  return QPrinterInfo::defaultPrinterName();
}

QString QtPrinters::choose(const QString& current) {
  const bool isSetUp = printer_ && printer_->printerName() == current;
  const auto printer = isSetUp ? printer_ : printerFor(current);
  translateQtTexts();
  const OverActiveWindow<QPrintDialog> dialog(printer.get());
  makeChooser(*dialog.operator->());
  if (!dialog.accepted()) {
    return {};
  }
  if (!printer->outputFileName().isEmpty() || printer->outputFormat() == QPrinter::PdfFormat) {
    forgetSetup();
    return cSharedPrinter::pdfFile();
  }
  printer_ = printer;
  return printer_->printerName();
}

std::unique_ptr<PrintTarget> QtPrinters::open(const QString& name) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(name);
  if (info.isNull()) {
    // The system would take another one in its place.
    throw doesNotAnswer(name);
  }
  const bool isSetUp = printer_ && printer_->printerName() == name;
  return std::make_unique<SystemPrint>(isSetUp ? printer_ : std::make_shared<QPrinter>(info, QPrinter::HighResolution),
                                       sheetOf(info));
}

void QtPrinters::forgetSetup() {
  printer_.reset();
}
