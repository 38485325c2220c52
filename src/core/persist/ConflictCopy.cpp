#include "core/persist/ConflictCopy.h"

#include "core/infra/Clock.h"
#include "core/infra/NativeFile.h"
#include "core/infra/cSharedFileSubs.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ConflictCopy {

QString nameFor(const QString& path) {
  const QString file = Files().FileOnly(path);
  const QString stem =
      Files().PathOnly(path) + Files().FileWithoutExt(file) + u" (conflict "_s + Clock::today().toString(Qt::ISODate);
  const QString ending = u')' + Files().ExtOnlyWithDot(file);
  QString name = stem + ending;
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = stem + u' ' + QString::number(number) + ending;
  }
  return name;
}

bool isOne(const QString& fileName) {
  static const QRegularExpression pattern(
      u"\\(conflict \\d|conflicted copy|\\.sync-conflict-|case conflict|_conflict-\\d|-conflict-\\d"_s,
      QRegularExpression::CaseInsensitiveOption);
  return fileName.contains(pattern);
}

QStringList in(const QString& folder) {
  QStringList names = namesWith(folder, "onflict");
  names.removeIf([](const QString& name) { return !isOne(name); });
  names.sort();
  return names;
}

}  // namespace ConflictCopy
