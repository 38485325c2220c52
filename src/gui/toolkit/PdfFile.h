#pragma once

#include "core/layout/PrintTarget.h"
#include "gui/toolkit/PagePainter.h"

class QPdfWriter;

/// A document as a PDF file: real text with its fonts, with title and author. The file stands under its name when it
/// is whole; until then what stood there stays.
class PdfFile : public PrintTarget {
 public:
  explicit PdfFile(QString path) : path_(std::move(path)) {}

  const TextMeasure& measure() const override { return measure_; }
  void print(const PrintDocument& document, PrintProgress& progress) override;

  /// A unit of the writer is a twip on this paper.
  static void prepare(QPdfWriter& writer, const PaperSize& paper);

 private:
  static QByteArray bytesOf(const PrintDocument& document, PrintProgress& progress);

  QString path_;
  QtTextMeasure measure_;
};

namespace PdfAuthor {

/// The same document, with its author among what is known of it; as it is when it has no such place.
QByteArray added(const QByteArray& pdf, const QString& author);

}  // namespace PdfAuthor
