#pragma once

#include <QColor>
#include <QObject>
#include <QPalette>

/// While it lives, what stands in empty lists and fields reads with ease: desktops that don't know of such hints leave
/// them in half-transparent black, which is lost on a dark ground. A colour that reads is left as it is.
class ReadableHints : public QObject {
  Q_OBJECT

 public:
  ReadableHints();

  /// The palette's own colour for hints as it is seen on this ground, or one that has a contrast of at least 4.5 there.
  static QColor readable(const QPalette& palette, QPalette::ColorRole ground = QPalette::Base);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static void apply();
};
