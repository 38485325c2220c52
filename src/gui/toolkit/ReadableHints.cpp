#include "gui/toolkit/ReadableHints.h"

#include "gui/toolkit/Colours.h"

#include <QApplication>
#include <QEvent>

namespace {

bool reads(const QColor& colour, const QColor& ground) {
  return Colours::contrast(colour, ground) >= Colours::kEnoughContrast;
}

}  // namespace

ReadableHints::ReadableHints() {
  qApp->installEventFilter(this);
  apply();
}

QColor ReadableHints::readable(const QPalette& palette, QPalette::ColorRole ground) {
  const QColor behind = palette.color(ground);
  const QColor own = palette.color(QPalette::PlaceholderText);
  const QColor text = palette.color(QPalette::Text);
  const QColor strong = reads(text, behind) ? text : Colours::textOn(behind);
  QColor shown = Colours::mixed(own, behind, own.alpha() * 100 / 255);
  for (int share = 50; share <= 100 && !reads(shown, behind); share += 5) {
    shown = Colours::mixed(strong, behind, share);
  }
  return shown;
}

// Of what the desktop has said nothing else is changed, so that all other colours follow it on.
void ReadableHints::apply() {
  QPalette palette = QApplication::palette();
  const QColor wanted = readable(palette);
  if (palette.color(QPalette::PlaceholderText) != wanted) {
    palette.setColor(QPalette::PlaceholderText, wanted);
    QApplication::setPalette(palette);
  }
}

bool ReadableHints::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
    apply();
  }
  return QObject::eventFilter(watched, event);
}
