#include "gui/views/RowIcon.h"

#include "gui/toolkit/Icons.h"

#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

/// Hands every request on to an icon and recolours the answer where it is for a selected row.
class RowIconEngine : public QIconEngine {
 public:
  explicit RowIconEngine(QIcon picture) : picture_(std::move(picture)) {}

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
  QIconEngine* clone() const override { return new RowIconEngine(picture_); }
  bool isNull() override { return picture_.isNull(); }

 private:
  QPixmap scaled(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) const {
    if (mode != QIcon::Selected) {
      return picture_.pixmap(size, scale, mode, state);
    }
    QPixmap shape = picture_.pixmap(size, scale, QIcon::Normal, state);
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), QGuiApplication::palette().color(QPalette::HighlightedText));
    return shape;
  }

  QIcon picture_;
};

}  // namespace

QIcon rowIcon(const char* key) {
  static QHash<QByteArray, QIcon> known;
  const QByteArray name(key);
  auto found = known.constFind(name);
  if (found == known.constEnd()) {
    found = known.insert(name, QIcon(new RowIconEngine(icon(key))));
  }
  return *found;
}
