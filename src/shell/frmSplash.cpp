#include "shell/frmSplash.h"

#include "Version.h"
#include "infra/Clock.h"
#include "infra/Maker.h"
#include "toolkit/Icons.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

QLabel* label(const QString& name, const QString& text, double scale) {
  auto* result = new QLabel(text);
  result->setObjectName(name);
  QFont font = result->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(scale > 1.5);
  result->setFont(font);
  return result;
}

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen), lblStatus_(new QLabel) {
  setObjectName(u"frmSplash"_s);
  setWindowTitle(u"Quillane 4"_s);
  buildLayout();
  adjustSize();
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
}

void frmSplash::buildLayout() {
  constexpr int kPicture = 64;
  auto* picture = new QLabel;
  picture->setPixmap(icon("quillane").pixmap(kPicture));
  lblStatus_->setObjectName(u"lblStatus"_s);
  lblStatus_->setTextFormat(Qt::PlainText);
  // Room for the name of a project; a longer one doesn't make the window jump.
  const int width = fontMetrics().horizontalAdvance(u'0') * 52;
  lblStatus_->setFixedWidth(width);

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(24, 20, 24, 16);
  grid->setHorizontalSpacing(20);
  grid->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
  grid->addWidget(label(u"lblTitle"_s, u"Quillane 4"_s, 2), 0, 1);
  grid->addWidget(label(u"lblVersion"_s, u"Version " QUILLANE_VERSION ""_s, 1), 1, 1);
  const QString maker = QString::fromLatin1(Maker::kName) + u" "_s + QString::number(Clock::today().year());
  grid->addWidget(label(u"lblMaker"_s, maker, 1), 2, 1);
  grid->addItem(new QSpacerItem(0, 12), 3, 0);
  grid->addWidget(lblStatus_, 4, 0, 1, 2);
  grid->setColumnStretch(1, 1);
}

void frmSplash::setStatus(const QString& text) {
  lblStatus_->setText(lblStatus_->fontMetrics().elidedText(text, Qt::ElideMiddle, lblStatus_->width()));
}
