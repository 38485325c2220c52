#include "core/exchange/LogFolder.h"

#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Of a template or a script.
constexpr qint64 kMostBytes = 1024 * 1024;

void refuseLink(const QString& path) {
  const QFileInfo about(path);
  if (about.isSymLink() || about.isJunction()) {
    throw RuntimeError(RuntimeError::PathAccess, toldText(shownText(u"%1 is a link, and isn't followed"_s), {path}));
  }
}

}  // namespace

LogFolder::LogFolder(const clsProject& project) : path_(project.Path() + u"Logs"_s) {}

void LogFolder::make() const {
  refuseLink(path_);
  Files().MkMissingDir(path_);
  const QFileInfo about(path_);
  if (!about.isDir() || !about.isWritable()) {
    throw RuntimeError(RuntimeError::PathAccess,
                       toldText(shownText(u"%1 is no folder that can be written to"_s), {path_}));
  }
}

QString LogFolder::pathOf(const QString& name) const {
  return path_ + Paths::separator() + name;
}

bool LogFolder::has(const QString& name) const {
  return Files().FileExists(pathOf(name));
}

QByteArray LogFolder::read(const QString& name) const {
  refuseLinkAt(name);
  const QString path = pathOf(name);
  if (QFileInfo(path).size() > kMostBytes) {
    throw RuntimeError(RuntimeError::Overflow, toldText(shownText(u"%1 is too big, and isn't read"_s), {path}));
  }
  return readWholeFile(path, Links::Refused).value_or(QByteArray());
}

void LogFolder::write(const QString& name, QByteArrayView bytes) const {
  refuseLinkAt(name);
  Files().ReplaceFile(pathOf(name), bytes, ReplacementFile::Durability::Cached);
}

void LogFolder::refuseLinkAt(const QString& name) const {
  refuseLink(path_);
  refuseLink(pathOf(name));
}
