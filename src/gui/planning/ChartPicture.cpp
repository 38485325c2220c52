#include "gui/planning/ChartPicture.h"

#include "core/planning/RatingsChart.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/Twips.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QLineF>
#include <QList>
#include <QPainter>

#include <algorithm>

namespace {

constexpr quint32 kNearlyWhite = 0xF8F8F8;
/// Of the text's colour in the lines of a dark grid.
constexpr int kShareOfText = 9;
constexpr double kPointWidth = 4;
/// From one scene to the next; where they are closer, smooth lines run together.
constexpr double kRoomForSmoothLines = 3 * Twips::perPixel;

QPointF inPixels(const RatingsChart::Point& point) {
  return {point.x / Twips::perPixel, point.y / Twips::perPixel};
}

QFont labelFont() {
  QFont font(QString::fromUtf16(RatingsChart::kFont));
  font.setPointSizeF(RatingsChart::kFontPoints);
  return font;
}

/// What is nearly white on white is nearly black on black.
QColor gridColour(const QPalette& palette) {
  const QColor paper = palette.color(QPalette::Base);
  return Colours::textOn(paper) == Qt::black ? Colours::toQt(kNearlyWhite)
                                             : Colours::mixed(palette.color(QPalette::Text), paper, kShareOfText);
}

void paintGrid(QPainter& painter, const RatingsChart::Drawing& drawing, const QColor& colour) {
  QList<QLineF> lines;
  for (const double x : drawing.grid) {
    lines.append(QLineF(inPixels({x, 0}), inPixels({x, drawing.axis})));
  }
  painter.setPen(colour);
  painter.drawLines(lines);
}

void paintGraph(QPainter& painter, const std::vector<RatingsChart::Stroke>& graph, const QColor& colour, bool smooth) {
  QList<QLineF> lines;
  for (const RatingsChart::Stroke& stroke : graph) {
    lines.append(QLineF(inPixels(stroke.from), inPixels(stroke.to)));
  }
  QPen pen(colour, 1);
  pen.setCosmetic(!smooth);
  painter.setPen(pen);
  painter.drawLines(lines);
  // The line of a first scene is a point, and that of a single one all there is.
  if (smooth && !graph.empty()) {
    painter.setPen(QPen(colour, kPointWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoint(inPixels(graph.front().to));
  }
}

void paint(QPainter& painter, const RatingsChart::Drawing& drawing, const QPalette& palette) {
  paintGrid(painter, drawing, gridColour(palette));
  const bool smooth = drawing.step >= kRoomForSmoothLines;
  painter.setRenderHint(QPainter::Antialiasing, smooth);
  for (size_t field = 0; field < drawing.graphs.size(); ++field) {
    paintGraph(painter, drawing.graphs[field], ChartPicture::colourOf(field, palette), smooth);
  }
  painter.setPen(palette.color(QPalette::Text));
  const double ascent = QFontMetricsF(painter.font(), painter.device()).ascent();
  for (const RatingsChart::Label& label : drawing.labels) {
    painter.drawText(inPixels(label.place) + QPointF(0, ascent), label.text);
  }
}

}  // namespace

ChartPicture::ChartPicture(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ChartPicture::setRatings(const SceneRatings& ratings) {
  ratings_ = ratings;
  picture_ = {};
  update();
}

QColor ChartPicture::colourOf(size_t field, const QPalette& palette) {
  // Of the paper and of the window around it the lighter one: what reads there on a dark desktop reads on both.
  const bool isPaper = Colours::contrast(palette.color(QPalette::Base), Qt::white) <=
                       Colours::contrast(palette.color(QPalette::Window), Qt::white);
  return Colours::readable(RatingsChart::colourOf(field), palette, isPaper ? QPalette::Base : QPalette::Window);
}

QPixmap ChartPicture::painted() const {
  QPixmap picture(size() * devicePixelRatioF());
  picture.setDevicePixelRatio(devicePixelRatioF());
  picture.fill(palette().color(QPalette::Base));
  QPainter painter(&picture);
  painter.setFont(labelFont());
  const double letter = QFontMetricsF(painter.font(), this).horizontalAdvance(QLatin1Char('8')) * Twips::perPixel;
  const RatingsChart::Paper paper{Twips::fromPixels(width()), Twips::fromPixels(height()), letter,
                                  Twips::perPixel / devicePixelRatioF()};
  paint(painter, RatingsChart::drawn(ratings_, paper), palette());
  return picture;
}

void ChartPicture::paintEvent(QPaintEvent*) {
  if (picture_.isNull() || !qFuzzyCompare(picture_.devicePixelRatio(), devicePixelRatioF())) {
    picture_ = painted();
  }
  QPainter(this).drawPixmap(0, 0, picture_);
}

void ChartPicture::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  picture_ = {};
}

void ChartPicture::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    picture_ = {};
    update();
  }
}
