#pragma once

#include "core/layout/PrintTarget.h"
#include "gui/toolkit/PagePainter.h"

#include <QPageSize>

#include <memory>

class QPrinter;

/// A print on paper. A page that is larger than the sheet is made smaller, as a whole.
class PaperPrint : public PrintTarget {
 public:
  PaperPrint(std::shared_ptr<QPrinter> printer, const QPageSize& sheet) : printer_(std::move(printer)), sheet_(sheet) {}

  const TextMeasure& measure() const override { return measure_; }
  void print(const PrintDocument& document, PrintProgress& progress) override;

 protected:
  const QPrinter& printer() const { return *printer_; }

 private:
  void prepare(const PrintDocument& document) const;
  /// Painter's units in a twip.
  QSizeF scaleFor(const PaperSize& paper) const;

  std::shared_ptr<QPrinter> printer_;
  QPageSize sheet_;
  QtTextMeasure measure_;
};
