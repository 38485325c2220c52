#pragma once

#include "core/layout/PrintedPage.h"
#include "core/layout/TextMeasure.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPdfWriter>

#include <vector>

class QPainter;

namespace PagePainter {

/// The pictures of a page as they are painted, for who paints it often.
using Pictures = std::vector<QImage>;
Pictures picturesOf(const PrintedPage& page);
/// Paints a page; a unit of the painter is a twip.
void paint(QPainter& painter, const PrintedPage& page, const Pictures& pictures);
void paint(QPainter& painter, const PrintedPage& page);
/// A font whose sizes are told in twips, so that it is as large on any device.
QFont fontOf(const PrintFont& font);

}  // namespace PagePainter

/// Measures as a PDF file and a printer set text, not as the screen does.
class QtTextMeasure : public TextMeasure {
 public:
  QtTextMeasure();

  double width(QStringView text, const PrintFont& font) const override;
  double lineHeight(const PrintFont& font) const override;

 private:
  struct Known {
    PrintFont font;
    QFontMetricsF metrics;
  };

  const QFontMetricsF& metricsOf(const PrintFont& font) const;

  mutable QBuffer nowhere_;
  mutable QPdfWriter device_;
  mutable std::vector<Known> known_;
};
