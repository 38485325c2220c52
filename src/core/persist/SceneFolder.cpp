#include "core/persist/SceneFolder.h"

#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool isBelow(const QString& canonical, const QString& folder) {
  return canonical == folder || canonical.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

void logLeadsOut(const QString& path) {
  Logging().LogEvent(path +
                     u" is or stands behind a link that leads out of the project's folder, and isn't followed"_s);
}

}  // namespace

SceneFolder::SceneFolder(const clsProject& project)
    : project_(project), path_(project.RTFFolder()), leadsOut_(leadsOut(project, path_ + u'.')) {}

QString SceneFolder::bareName(const QString& stored) {
  const QString name = Files().FileOnly(stored);
  return name == u"."_s || name == u".."_s || name.contains(QChar(u'\0')) ? QString() : name;
}

bool SceneFolder::isNameForProjectFile(const QString& name) {
  const bool isPlain = std::none_of(name.begin(), name.end(), [](QChar c) { return c == u'<' || c < u' '; });
  return isPlain && CodePage::canEncode(name) && name == name.trimmed() && name == Files().FileOnly(name);
}

bool SceneFolder::isFree(const QString& name) const {
  constexpr qsizetype kMostBytes = 200;
  const bool hasReserved =
      std::any_of(name.begin(), name.end(), [](QChar c) { return QStringView(u"\\/:*?<>|\"").contains(c); });
  const QFileInfo there(path_ + name);
  return !name.isEmpty() && isNameForProjectFile(name) && !hasReserved &&
         QFile::encodeName(name).size() <= kMostBytes && !there.exists() && !there.isSymLink();
}

bool SceneFolder::leadsOut(const clsProject& project, const QString& file) {
  return leadsOut(project.Path(), file);
}

bool SceneFolder::leadsOut(const QString& projectFolder, const QString& file) {
  const QString own = QFileInfo(projectFolder).canonicalFilePath();
  const QFileInfo about(file);
  const QString folder = QFileInfo(about.path()).canonicalFilePath();
  // What isn't there leads nowhere; a broken link may lead anywhere.
  if (!folder.isEmpty() && !isBelow(folder, own)) {
    return true;
  }
  return about.isSymLink() && !isBelow(about.canonicalFilePath(), own);
}

std::optional<SceneFolder::File> SceneFolder::readAs(const QString& name) const {
  const QString path = path_ + name;
  std::optional<File> file;
  Guard("LoadRTF", "clsScene")([&] {
    FileStamp stamp;
    std::optional<QByteArray> text = readWholeFile(path, Links::Refused, &stamp);
    if (!text && QFileInfo(path).isSymLink()) {
      if (leadsOut(project_, path)) {
        logLeadsOut(path);
        return;
      }
      text = readWholeFile(path, Links::Followed, &stamp);
    }
    if (text) {
      file = File{name, *std::move(text), stamp};
    }
  });
  return file;
}

QString SceneFolder::otherSpelling(const QString& name) {
  if (!names_) {
    names_.emplace();
    for (const QString& there : QDir(path_).entryList(QDir::Files | QDir::Hidden)) {
      names_->insert(there.toLower(), there);
    }
  }
  return names_->value(name.toLower());
}

std::optional<SceneFolder::File> SceneFolder::read(const QString& name) {
  if (leadsOut_) {
    logLeadsOut(path_);
    return {};
  }
  if (auto file = readAs(name)) {
    return file;
  }
  const QString other = otherSpelling(name);
  return other.isEmpty() || other == name ? std::nullopt : readAs(other);
}
