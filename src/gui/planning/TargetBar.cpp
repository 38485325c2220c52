#include "gui/planning/TargetBar.h"

#include "gui/toolkit/Colours.h"
#include "gui/toolkit/Controls.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kLightGreen = 0x80FF80;
constexpr int kLetters = 48;
/// Of the green over a dark window.
constexpr int kDarkShare = 30;

}  // namespace

TargetBar::TargetBar(QWidget* parent) : QFrame(parent) {
  giveName(*this, u"Picture1"_s, u"Words done"_s);
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QColor TargetBar::green(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Window);
  const QColor told = Colours::toQt(kLightGreen);
  return Colours::textOn(ground) == Qt::black ? told : Colours::mixed(told, ground, kDarkShare);
}

void TargetBar::ShowProgressString(qint64 value, qint64 maximum, const QString& text) {
  const double whole = maximum == 0 ? 1 : static_cast<double>(maximum);
  share_ = std::clamp(static_cast<double>(value) / whole, 0.0, 1.0);
  text_ = text;
  setAccessibleDescription(text);
  update();
}

QSize TargetBar::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kLetters, minimumSizeHint().height()};
}

QSize TargetBar::minimumSizeHint() const {
  return {0, fontMetrics().lineSpacing() * 3 / 2 + 2 * frameWidth()};
}

void TargetBar::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    const QRect picture = contentsRect();
    painter.fillRect(picture, palette().color(QPalette::Window));
    QRect bar = picture;
    bar.setWidth(qRound(picture.width() * share_));
    painter.fillRect(bar, green(palette()));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(picture, Qt::AlignCenter, text_);
  }
  QFrame::paintEvent(event);
}
