#include "core/persist/OldFolder.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/cSharedFileSubs.h"

#include <QDir>

namespace {

std::optional<QByteArray> contentOf(const QString& path) {
  std::optional<QByteArray> content;
  Guard("read", "OldFolder")([&] { content = readWholeFile(path, Links::Refused); });
  return content;
}

/// Both slashes part a path that was written on another system.
QString lastPart(const QString& stored) {
  const QString path = stored.trimmed();
  return path.sliced(qMax(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

}  // namespace

std::optional<QByteArray> OldFolder::read(const QString& name) {
  const QString file = lastPart(name);
  if (file.isEmpty() || file.contains(QChar(u'\0'))) {
    return {};
  }
  if (auto content = contentOf(path_ + file)) {
    return content;
  }
  if (!names_) {
    names_.emplace();
    for (const QString& there : QDir(path_).entryList(QDir::Files | QDir::Hidden)) {
      names_->insert(there.toLower(), there);
    }
  }
  const QString other = names_->value(file.toLower());
  return other.isEmpty() || other == file ? std::nullopt : contentOf(path_ + other);
}
