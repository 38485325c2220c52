#include "gui/toolkit/PaperPrint.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"

#include <QPainter>
#include <QPrinter>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTwipsPerInch = 1440;

}  // namespace

void PaperPrint::print(const PrintDocument& document, PrintProgress& progress) {
  // What a printer was given it keeps: a job that is broken off comes out as far as it went. So this is the last moment
  // to stop, and what is painted from here on takes no more than moments.
  progress.step(shownText(u"Printing pages: %1"_s), static_cast<qint32>(document.pages.size()));
  prepare(document);
  QPainter painter;
  if (!painter.begin(printer_.get())) {
    throw RuntimeError(RuntimeError::DeviceError,
                       toldText(u"The printer %1 does not answer."_s, {printer_->printerName()}));
  }
  const QSizeF scale = scaleFor(document.paper);
  painter.scale(scale.width(), scale.height());
  bool isFirst = true;
  for (const PrintedPage& page : document.pages) {
    if (!isFirst && !printer_->newPage()) {
      throw RuntimeError(RuntimeError::DeviceError);
    }
    isFirst = false;
    PagePainter::paint(painter, page);
  }
  if (!painter.end() || printer_->printerState() == QPrinter::Error) {
    throw RuntimeError(RuntimeError::DeviceError);
  }
}

void PaperPrint::prepare(const PrintDocument& document) const {
  printer_->setDocName(document.title);
  printer_->setCreator(u"Quillane"_s);
  printer_->setFullPage(true);
  printer_->setPageSize(sheet_);
  printer_->setPageOrientation(document.paper.isLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
}

QSizeF PaperPrint::scaleFor(const PaperSize& paper) const {
  const QRectF sheet = printer_->paperRect(QPrinter::DevicePixel);
  const double across = printer_->logicalDpiX() / kTwipsPerInch;
  const double down = printer_->logicalDpiY() / kTwipsPerInch;
  const double fit = qMin(1.0, qMin(sheet.width() / across / paper.width, sheet.height() / down / paper.height));
  return {fit * across, fit * down};
}
