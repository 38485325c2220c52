#include "gui/views/RowIcon.h"

#include "gui/toolkit/Icons.h"
#include "gui/toolkit/TintedIcon.h"

#include <QGuiApplication>
#include <QHash>
#include <QPalette>

namespace {

std::optional<QColor> tintOfRow(QIcon::Mode mode) {
  return mode == QIcon::Selected ? std::optional(QGuiApplication::palette().color(QPalette::HighlightedText))
                                 : std::nullopt;
}

}  // namespace

QIcon rowIcon(const char* key) {
  static QHash<QByteArray, QIcon> known;
  const QByteArray name(key);
  auto found = known.constFind(name);
  if (found == known.constEnd()) {
    found = known.insert(name, tinted(icon(key), tintOfRow));
  }
  return *found;
}
