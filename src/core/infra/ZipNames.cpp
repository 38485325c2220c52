#include "core/infra/ZipNames.h"

#include "core/infra/Paths.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString absolute(const QString& path) {
  return QDir::cleanPath(QFileInfo(QDir::fromNativeSeparators(Paths::native(path))).absoluteFilePath());
}

bool hasDrive(const QString& name) {
  return name.size() > 1 && name[1] == u':' && name[0].isLetter();
}

}  // namespace

bool ZipNames::isSafe(const QString& name) {
  if (name.isEmpty() || name.startsWith(u'/') || hasDrive(name) || name.contains(u'\\') || name.contains(QChar(0))) {
    return false;
  }
  const QStringList parts = name.split(u'/');
  return std::none_of(parts.begin(), parts.end(), [](const QString& part) { return part == u".."_s; });
}

QString ZipNames::of(const QString& file, const QString& root) {
  const QString path = absolute(file);
  const bool hasRoot = std::any_of(root.begin(), root.end(), [](QChar letter) { return !Paths::isSeparator(letter); });
  const QString folder = absolute(root) + u'/';
  QString name = hasRoot && path.startsWith(folder) ? path.sliced(folder.size()) : path.section(u'/', -1);
  // Letters of a name here, they part it elsewhere.
  name.replace(u'\\', u'_');
  if (hasDrive(name)) {
    name[1] = u'_';
  }
  return name;
}
