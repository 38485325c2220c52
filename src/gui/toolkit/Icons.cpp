#include "gui/toolkit/Icons.h"

#include "gui/toolkit/TintedIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QPalette>

using namespace Qt::StringLiterals;

// Outside any namespace, as the macro asks. The linker would leave the pictures of a static library out otherwise.
static void loadPictures() {
  Q_INIT_RESOURCE(icons);
}

namespace {

QIcon load(const QString& key) {
  loadPictures();
  const QString path = u":/icons/"_s + key + u".svg"_s;
  return QFile::exists(path) ? QIcon(path) : QIcon();
}

std::optional<QColor> tintOfText(QIcon::Mode mode) {
  const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
  return QGuiApplication::palette().color(group, QPalette::ButtonText);
}

}  // namespace

QIcon icon(const char* key) {
  static QHash<QString, QIcon> known;
  const QString name = QString::fromLatin1(key);
  auto found = known.constFind(name);
  if (found == known.constEnd()) {
    found = known.insert(name, load(name));
  }
  return *found;
}

QIcon textIcon(const char* key) {
  return tinted(icon(key), tintOfText);
}
