#include "gui/views/PageView.h"

#include "gui/toolkit/Controls.h"
#include "gui/toolkit/Twips.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

QString spokenTextOf(const PrintedPage& page) {
  QStringList texts;
  for (const PlacedText& placed : page.texts) {
    texts.append(placed.text);
  }
  return texts.join(u'\n');
}

}  // namespace

PageView::PageView(QWidget* parent) : QWidget(parent) {
  giveName(*this, u"picPage"_s, u"Page"_s);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PageView::show(const PrintedPage& page, const PaperSize& paper) {
  page_ = &page;
  pictures_ = PagePainter::picturesOf(page);
  paper_ = paper;
  setAccessibleDescription(spokenTextOf(page));
  adapt();
}

void PageView::setZoom(double zoom) {
  zoom_ = zoom;
  adapt();
}

double PageView::zoomFor(const QSize& room) const {
  const double byWidth = Twips::fromPixels(room.width()) / paper_.width;
  return room.height() == 0 ? byWidth : qMin(byWidth, Twips::fromPixels(room.height()) / paper_.height);
}

void PageView::adapt() {
  setFixedSize(Twips::toPixels(paper_.width * zoom_), Twips::toPixels(paper_.height * zoom_));
  update();
}

void PageView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (page_ != nullptr) {
    painter.scale(static_cast<double>(width()) / paper_.width, static_cast<double>(height()) / paper_.height);
    PagePainter::paint(painter, *page_, pictures_);
  }
}
