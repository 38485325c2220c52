#include "gui/toolkit/QtPrinters.h"

#include "core/infra/RuntimeError.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/PagePainter.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTwipsPerInch = 1440;

/// A print on paper. A page that is larger than the printer's paper is made smaller, as a whole.
class PaperPrint : public PrintTarget {
 public:
  explicit PaperPrint(std::shared_ptr<QPrinter> printer) : printer_(std::move(printer)) {}

  const TextMeasure& measure() const override { return measure_; }

  void print(const PrintDocument& document, PrintProgress& progress) override {
    printer_->setDocName(document.title);
    printer_->setCreator(u"Quillane"_s);
    printer_->setFullPage(true);
    printer_->setPageSize(QPageSize(QPageSize::A4));
    printer_->setPageOrientation(document.paper.isLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(printer_.get())) {
      throw RuntimeError(RuntimeError::DeviceError,
                         u"The printer "_s + printer_->printerName() + u" does not answer."_s);
    }
    const QRectF sheet = printer_->paperRect(QPrinter::DevicePixel);
    const double fit =
        qMin(1.0, qMin(sheet.width() / printer_->logicalDpiX() * kTwipsPerInch / document.paper.width,
                       sheet.height() / printer_->logicalDpiY() * kTwipsPerInch / document.paper.height));
    painter.scale(fit * printer_->logicalDpiX() / kTwipsPerInch, fit * printer_->logicalDpiY() / kTwipsPerInch);
    printPages(painter, document, progress);
    painter.end();
    if (printer_->printerState() == QPrinter::Error) {
      throw RuntimeError(RuntimeError::DeviceError);
    }
  }

 private:
  void printPages(QPainter& painter, const PrintDocument& document, PrintProgress& progress) {
    qint32 number = 0;
    try {
      for (const PrintedPage& page : document.pages) {
        if (number > 0 && !printer_->newPage()) {
          throw RuntimeError(RuntimeError::DeviceError);
        }
        progress.step(u"Printing page "_s, ++number);
        PagePainter::paint(painter, page);
      }
    } catch (...) {
      // Nothing of a print that was stopped comes out later.
      printer_->abort();
      painter.end();
      throw;
    }
  }

  std::shared_ptr<QPrinter> printer_;
  QtTextMeasure measure_;
};

/// A file that isn't there: the dialog asks nothing about it, and the name that counts is asked for later.
QString noFile() {
  return QDir::temp().filePath(u"quillane-%1.pdf"_s.arg(quintptr(qApp), 0, 16));
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
  auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  if (current == cSharedPrinter::pdfFile()) {
    printer->setOutputFormat(QPrinter::PdfFormat);
  } else if (!current.isEmpty()) {
    printer->setPrinterName(current);
  }
  printer->setOutputFileName(current == cSharedPrinter::pdfFile() ? noFile() : QString());
  const OverActiveWindow<QPrintDialog> dialog(printer.get());
  makeChooser(*dialog.operator->());
  if (!dialog.accepted()) {
    return {};
  }
  if (!printer->outputFileName().isEmpty() || printer->outputFormat() == QPrinter::PdfFormat) {
    return cSharedPrinter::pdfFile();
  }
  printer_ = std::move(printer);
  return printer_->printerName();
}

std::unique_ptr<PrintTarget> QtPrinters::open(const QString& name) {
  if (!printer_ || printer_->printerName() != name) {
    printer_ = std::make_shared<QPrinter>(QPrinterInfo::printerInfo(name), QPrinter::HighResolution);
  }
  return std::make_unique<PaperPrint>(printer_);
}
