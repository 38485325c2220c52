#include "gui/shell/windows/HelpBrowser.h"

#include "core/infra/Toolkit.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QEvent>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 24;
constexpr int kLeastZoom = -4;
constexpr int kMostZoom = 20;
constexpr int kLeastPicture = 120;

/// The addresses of the pictures in a text.
QList<QUrl> picturesIn(const QTextDocument& text) {
  QList<QUrl> found;
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      if (const QTextCharFormat format = piece.fragment().charFormat(); format.isImageFormat()) {
        found.append(QUrl(format.toImageFormat().name()));
      }
    }
  }
  return found;
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  // One that came and went with the length of a page would change the room for its pictures.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  document()->setDocumentMargin(kMargin);
  // Pages are read, not glanced at.
  QFont letters = font();
  letters.setPointSizeF(letters.pointSizeF() + 1);
  setFont(letters);
  useColours();
  connect(this, &QTextBrowser::anchorClicked, this,
          guarded("anchorClicked", "frmHelp", [this](const QUrl& link) { follow(source().resolved(link)); }));
}

bool HelpBrowser::showPage(const QUrl& address) {
  const QFileInfo file(address.toLocalFile());
  if (!address.isLocalFile() || !file.isFile()) {
    return false;
  }
  folder_ = file.absolutePath() + u'/';
  follow(address);
  return true;
}

void HelpBrowser::follow(const QUrl& link) {
  const QString path = QFileInfo(link.toLocalFile()).absoluteFilePath();
  if (!link.isLocalFile() || !path.startsWith(folder_)) {
    toolkit().openDocument(link.toString(QUrl::FullyEncoded));
    return;
  }
  setSource(link);
  fitPictures();
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl address = source().resolved(name);
  if (!address.isLocalFile() || !QFileInfo(address.toLocalFile()).absoluteFilePath().startsWith(folder_)) {
    return {};
  }
  return type == QTextDocument::ImageResource ? fittedPicture(address) : QTextBrowser::loadResource(type, address);
}

/// In as many points of the screen as it has room for: on a fine screen a reduced picture keeps what it holds.
QVariant HelpBrowser::fittedPicture(const QUrl& name) const {
  QImage picture(name.toLocalFile());
  if (picture.isNull()) {
    return {};
  }
  const int room = qMax(kLeastPicture, viewport()->width() - 2 * kMargin);
  const int width = qMin(picture.width(), room);
  const int points = static_cast<int>(std::lround(width * devicePixelRatioF()));
  if (points < picture.width()) {
    picture = picture.scaledToWidth(points, Qt::SmoothTransformation);
  }
  picture.setDevicePixelRatio(static_cast<double>(picture.width()) / width);
  return picture;
}

void HelpBrowser::fitPictures() {
  fittedTo_ = viewport()->width();
  for (const QUrl& name : picturesIn(*document())) {
    const QUrl address = source().resolved(name);
    document()->addResource(QTextDocument::ImageResource, address, fittedPicture(address));
  }
  document()->markContentsDirty(0, document()->characterCount());
}

// What stands at the top stays there as well as it can.
void HelpBrowser::resizeEvent(QResizeEvent* event) {
  const bool isAtStart = verticalScrollBar()->value() == 0;
  const QTextCursor top = cursorForPosition({kMargin, 0});
  const int place = cursorRect(top).top();
  QTextBrowser::resizeEvent(event);
  if (fittedTo_ == viewport()->width()) {
    return;
  }
  fitPictures();
  if (!isAtStart) {
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top() - place);
  }
}

// Links have a colour that reads on the ground of any desktop.
void HelpBrowser::useColours() {
  const QColor link = Colours::readable(Colours::fromQt(palette().color(QPalette::Link)), palette());
  document()->setDefaultStyleSheet(u"a { color: %1; }"_s.arg(link.name()));
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) {
    return;
  }
  useColours();
  if (!source().isEmpty()) {
    const int place = verticalScrollBar()->value();
    reload();
    fitPictures();
    verticalScrollBar()->setValue(place);
  }
}

void HelpBrowser::setZoom(int points) {
  const int wanted = qBound(kLeastZoom, points, kMostZoom);
  zoomIn(wanted - zoom_);
  zoom_ = wanted;
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QTextBrowser::wheelEvent(event);
    return;
  }
  setZoom(zoom_ + (event->angleDelta().y() > 0 ? 1 : -1));
  event->accept();
}
