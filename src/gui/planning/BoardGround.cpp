#include "gui/planning/BoardGround.h"

#include "gui/planning/BoardColours.h"
#include "gui/planning/StoryCard.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/toolkit/Twips.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double kNamePoints = 9;
constexpr double kNameLeft = 30;
constexpr double kHeadingPoints = 10;
constexpr double kHeadingLeft = 40;
constexpr double kHeadingTop = 10;
constexpr double kHeadingIndent = 75;
constexpr double kHeadingMore = 300;
constexpr int kBarThickness = 2;

}  // namespace

BoardGround::BoardGround(QWidget* parent) : QWidget(parent) {
  setFont(StoryCard::boardFont(kNamePoints));
}

void BoardGround::setBars(int rows) {
  bars_ = rows;
  update();
}

void BoardGround::setNames(const QStringList& names) {
  names_ = names;
  update();
}

void BoardGround::setChapterMarks(const std::vector<ChapterMark>& marks) {
  lines_.clear();
  for (size_t i = 0; i < marks.size(); ++i) {
    const ChapterMark& mark = marks[i];
    lines_.push_back(mark.place);
    QLabel& heading = picHeading(i);
    heading.setText(QString::number(mark.number));
    heading.setToolTip(plainToolTip(mark.title));
    const double width = heading.fontMetrics().horizontalAdvance(heading.text()) * Twips::perPixel + kHeadingMore;
    heading.setGeometry(Twips::toPixels(BoardGrid::chapterLine(mark.place) + kHeadingLeft),
                        Twips::toPixels(kHeadingTop), Twips::toPixels(width), heading.fontMetrics().height());
    heading.show();
  }
  for (size_t i = marks.size(); i < headings_.size(); ++i) {
    headings_[i]->hide();
  }
  update();
}

QLabel& BoardGround::picHeading(size_t index) {
  while (headings_.size() <= index) {
    QLabel* const heading = makeLabel(u"picHeading(%1)"_s.arg(headings_.size()), {}, this);
    heading->setFont(StoryCard::boardFont(kHeadingPoints));
    heading->setIndent(Twips::toPixels(kHeadingIndent));
    heading->setAutoFillBackground(true);
    headings_.push_back(heading);
  }
  return *headings_[index];
}

void BoardGround::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect seen = event->rect();
  painter.setPen(QPen(BoardColours::chapterLine(palette()), 1, Qt::DashLine));
  for (const int place : lines_) {
    const int x = Twips::toPixels(BoardGrid::chapterLine(place));
    painter.drawLine(x, 0, x, height());
  }
  const auto isSeen = [&seen](int top, int below) { return top <= seen.bottom() && below >= seen.top(); };
  for (int row = 1; row <= bars_; ++row) {
    const int top = Twips::toPixels(BoardGrid::barTop(row));
    if (isSeen(top, top + kBarThickness)) {
      painter.fillRect(0, top, width(), kBarThickness, BoardColours::row(row, palette(), QPalette::Window));
    }
  }
  painter.setPen(BoardColours::buttonText(palette(), QPalette::Window));
  const QFontMetrics metrics = fontMetrics();
  for (int row = 1; row <= names_.size(); ++row) {
    const int top = Twips::toPixels(BoardGrid::nameTop(row));
    if (isSeen(top, top + metrics.height())) {
      painter.drawText(Twips::toPixels(kNameLeft), top + metrics.ascent(), names_.at(row - 1));
    }
  }
}
