#include "gui/shell/windows/frmSplash.h"

#include "Version.h"
#include "core/infra/Clock.h"
#include "core/infra/Maker.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel* label(const QString& name, const QString& text) {
  auto* result = new QLabel(text);
  result->setObjectName(name);
  return result;
}

}  // namespace

frmSplash::frmSplash() : QFrame(nullptr, Qt::SplashScreen), lblStatus_(new QLabel) {
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setObjectName(u"frmSplash"_s);
  setWindowTitle(u"Quillane 4"_s);
  buildLayout();
  adjustSize();
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    move(screen->availableGeometry().center() - rect().center());
  }
}

void frmSplash::buildLayout() {
  lblStatus_->setObjectName(u"lblStatus"_s);
  lblStatus_->setTextFormat(Qt::PlainText);
  // Room for the name of a project; a longer one doesn't make the window jump.
  const int width = fontMetrics().horizontalAdvance(u'0') * 52;
  lblStatus_->setFixedWidth(width);

  // No picture and no second font: they would take longer to load than all the rest of this window.
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->addWidget(label(u"lblTitle"_s, u"Quillane 4"_s));
  column->addWidget(label(u"lblVersion"_s, u"Version " QUILLANE_VERSION ""_s));
  const QString maker = QString::fromLatin1(Maker::kName) + u" "_s + QString::number(Clock::today().year());
  column->addWidget(label(u"lblMaker"_s, maker));
  column->addSpacing(16);
  column->addWidget(lblStatus_);
}

void frmSplash::setStatus(const QString& text) {
  lblStatus_->setText(lblStatus_->fontMetrics().elidedText(text, Qt::ElideMiddle, lblStatus_->width()));
}
