#pragma once

#include "core/text/InlineObject.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QTextObjectInterface>

#include <memory>

class QPalette;
class QTextEdit;

/// Draws what stands in a text control and is no letter: pictures, made smaller where they don't fit, and small marks
/// for all else. A picture is decoded when it first comes into view.
class InlineObjectView : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  /// Belongs to the control.
  explicit InlineObjectView(QTextEdit& control);

  /// To be called for each document that the control shows.
  void watch(QTextDocument& document);

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                  const QTextFormat& format) override;

  /// Pictures that were decoded since the control was made.
  int decoded() const { return decoded_; }

 private:
  using Object = std::shared_ptr<const InlineObject>;
  /// Kept with its object, so that no other one can have its address.
  struct Shown {
    Object object;
    QImage image;
  };

  QSizeF fitted(const QSizeF& size) const;
  QFont markFont(const QTextFormat& format) const;
  QImage image(const Object& object, QSize pixels);
  void drawMark(QPainter& painter, const QRectF& rect, const InlineObject& object, const QTextFormat& format) const;
  void drawMissing(QPainter& painter, const QRectF& rect) const;

  QTextEdit& control_;
  QCache<const InlineObject*, Shown> images_;
  QHash<const InlineObject*, std::pair<Object, QSizeF>> sizes_;
  int decoded_ = 0;
};
