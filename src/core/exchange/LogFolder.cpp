#include "core/exchange/LogFolder.h"

#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/clsProject.h"
#include "core/persist/SceneFolder.h"

using namespace Qt::StringLiterals;

LogFolder::LogFolder(const clsProject& project)
    : project_(project), path_(project.Path() + u"Logs"_s + Paths::separator()) {}

void LogFolder::make() const {
  refuseLink(u"."_s);
  Files().MkMissingDir(path_);
  refuseLink(u"."_s);
}

bool LogFolder::has(const QString& name) const {
  return Files().FileExists(path_ + name);
}

QByteArray LogFolder::read(const QString& name) const {
  refuseLink(name);
  return readWholeFile(path_ + name).value_or(QByteArray());
}

void LogFolder::write(const QString& name, QByteArrayView bytes, ReplacementFile::Durability durability) const {
  refuseLink(name);
  Files().ReplaceFile(path_ + name, bytes, durability);
}

void LogFolder::refuseLink(const QString& name) const {
  if (SceneFolder::leadsOut(project_, path_ + name)) {
    throw RuntimeError(RuntimeError::PathAccess, path_ + name + u" leads out of the project's folder"_s);
  }
}
