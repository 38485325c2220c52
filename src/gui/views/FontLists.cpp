#include "gui/views/FontLists.h"

#include <QCollator>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

QString withoutFoundry(const QString& family) {
  return family.section(u'[', 0, 0).trimmed();
}

QStringList distinctFamilies(const QStringList& families) {
  QStringList names;
  for (const QString& family : families) {
    if (const QString name = withoutFoundry(family); !name.isEmpty()) {
      names.append(name);
    }
  }
  QCollator order;
  order.setCaseSensitivity(Qt::CaseInsensitive);
  order.setNumericMode(true);
  std::sort(names.begin(), names.end(), order);
  const auto isSame = [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; };
  names.erase(std::unique(names.begin(), names.end(), isSame), names.end());
  return names;
}

QStringList fontFamilies() {
  QStringList families = QFontDatabase::families();
  families.removeIf([](const QString& family) { return QFontDatabase::isPrivateFamily(family); });
  return distinctFamilies(families);
}

QString standInFor(const QString& family) {
  return withoutFoundry(QFontInfo(QFont(family)).family());
}

QStringList fontSizes() {
  QStringList sizes;
  for (const int points : {8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 28, 36, 48, 72}) {
    sizes.append(QString::number(points));
  }
  return sizes;
}

bool isTypedSizeTaken(double points) {
  return points >= kSmallestFontSize && points < kTooLargeFontSize;
}
