#include "core/persist/ConflictCopy.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedFileSubs.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <filesystem>
#include <string>
#include <system_error>

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

// Many thousand names may stand there, and a listing of Qt's would look at each file.
QStringList in(const QString& folder) {
  QStringList names;
  std::error_code failure;
  for (const auto& entry :
       std::filesystem::directory_iterator(QDir::toNativeSeparators(folder).toStdU16String(), failure)) {
    const auto name = entry.path().filename().u8string();
    if (name.find(u8"onflict") != std::u8string::npos) {
      names.append(QString::fromUtf8(reinterpret_cast<const char*>(name.data()), static_cast<qsizetype>(name.size())));
    }
  }
  names.removeIf([](const QString& name) { return !isOne(name); });
  names.sort();
  return names;
}

}  // namespace ConflictCopy
