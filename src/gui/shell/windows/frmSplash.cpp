#include "gui/shell/windows/frmSplash.h"

#include "Version.h"
#include "core/infra/Clock.h"
#include "core/infra/Maker.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmSplash::frmSplash() : QFrame(nullptr, Qt::SplashScreen), lblStatus(makeLabel(u"lblStatus"_s, {}, this)) {
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
  // Room for the name of a project; a longer one doesn't make the window jump.
  const int width = fontMetrics().horizontalAdvance(u'0') * 52;
  lblStatus->setFixedWidth(width);

  // No picture and no second font: they would take longer to load than all the rest of this window.
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->addWidget(makeLabel(u"lblTitle"_s, u"Quillane 4"_s));
  column->addWidget(makeLabel(u"lblVersion"_s, translated(u"Version %1"_s).arg(u"" QUILLANE_VERSION ""_s)));
  const QString maker = QString::fromLatin1(Maker::kName) + u" "_s + QString::number(Clock::today().year());
  column->addWidget(makeLabel(u"lblMaker"_s, maker));
  column->addSpacing(16);
  column->addWidget(lblStatus);
}

void frmSplash::setStatus(const QString& text) {
  lblStatus->setText(lblStatus->fontMetrics().elidedText(translated(text), Qt::ElideMiddle, lblStatus->width()));
}
