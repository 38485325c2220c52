#include "core/persist/OldFolder.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/cSharedLogging.h"
#include "core/persist/SceneFolder.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostOfAll = 1LL << 30;

}  // namespace

OldFolder::OldFolder(const QString& projectFolder, QString path)
    : path_(std::move(path)), leadsOut_(SceneFolder::leadsOut(projectFolder, path_ + u'.')) {
  if (leadsOut_) {
    Logging().LogEvent(path_ + u" is a link that leads out of the project's folder, and isn't followed"_s);
  }
}

std::optional<QByteArray> OldFolder::contentOf(const QString& path) {
  std::optional<QByteArray> content;
  Guard("read", "OldFolder")([&] { content = readWholeFile(path, Links::Refused); });
  given_ += content ? content->size() : 0;
  return content;
}

// Both slashes part a path that was written on another system.
QString OldFolder::shown(const QString& stored) {
  const QString path = stored.trimmed();
  return path.sliced(qMax(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

std::optional<QByteArray> OldFolder::read(const QString& name) {
  const QString file = shown(name);
  if (leadsOut_ || given_ > kMostOfAll || file.isEmpty() || file.contains(QChar(u'\0'))) {
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
