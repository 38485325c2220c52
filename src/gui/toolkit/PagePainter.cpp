#include "gui/toolkit/PagePainter.h"

#include "gui/toolkit/PdfFile.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLineWidth = 10;

void paintTexts(QPainter& painter, const PrintedPage& page) {
  PrintFont current;
  double ascent = 0;
  bool first = true;
  for (const PlacedText& placed : page.texts) {
    if (first || !(placed.font == current)) {
      first = false;
      current = placed.font;
      painter.setFont(PagePainter::fontOf(current));
      ascent = QFontMetricsF(painter.font(), painter.device()).ascent();
    }
    painter.drawText(QPointF(placed.x, placed.y + ascent), placed.text);
  }
}

}  // namespace

PagePainter::Pictures PagePainter::picturesOf(const PrintedPage& page) {
  Pictures pictures;
  for (const PlacedPicture& picture : page.pictures) {
    pictures.push_back(QImage::fromData(picture.png));
  }
  return pictures;
}

void PagePainter::paint(QPainter& painter, const PrintedPage& page) {
  paint(painter, page, picturesOf(page));
}

void PagePainter::paint(QPainter& painter, const PrintedPage& page, const Pictures& pictures) {
  painter.setPen(QPen(Qt::black, kLineWidth));
  for (const PlacedLine& line : page.lines) {
    painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
  }
  // Letters in a picture stay sharp on paper, and can be read in a small preview.
  painter.setRenderHints(QPainter::LosslessImageRendering | QPainter::SmoothPixmapTransform);
  for (size_t i = 0; i < pictures.size(); ++i) {
    const PlacedPicture& placed = page.pictures[i];
    painter.drawImage(QRectF(placed.x, placed.y, placed.width, placed.height), pictures[i]);
  }
  paintTexts(painter, page);
}

QFont PagePainter::fontOf(const PrintFont& font) {
  constexpr double kTwipsPerPoint = 20;
  QFont result(font.name);
  result.setPixelSize(qMax(1, qRound(font.points * kTwipsPerPoint)));
  result.setBold(font.bold);
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

QtTextMeasure::QtTextMeasure() : device_(&nowhere_) {
  PdfFile::prepare(device_, PaperSize::a4());
}

double QtTextMeasure::width(QStringView text, const PrintFont& font) const {
  return metricsOf(font).horizontalAdvance(text.toString());
}

double QtTextMeasure::lineHeight(const PrintFont& font) const {
  return metricsOf(font).lineSpacing();
}

const QFontMetricsF& QtTextMeasure::metricsOf(const PrintFont& font) const {
  const auto known = std::find_if(known_.begin(), known_.end(), [&](const Known& one) { return one.font == font; });
  if (known != known_.end()) {
    return known->metrics;
  }
  return known_.emplace_back(Known{font, QFontMetricsF(PagePainter::fontOf(font), &device_)}).metrics;
}
