#include "gui/toolkit/ProportionalSplitter.h"

ProportionalSplitter::ProportionalSplitter(Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent) {
  connect(this, &QSplitter::splitterMoved, this, [this](int position) {
    if (length() > 0) {
      fraction_ = static_cast<double>(position) / length();
    }
  });
}

int ProportionalSplitter::length() const {
  return orientation() == Qt::Horizontal ? width() : height();
}

void ProportionalSplitter::setFraction(double fraction) {
  if (!(fraction > 0 && fraction < 1)) {
    return;
  }
  fraction_ = fraction;
  apply();
}

void ProportionalSplitter::apply() {
  const int first = qRound(length() * fraction_);
  setSizes({first, qMax(0, length() - handleWidth() - first)});
}

void ProportionalSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  apply();
}
