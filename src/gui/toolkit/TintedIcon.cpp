#include "gui/toolkit/TintedIcon.h"

#include <QIconEngine>
#include <QPainter>

namespace {

/// Hands every request on to an icon and recolours the answer.
class TintedIconEngine : public QIconEngine {
 public:
  TintedIconEngine(QIcon picture, Tint tint) : picture_(std::move(picture)), tint_(tint) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(area, scaled(area.size(), mode, state, scale));
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaled(size, mode, state, 1);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
    // The size is in device pixels already.
    return scaled(size / scale, mode, state, scale);
  }
  QIconEngine* clone() const override { return new TintedIconEngine(picture_, tint_); }
  bool isNull() override { return picture_.isNull(); }

 private:
  QPixmap scaled(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) const {
    const std::optional<QColor> colour = tint_(mode);
    if (!colour) {
      return picture_.pixmap(size, scale, mode, state);
    }
    QPixmap shape = picture_.pixmap(size, scale, QIcon::Normal, state);
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), *colour);
    return shape;
  }

  QIcon picture_;
  Tint tint_;
};

}  // namespace

QIcon tinted(const QIcon& picture, Tint tint) {
  return QIcon(new TintedIconEngine(picture, tint));
}
