#include "gui/shell/windows/frmHelp.h"

#include "core/infra/HelpFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "gui/shell/windows/HelpBrowser.h"
#include "gui/shell/windows/HelpFindBar.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/toolkit/WindowTitle.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmHelp";
const QString kBlock = u"frmHelp"_s;
const QString kZoom = u"frmHelpZoom"_s;
constexpr QSize kSizeAtFirst(860, 720);

QPointer<frmHelp>& theWindow() {
  static QPointer<frmHelp> window;
  return window;
}

/// One whose tip says which key does the same.
QPushButton* makeKeyButton(const QString& name, const QString& caption, const QString& key) {
  QPushButton* const button = makeButton(name, caption);
  button->setToolTip(key);
  return button;
}

}  // namespace

frmHelp::frmHelp(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmHelp"_s);
  setWindowTitle(u"Help"_s);
  setWindowFlags(Qt::Window);
  setAttribute(Qt::WA_DeleteOnClose);
  createControls();
  buildLayout();
  connectSignals();
  addKeys();
  resize(kSizeAtFirst.boundedTo(screen()->availableSize() * 8 / 10));
  restoreWindow(kBlock, *this);
  txtPage->setZoom(Numbers::ToInt(Settings().sGet(kZoom, 0)));
}

bool frmHelp::open(const QString& address) {
  QPointer<frmHelp>& window = theWindow();
  if (!window) {
    window = new frmHelp;
  }
  if (!window->txtPage->showPage(QUrl(address))) {
    if (!window->isVisible()) {
      delete window;
    }
    return false;
  }
  // A window that isn't one of the box's own would get neither keys nor clicks while the box is up.
  if (QWidget* const box = QApplication::activeModalWidget(); box != window->parentWidget()) {
    window->setOwner(box);
  }
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->show();
  window->raise();
  window->activateWindow();
  window->txtPage->setFocus();
  return true;
}

void frmHelp::createControls() {
  txtPage = new HelpBrowser(this);
  giveName(*txtPage, u"txtPage"_s, u"Help"_s);
  fraFind = new HelpFindBar(*txtPage, this);
  cmdBack = makeKeyButton(u"cmdBack"_s, u"&Back"_s, u"Alt+Left"_s);
  cmdForward = makeKeyButton(u"cmdForward"_s, u"&Forward"_s, u"Alt+Right"_s);
  cmdContents = makeKeyButton(u"cmdContents"_s, u"&Contents"_s, u"Alt+Home"_s);
  cmdFind = makeKeyButton(u"cmdFind"_s, u"Fin&d"_s, u"Ctrl+F"_s);
  cmdBack->setEnabled(false);
  cmdForward->setEnabled(false);
}

void frmHelp::buildLayout() {
  auto* const buttons = new QHBoxLayout;
  for (QPushButton* const button : {cmdBack, cmdForward, cmdContents, cmdFind}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->addLayout(buttons);
  column->addWidget(txtPage, 1);
  column->addWidget(fraFind);
}

void frmHelp::connectSignals() {
  connect(cmdBack, &QPushButton::clicked, txtPage, &QTextBrowser::backward);
  connect(cmdForward, &QPushButton::clicked, txtPage, &QTextBrowser::forward);
  connect(txtPage, &QTextBrowser::backwardAvailable, cmdBack, &QWidget::setEnabled);
  connect(txtPage, &QTextBrowser::forwardAvailable, cmdForward, &QWidget::setEnabled);
  connect(txtPage, &QTextBrowser::sourceChanged, this, guarded("sourceChanged", kModule, this, &frmHelp::showTitle));
  connect(cmdContents, &QPushButton::clicked, this, guarded("cmdContents_Click", kModule, this, &frmHelp::goHome));
  connect(cmdFind, &QPushButton::clicked, this, guarded("cmdFind_Click", kModule, [this] { fraFind->ask(); }));
}

void frmHelp::addKeys() {
  const auto add = [this](QKeySequence key, auto run) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, guarded("Form_KeyDown", kModule, run));
  };
  add(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { txtPage->backward(); });
  add(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { txtPage->forward(); });
  add(QKeySequence(Qt::ALT | Qt::Key_Home), [this] { goHome(); });
  add(QKeySequence(Qt::CTRL | Qt::Key_F), [this] { fraFind->ask(); });
  add(QKeySequence(Qt::Key_F3), [this] { fraFind->find(false); });
  add(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { fraFind->find(true); });
  for (const Qt::Key larger : {Qt::Key_Plus, Qt::Key_Equal}) {
    add(QKeySequence(Qt::CTRL | larger), [this] { txtPage->setZoom(txtPage->zoom() + 1); });
  }
  add(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { txtPage->setZoom(txtPage->zoom() - 1); });
  add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { txtPage->setZoom(0); });
}

void frmHelp::goHome() {
  txtPage->showPage(QUrl(HelpFile::address()));
}

void frmHelp::showTitle() {
  setWindowTitle(translated(u"Help"_s) + u" - "_s + literalTitle(txtPage->documentTitle()));
}

// Enter in the line to look for words looks for the next one, and Escape leaves that line first.
void frmHelp::keyPressEvent(QKeyEvent* event) {
  const bool inLine = fraFind->isAncestorOf(focusWidget());
  if (inLine && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    fraFind->find((event->modifiers() & Qt::ShiftModifier) != 0);
  } else if (event->key() == Qt::Key_Escape && fraFind->isVisible()) {
    fraFind->leave();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void frmHelp::setOwner(QWidget* owner) {
  const QRect place = geometry();
  const bool wasUp = isVisible();
  if (parentWidget() != nullptr) {
    parentWidget()->removeEventFilter(this);
  }
  setParent(owner, windowFlags());
  if (owner != nullptr) {
    owner->installEventFilter(this);
  }
  if (wasUp) {
    setGeometry(place);
  }
}

// The box that it stands in front of has its answer: the page stays, and leaves the keyboard to whose turn it is.
bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && watched == parentWidget() && !event->spontaneous()) {
    const bool wasUp = isVisible();
    setOwner(nullptr);
    setAttribute(Qt::WA_ShowWithoutActivating, true);
    setVisible(wasUp);
    setAttribute(Qt::WA_ShowWithoutActivating, false);
  }
  return QDialog::eventFilter(watched, event);
}

void frmHelp::storeLayout() {
  storeWindow(kBlock, *this);
  Settings().sSet(kZoom, txtPage->zoom());
}

void frmHelp::hideEvent(QHideEvent* event) {
  storeLayout();
  QDialog::hideEvent(event);
}

// The program may end while it is up; by then another window is the active one.
void frmHelp::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow()) {
    storeLayout();
  } else if (event->type() == QEvent::LanguageChange) {
    showTitle();
  }
}
