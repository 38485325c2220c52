#include "gui/shell/main/RecentProjects.h"

#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

QString key(qsizetype index) {
  return u"Recent"_s + QString::number(index);
}

QString stored(int index) {
  return Settings().sGet(key(index)).toString();
}

QStringList takeAll() {
  QStringList paths;
  for (int i = 0; i < RecentProjects::kCount; ++i) {
    const QString path = stored(i);
    Settings().DeleteSettingByName(key(i));
    if (!path.isEmpty()) {
      paths.append(path);
    }
  }
  return paths;
}

}  // namespace

namespace RecentProjects {

QStringList withNewest(const QStringList& paths, const QString& path) {
  QStringList newest{path};
  QSet<QString> known{Paths::identity(path)};
  for (const QString& other : paths) {
    const QString identity = Paths::identity(other);
    if (!known.contains(identity)) {
      known.insert(identity);
      newest.append(other);
    }
  }
  return newest;
}

bool isNewest(const QString& path) {
  return stored(0) == path;
}

void AddToRecent(const QString& path) {
  const QStringList paths = withNewest(takeAll(), path);
  for (qsizetype i = 0; i < paths.size(); ++i) {
    Settings().sSet(key(i), paths.at(i));
  }
  Settings().SaveSettings(g_SettingsFile);
}

// The folder first: one that doesn't answer, which may take its time, is asked once.
QList<Entry> known() {
  QList<Entry> entries;
  for (int i = 0; i < kCount; ++i) {
    const QString path = stored(i);
    if (path.isEmpty()) {
      continue;
    }
    const bool away = !Files().FolderExists(Files().PathOnly(path));
    if (away || Files().FileExists(path)) {
      entries.append({path, away});
    } else {
      Settings().DeleteSettingByName(key(i));
    }
  }
  return entries;
}

QString captionOf(const QString& path) {
  return Files().FileOnly(Files().FileWithoutExt(path)) + u" \\"_s + Files().LastFolder(Files().ExtractPath(path));
}

}  // namespace RecentProjects
