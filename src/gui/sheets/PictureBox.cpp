#include "gui/sheets/PictureBox.h"

#include <QPainter>
#include <QStyle>

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureBox::setImage(const QImage& image) {
  image_ = image;
  scaled_ = {};
  update();
}

QSize PictureBox::sizeHint() const {
  constexpr int kSide = 200;
  return {kSide, kSide};
}

QRect PictureBox::shownAt() const {
  if (image_.isNull()) {
    return {};
  }
  const bool fits = image_.width() <= width() && image_.height() <= height();
  const QSize shown = fits ? image_.size() : image_.size().scaled(size(), Qt::KeepAspectRatio);
  return QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, shown, rect());
}

void PictureBox::paintEvent(QPaintEvent*) {
  const QRect place = shownAt();
  const QSize dots = (QSizeF(place.size()) * devicePixelRatioF()).toSize().boundedTo(image_.size());
  if (place.isEmpty() || dots.isEmpty()) {
    return;
  }
  if (scaled_.size() != dots) {
    scaled_ = QPixmap::fromImage(image_.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(place, scaled_);
}
