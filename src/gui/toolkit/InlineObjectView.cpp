#include "gui/toolkit/InlineObjectView.h"

#include "core/infra/cSharedLang.h"
#include "core/text/RichText.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/PictureImage.h"
#include "gui/toolkit/RichTextDocument.h"
#include "gui/toolkit/Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
#include <QTextEdit>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Kind = InlineObject::Kind;

/// Of images as they are shown, in kilobytes.
constexpr int kCached = 64 * 1024;
/// A picture higher than this would leave no text beside it.
constexpr int kHighest = 600;
constexpr double kMarkFont = 0.75;
constexpr double kMarkPadding = 3;

/// The object that shows a picture: itself, or what it shows of itself.
const InlineObject* pictured(const InlineObject& object) {
  if (object.kind == Kind::Picture) {
    return &object;
  }
  if (object.kind != Kind::Embedded || !object.content) {
    return nullptr;
  }
  for (qsizetype i = 0; i < object.content->runCount(); ++i) {
    const CharFormat& format = *object.content->run(i).format;
    if (format.object && format.object->kind == Kind::Picture) {
      return format.object.get();
    }
  }
  return nullptr;
}

std::optional<RtfPicture> pictureOf(const InlineObject& object) {
  const InlineObject* const shown = pictured(object);
  return shown != nullptr ? findRtfPicture(shown->bytes.view()) : std::nullopt;
}

/// A little smaller or larger it is drawn between its pixels, which is far faster than their averages and looks the
/// same.
QImage scaledTo(const QImage& image, QSize pixels) {
  const bool isNear = pixels.width() * 2 >= image.width() && pixels.height() * 2 >= image.height();
  if (image.size() == pixels || !isNear) {
    return image.size() == pixels ? image : image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  QImage drawn(pixels, image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  drawn.fill(Qt::transparent);
  QPainter painter(&drawn);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(drawn.rect(), image);
  return drawn;
}

/// Signs that every font has.
QString signOf(Kind kind) {
  switch (kind) {
    case Kind::Footnote:
      return u"†"_s;
    case Kind::Endnote:
      return u"‡"_s;
    case Kind::Comment:
      return u"“…”"_s;
    case Kind::BookmarkStart:
    case Kind::CommentStart:
      return u"["_s;
    case Kind::BookmarkEnd:
    case Kind::CommentEnd:
      return u"]"_s;
    case Kind::Field:
      return u"{ }"_s;
    case Kind::Entry:
      return u"§"_s;
    default:
      return u"…"_s;
  }
}

}  // namespace

InlineObjectView::InlineObjectView(QTextEdit& control) : QObject(&control), control_(control), images_(kCached) {}

void InlineObjectView::watch(QTextDocument& document) {
  document.documentLayout()->registerHandler(RichTextDocument::objectType, this);
  images_.clear();
  sizes_.clear();
}

/// In whole pixels: an image is stretched, slowly and blurred, over a place that is a fraction larger.
QSizeF InlineObjectView::fitted(const QSizeF& size) const {
  const double room = control_.viewport()->width() - 2 * control_.document()->documentMargin() - 2;
  const QSize most(qMax(static_cast<int>(room), 32), kHighest);
  const bool fits = size.width() <= most.width() && size.height() <= most.height();
  return (fits ? size : size.scaled(most, Qt::KeepAspectRatio)).toSize().expandedTo({1, 1});
}

QFont InlineObjectView::markFont(const QTextFormat& format) const {
  const QFont base = control_.document()->defaultFont();
  QFont font = QGuiApplication::font();
  const double points = format.toCharFormat().fontPointSize();
  font.setPointSizeF(qMax(5.0, (points > 0 ? points : QFontInfo(base).pointSizeF()) * kMarkFont));
  return font;
}

QSizeF InlineObjectView::intrinsicSize(QTextDocument*, int, const QTextFormat& format) {
  const Object object = RichTextDocument::fromQt(format.toCharFormat()).object;
  if (!object) {
    return {};
  }
  const auto known = sizes_.constFind(object.get());
  if (known != sizes_.constEnd()) {
    return fitted(known->second);
  }
  if (const auto picture = pictureOf(*object)) {
    const QSize twips = pictureSize(*picture);
    const QSizeF size(Twips::toPixels(twips.width()), Twips::toPixels(twips.height()));
    sizes_.insert(object.get(), {object, size.expandedTo({1, 1})});
    return fitted(size.expandedTo({1, 1}));
  }
  const QFontMetricsF metrics(markFont(format));
  return {metrics.horizontalAdvance(signOf(object->kind)) + 2 * kMarkPadding, metrics.height()};
}

void InlineObjectView::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int,
                                  const QTextFormat& format) {
  const Object object = RichTextDocument::fromQt(format.toCharFormat()).object;
  if (!object) {
    return;
  }
  if (!sizes_.contains(object.get())) {
    drawMark(*painter, rect, *object, format);
    return;
  }
  const QImage shown = image(object, (rect.size() * painter->device()->devicePixelRatioF()).toSize());
  if (shown.isNull()) {
    drawMissing(*painter, rect);
  } else {
    painter->drawImage(rect, shown);
  }
}

QImage InlineObjectView::image(const Object& object, QSize pixels) {
  const Shown* const known = images_.object(object.get());
  if (known != nullptr && (known->image.isNull() || known->image.size() == pixels)) {
    return known->image;
  }
  const auto picture = pictureOf(*object);
  QImage image = picture ? pictureImage(*picture) : QImage();
  ++decoded_;
  image = image.isNull() ? image : scaledTo(image, pixels);
  images_.insert(object.get(), new Shown{object, image},
                 static_cast<int>(qMin<qint64>(image.sizeInBytes() >> 10, kCached)) + 1);
  return image;
}

void InlineObjectView::drawMark(QPainter& painter, const QRectF& rect, const InlineObject& object,
                                const QTextFormat& format) const {
  const QPalette palette = control_.palette();
  const QColor ground = Colours::mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), 25);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  painter.setPen(Colours::contrast(palette.color(QPalette::Text), ground) >= Colours::kEnoughContrast
                     ? palette.color(QPalette::Text)
                     : Colours::textOn(ground));
  painter.setFont(markFont(format));
  painter.drawText(rect, Qt::AlignCenter, signOf(object.kind));
  painter.restore();
}

void InlineObjectView::drawMissing(QPainter& painter, const QRectF& rect) const {
  painter.save();
  painter.setPen(QPen(control_.palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
  painter.setFont(QGuiApplication::font());
  const QString word = translated(u"Picture"_s);
  const QRectF inside = rect.adjusted(2, 2, -2, -2);
  const QRectF needed = QFontMetricsF(painter.font()).boundingRect(word);
  if (needed.width() <= inside.width() && needed.height() <= inside.height()) {
    painter.drawText(inside, Qt::AlignCenter, word);
  }
  painter.restore();
}
